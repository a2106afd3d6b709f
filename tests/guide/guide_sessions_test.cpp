// The sessions at the terminal in the guide: each command is run by the program, and has to print
// what the guide shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "guide/markdown.h"
#include "tests/cli/program.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrompt = "$ ";
constexpr std::string_view kProgram = "tidewarden-cli ";
constexpr std::string_view kShow = "cat ";

struct Step {
  std::string command;
  std::string shown;
};

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<Step> StepsIn(const std::string& markdown) {
  std::vector<Step> steps;
  for (const Block& block : ReadMarkdown(markdown)) {
    if (block.kind != BlockKind::kCode || !block.text.starts_with(kPrompt)) continue;
    std::string_view text = block.text;
    while (!text.empty()) {
      const std::string_view line = text.substr(0, text.find('\n'));
      text.remove_prefix(line.size() + 1);
      if (line.starts_with(kPrompt)) {
        steps.push_back({std::string(line.substr(kPrompt.size())), {}});
      } else {
        steps.back().shown.append(line).push_back('\n');
      }
    }
  }
  return steps;
}

// A command's words, as the shell parts them; double quotes are the only ones.
std::vector<std::string> WordsOf(std::string_view command) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (const char c : command) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ' ' && !quoted) {
      words.emplace_back();
    } else {
      words.back().push_back(c);
    }
  }
  return words;
}

void RunSteps(const fs::path& page, int& count) {
  Terminal terminal;
  terminal.surroundings.folder = terminal.folder.path();
  const fs::path folder = terminal.folder.path();
  fs::copy_file(SourceFolder() / "examples/dates.txt", folder / "dates.txt");
  for (const Step& step : StepsIn(ReadAll(page))) {
    SCOPED_TRACE(page.filename().string() + ": " + step.command);
    if (step.command.starts_with(kShow)) {
      std::ofstream(folder / step.command.substr(kShow.size()), std::ios::binary) << step.shown;
      continue;
    }
    ASSERT_TRUE(step.command.starts_with(kProgram));
    std::vector<std::string> words = WordsOf(step.command);
    words.erase(words.begin());
    const Outcome outcome = terminal.Run(words);
    EXPECT_EQ(outcome.err + outcome.out, step.shown);
    ++count;
  }
}

TEST(GuideSessions, ShowWhatTheProgramPrints) {
  int count = 0;
  for (const auto& file : fs::directory_iterator(SourceFolder() / "docs/guide")) {
    if (file.path().extension() == ".md") RunSteps(file.path(), count);
  }
  EXPECT_GE(count, 15);
}

TEST(ReadmeSessions, ShowWhatTheProgramPrints) {
  // Its events file is the repository's own, by its path from the root.
  int count = 0;
  for (const Step& step : StepsIn(ReadAll(SourceFolder() / "README.md"))) {
    if (step.command.find("examples/") == std::string::npos) continue;
    Terminal terminal;
    terminal.surroundings.folder = SourceFolder().string();
    std::vector<std::string> words = WordsOf(step.command);
    words.erase(words.begin());
    // The README leaves the layout to the reader's system.
    words.insert(words.end(), {"--short-date", "MM/dd/yyyy"});
    EXPECT_EQ(terminal.Run(words).out, step.shown) << step.command;
    ++count;
  }
  EXPECT_GE(count, 1);
}

}  // namespace
}  // namespace tidewarden::test
