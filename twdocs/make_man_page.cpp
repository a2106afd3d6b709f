// Writes a manual page from its source in docs/man and the guide, at build time:
//   make_man_page NAME.SECTION.md DATE VERSION OUTPUT
// Includes in the source are named from the source's own folder.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "guide/man_page.h"

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void MakePage(const fs::path& source, const std::string& date, const std::string& version,
              const fs::path& output) {
  tidewarden::ManHead head;
  const fs::path name = source.stem();  // NAME.SECTION
  head.name = name.stem().string();
  head.section = name.extension().string().substr(1);
  head.date = date;
  head.version = version;
  const std::string text = tidewarden::PutIncludesIn(
      ReadAll(source), [&](std::string_view part) { return ReadAll(source.parent_path() / part); });
  if (text.find(tidewarden::kMissingInclude) != std::string::npos) {
    throw std::runtime_error(text.substr(text.find(tidewarden::kMissingInclude), text.find('\n')));
  }
  std::ofstream file(output, std::ios::binary);
  file << tidewarden::WriteManPage(head, text);
  if (!file.flush()) throw std::runtime_error(output.string() + " cannot be written");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 5) throw std::runtime_error("wants SOURCE DATE VERSION OUTPUT");
    MakePage(argv[1], argv[2], argv[3], argv[4]);
    return 0;
  } catch (const std::exception& fault) {
    static_cast<void>(std::fprintf(stderr, "make_man_page: %s\n", fault.what()));
    return 1;
  }
}
