#include "core/shell.h"

#include <utility>

namespace tidewarden {

ShellRequest RequestFor(ShellTarget kind, std::string target, PathStyle style) {
  ShellRequest request;
  request.kind = kind;
  request.target = std::move(target);
  request.folder = style == PathStyle::kWindows ? "C:\\" : "/";
  return request;
}

}  // namespace tidewarden
