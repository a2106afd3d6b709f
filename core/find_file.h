// Finding a file whose path was stored in lower case.
//
// Some settings are read in lower case, while the folders of many systems tell "Alarms" from
// "alarms". A path that leads nowhere as it stands is therefore looked for in any letter case.
#pragma once

#include <string>

#include "core/file_system.h"

namespace tidewarden {

// kOk with the path of a regular file that can be read: `path` itself, or else the first one that
// differs from it in letter case only, folder by folder in the order of code points. A folder that
// cannot be listed is taken as it is written. Otherwise why `path` itself cannot be read, and
// `found` is `path`. Folders are separated by "/".
Status FindFileInAnyCase(FileSystem& files, const std::string& path, std::string& found);

}  // namespace tidewarden
