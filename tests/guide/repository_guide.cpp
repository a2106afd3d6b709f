#include "tests/guide/repository_guide.h"

#include <fstream>
#include <iterator>

#include "tests/support/source_folder.h"

namespace tidewarden::test {

std::string ReadGuideFile(const std::string& fileName) {
  for (const char* const folder : {"docs/guide", "docs", "examples"}) {
    std::ifstream file(SourceFolder() / folder / fileName, std::ios::binary);
    if (file.is_open()) {
      return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
  }
  return {};
}

const Guide& RepositoryGuide() {
  static const Guide guide(ReadGuideFile);
  return guide;
}

}  // namespace tidewarden::test
