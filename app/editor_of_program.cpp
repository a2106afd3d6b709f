#include "app/editor_of_program.h"

#include <utility>

#include "editor/frm_edit.h"

namespace tidewarden {

EditorOfProgram::EditorOfProgram(EditPorts ports) : ports_(ports) {}
EditorOfProgram::~EditorOfProgram() = default;

bool EditorOfProgram::IsLoaded() const {
  return session_ != nullptr && session_->isLoaded();
}

bool EditorOfProgram::IsEntryUnderWay() const {
  return session_ != nullptr && session_->isEntryUnderWay();
}

void EditorOfProgram::Open(const EditorRequest& request) {
  if (!window_) {
    Parts parts = MakeParts();
    session_ = std::make_unique<EditSession>(ports_, std::move(parts.hooks),
                                             std::move(parts.format), std::move(parts.setup));
    window_ = std::make_unique<frmEdit>(*session_, QString::fromStdString(parts.skin));
  }
  window_->Open(request.RequestedEditLine, request.rawLine, request.RequestedAdd);
}

void EditorOfProgram::Reload() {
  if (IsLoaded()) window_->Reload();
}

void EditorOfProgram::Unload() {
  if (window_) window_->Unload();
}

void EditorOfProgram::ScreensChanged() {
  if (IsLoaded()) window_->ScreensChanged();
}

}  // namespace tidewarden
