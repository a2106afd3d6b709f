// Port: the modal message box. Text is always plain text, never mark-up.
#pragma once

#include <string>
#include <string_view>

namespace tidewarden {

inline constexpr std::string_view kMessageTitle = "Tidewarden";

enum class MessageButtons { kOk, kOkCancel, kYesNo };
enum class MessageIcon { kNone, kExclamation };

// Closing the box counts as kCancel or kNo, as kOk where there is nothing else.
enum class MessageAnswer { kOk, kCancel, kYes, kNo };

class MessageBox {
 public:
  virtual ~MessageBox() = default;

  // Shows `text` (lines separated by line feeds) under the title kMessageTitle and waits for
  // the answer.
  virtual MessageAnswer Show(const std::string& text, MessageButtons buttons, MessageIcon icon) = 0;
};

}  // namespace tidewarden
