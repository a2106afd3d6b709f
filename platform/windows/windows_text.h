// Between the engine's UTF-8 and the wide text of the system's calls.
#pragma once

#include <string>
#include <string_view>

namespace tidewarden {

// What is no valid UTF-8 becomes the replacement character.
[[nodiscard]] std::wstring Wide(std::string_view utf8);

// A lone half of a surrogate pair, which file names may hold, becomes the replacement character.
[[nodiscard]] std::string Narrow(std::wstring_view text);

// A path for the file calls: "/" read as "\", relative parts resolved against the current folder,
// and a path too long for the ordinary form in the form that has no such limit.
[[nodiscard]] std::wstring WidePath(const std::string& path);

// The folder of a wide path, with its separator where it is the root of a drive.
[[nodiscard]] std::wstring FolderOf(const std::wstring& path);

}  // namespace tidewarden
