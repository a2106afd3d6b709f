// Port: the events editor, as the reminder window uses it.
#pragma once

#include <string>

namespace tidewarden {

// What the editor is opened for.
struct EditorRequest {
  long RequestedEditLine = -1;  // the line of the event to open, from 0; -1 for none
  bool RequestedAdd = false;    // start a new event
  std::string rawLine;          // the bytes of the event's line, without its end
};

class EditorWindow {
 public:
  virtual ~EditorWindow() = default;

  // True from its opening to the first step of its closing.
  [[nodiscard]] virtual bool IsLoaded() const = 0;

  // True while the user has typed something that is not saved yet.
  [[nodiscard]] virtual bool IsEntryUnderWay() const = 0;

  // Shows the editor. When it is loaded already it comes to the front, and follows the request
  // only if no entry is under way.
  virtual void Open(const EditorRequest& request) = 0;

  // The events file has been changed beside it: shows the file as it is now, unless an entry is
  // under way or it is not loaded.
  virtual void Reload() = 0;

  // Closes it without handing back to the reminder window; an entry under way is given up.
  virtual void Unload() = 0;
};

}  // namespace tidewarden
