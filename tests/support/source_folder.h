// The checkout that the tests were built from, for tests that read its files.
#pragma once

#include <filesystem>

namespace tidewarden::test {

[[nodiscard]] std::filesystem::path SourceFolder();

}  // namespace tidewarden::test
