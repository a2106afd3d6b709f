// A picture of a window in a file, for documents.
#pragma once

#include <string>

#include "core/file_system.h"

class QWidget;

namespace tidewarden {

// Writes what the window shows, in the format that the ending of `path` names (png, bmp, jpg, ...)
// and as PNG when it names none that is known. It may show the user's events, so the file is for
// the user alone, like every file that is made here.
Status SaveWindowPicture(QWidget& window, FileSystem& files, const std::string& path);

}  // namespace tidewarden
