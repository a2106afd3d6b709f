// Port: what the desktop does for the user: opening a document or a web page with the program that
// he has chosen for it, and starting a program.
//
// A request is made of what Windows' ShellExecute takes; there the three kinds are one call, with
// no owner window and the default verb. Other systems need to know the kind.
#pragma once

#include <string>
#include <string_view>

#include "core/events_path.h"

namespace tidewarden {

enum class ShellTarget { kDocument, kProgram, kWebPage };

struct ShellRequest {
  ShellTarget kind = ShellTarget::kDocument;
  // In UTF-8: the full path of a document or a program in the system's own form, or the address of
  // a web page, which begins with "https://". Never a name to be searched for nor a command line.
  std::string target;
  std::string parameters;  // of a program; always empty
  std::string folder;      // the working folder of what is started
  int show = 1;  // how its window comes up, by the numbers of ShowWindow; always 1, normal
  bool operator==(const ShellRequest&) const = default;
};

// A request whose working folder is the root: "C:\" on Windows, else "/".
[[nodiscard]] ShellRequest RequestFor(ShellTarget kind, std::string target, PathStyle style);

class Shell {
 public:
  virtual ~Shell() = default;

  // Hands the request to the desktop and returns at once. What is started does not depend on this
  // process: it goes on when this one ends, and holds none of its files. Whether it worked is not
  // told, and nothing is shown to the user.
  virtual void Execute(const ShellRequest& request) = 0;
};

}  // namespace tidewarden
