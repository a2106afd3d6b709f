// The events editor of the running program: made when it is first opened, one for the whole run.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "editor/edit_session.h"
#include "reminder/editor_window.h"

namespace tidewarden {

class frmEdit;

class EditorOfProgram : public EditorWindow {
 public:
  // What the editor is made from; asked for when it is first opened.
  struct Parts {
    EditorHooks hooks;
    RegionalDateFormat format;
    EditorSetup setup;
    std::string skin;
  };

  explicit EditorOfProgram(EditPorts ports);
  ~EditorOfProgram() override;
  EditorOfProgram(const EditorOfProgram&) = delete;
  EditorOfProgram& operator=(const EditorOfProgram&) = delete;

  // To be set before the first opening.
  std::function<Parts()> MakeParts;

  [[nodiscard]] bool IsLoaded() const override;
  [[nodiscard]] bool IsEntryUnderWay() const override;
  void Open(const EditorRequest& request) override;
  void Reload() override;
  void Unload() override;

  // The desktop has other screens; an editor that is open comes back from one that has gone.
  void ScreensChanged();

 private:
  EditPorts ports_;
  std::unique_ptr<EditSession> session_;
  std::unique_ptr<frmEdit> window_;
};

}  // namespace tidewarden
