// Finds files whose path is known only without its letter case, such as a path out of the
// settings, which are read in lower case.
#pragma once

#include <string>
#include <string_view>

#include "core/events_path.h"
#include "core/file_system.h"

namespace tidewarden {

// The path of what exists at `path`; when nothing does, of the first file or folder that exists
// when the letter case of names does not count, in code-point order from the root on; when there
// is none either, `path` as it stands.
//
// Posix: "\" counts as "/"; a name in a folder that cannot be listed is taken as it is written.
// Windows: always `path` as it stands, because the system does not look at letter case.
[[nodiscard]] std::string FindIgnoringCase(FileSystem& files, std::string_view path,
                                           PathStyle style);

}  // namespace tidewarden
