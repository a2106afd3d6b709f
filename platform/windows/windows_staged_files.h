// New content beside a file, and its way into the file's place.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "platform/windows/windows_handles.h"

namespace tidewarden {

// FileSystem::Stage for a wide full path.
[[nodiscard]] Status StageFile(const std::wstring& path, std::string_view content,
                               std::unique_ptr<StagedFile>& out);

// The same for a file that exists in a folder that takes no new files: Commit writes into it.
[[nodiscard]] Status StageInPlace(const std::wstring& path, std::string_view content,
                                  std::unique_ptr<StagedFile>& out);

// Creates the file that is to take the place of another one, by calls of `create` with a set of
// rights that gives a handle or INVALID_HANDLE_VALUE: first with those to take over permissions
// and owner, then, while the answer is "access denied", with fewer, down to what it takes to write
// and rename it. A folder that is shared in a network for changes grants no more than that, and
// its own permissions hold. On failure the last error tells why.
[[nodiscard]] FileHandle CreateReplacement(const std::function<HANDLE(DWORD rights)>& create);

// The file that a path leads to when it is a symbolic link that leads somewhere; else the path.
[[nodiscard]] std::wstring ResolveLink(const std::wstring& path);

}  // namespace tidewarden
