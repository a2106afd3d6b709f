#include "tests/support/source_folder.h"

namespace tidewarden::test {

std::filesystem::path SourceFolder() {
  return TIDEWARDEN_SOURCE_DIR;
}

}  // namespace tidewarden::test
