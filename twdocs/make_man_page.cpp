// Writes a manual page from its source in docs/man and the guide, at build time:
//   make_man_page NAME.SECTION.md DATE VERSION OUTPUT
// Includes in the source are named from the source's own folder; the other sources there tell which
// page has what a link leads to.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

#include "guide/man_page.h"

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The name and the section of a source: NAME.SECTION.md.
tidewarden::ManHead HeadOf(const fs::path& source) {
  tidewarden::ManHead head;
  const fs::path name = source.stem();
  head.name = name.stem().string();
  head.section = name.extension().string().substr(1);
  return head;
}

// In the order of the names, because what is on two pages is found on the first.
tidewarden::ManPlaces PlacesIn(const fs::path& folder) {
  std::set<fs::path> sources;
  for (const auto& file : fs::directory_iterator(folder)) {
    if (file.path().extension() == ".md") sources.insert(file.path());
  }
  tidewarden::ManPlaces places;
  for (const fs::path& source : sources) {
    const tidewarden::ManHead head = HeadOf(source);
    places.Add(head.name + "(" + head.section + ")", ReadAll(source));
  }
  return places;
}

void MakePage(const fs::path& source, const std::string& date, const std::string& version,
              const fs::path& output) {
  tidewarden::ManHead head = HeadOf(source);
  head.date = date;
  head.version = version;
  const std::string text = tidewarden::PutIncludesIn(
      ReadAll(source), [&](std::string_view part) { return ReadAll(source.parent_path() / part); });
  if (text.find(tidewarden::kMissingInclude) != std::string::npos) {
    throw std::runtime_error(text.substr(text.find(tidewarden::kMissingInclude), text.find('\n')));
  }
  std::ofstream file(output, std::ios::binary);
  file << tidewarden::WriteManPage(head, text, PlacesIn(source.parent_path()));
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
