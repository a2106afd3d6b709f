// New content beside a file, and its way into the file's place.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/file_system.h"

namespace tidewarden {

// FileSystem::Stage for a wide full path.
[[nodiscard]] Status StageFile(const std::wstring& path, std::string_view content,
                               std::unique_ptr<StagedFile>& out);

// The same for a file that exists in a folder that takes no new files: Commit writes into it.
[[nodiscard]] Status StageInPlace(const std::wstring& path, std::string_view content,
                                  std::unique_ptr<StagedFile>& out);

// The file that a path leads to when it is a symbolic link that leads somewhere; else the path.
[[nodiscard]] std::wstring ResolveLink(const std::wstring& path);

}  // namespace tidewarden
