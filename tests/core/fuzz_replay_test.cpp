// Runs one fuzz target over its seeds and over the inputs that once broke it.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/source_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

const fs::path kTarget = TIDEWARDEN_FUZZ_TARGET;

// How many files of a folder were run; a property that does not hold ends the program.
int Replay(const fs::path& folder) {
  int count = 0;
  if (!fs::exists(folder)) return count;
  for (const auto& entry : fs::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << entry.path();
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    // A copy of just the right size, so that reading behind its end is noticed.
    const std::vector<std::uint8_t> bytes(content.begin(), content.end());
    SCOPED_TRACE(entry.path().filename().string());
    std::fprintf(stderr, "%s\n", entry.path().filename().string().c_str());
    EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
    ++count;
  }
  return count;
}

TEST(FuzzReplay, TheSeedsHoldEveryProperty) {
  EXPECT_GE(Replay(tidewarden::test::SourceFolder() / "fuzz" / "corpus" / kTarget), 10);
}

TEST(FuzzReplay, FormerFindingsHoldEveryProperty) {
  const fs::path findings =
      tidewarden::test::SourceFolder() / "tests" / "data" / "regress" / kTarget;
  const auto expected = fs::exists(findings) ? std::distance(fs::directory_iterator(findings), {})
                                             : std::ptrdiff_t{0};
  EXPECT_EQ(Replay(findings), expected);
}

}  // namespace
