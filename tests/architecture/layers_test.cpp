// Reads the includes of every source file and holds them against the table of layers that
// docs/architecture.md shows to readers.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/source_folder.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;

// Who may include whom, besides itself. The windows (frm_*) are a layer of their own although they
// lie in the engine's folders.
const std::map<std::string, std::set<std::string>> kMayUse = {
    {"dates", {}},
    {"core", {"dates"}},
    {"alarm", {"core", "dates"}},
    {"editor", {"core", "dates"}},
    {"guide", {"dates"}},
    {"reminder", {"alarm", "core", "dates"}},
    {"platform/memory", {"alarm", "core", "dates", "editor", "reminder"}},
    {"platform/posix", {"alarm", "core", "dates", "editor", "platform", "reminder"}},
    {"platform/qt", {"alarm", "core", "dates", "editor", "reminder"}},
    {"platform/sdl", {"alarm", "core", "dates", "editor", "reminder"}},
    {"platform/windows", {"alarm", "core", "dates", "editor", "platform", "reminder"}},
    {"platform", {"alarm", "core", "dates", "editor", "reminder"}},
    {"windows", {"alarm", "core", "dates", "editor", "guide", "reminder"}},
    {"customizer", {"alarm", "core", "dates", "reminder"}},
    {"customizer/frm_*", {"alarm", "core", "customizer", "dates", "reminder", "windows"}},
    {"customizer/main.cpp",
     {"alarm", "app", "core", "customizer", "customizer/frm_*", "dates", "generated", "platform",
      "platform/memory", "platform/qt", "platform/sdl", "reminder"}},
    {"app",
     {"alarm", "core", "dates", "editor", "generated", "platform", "platform/memory", "platform/qt",
      "platform/sdl", "platform/windows", "reminder", "windows"}},
    {"cli",
     {"alarm", "core", "dates", "editor", "generated", "libraries", "platform", "platform/memory",
      "reminder"}},
    {"twdocs",
     {"app", "core", "dates", "generated", "guide", "platform", "platform/qt", "windows"}},
};

const std::set<std::string> kEngine = {"dates", "core", "reminder", "editor", "alarm", "guide"};

// Held to the standard library as the engine is.
const std::set<std::string> kPlain = {"dates", "core",  "reminder",  "editor",
                                      "alarm", "guide", "customizer"};

// Headers of the C++20 standard library that the engine uses. Naming them keeps system headers
// out even where these have harmless names.
const std::set<std::string> kStandardHeaders = {
    "algorithm",  "array",         "bit",           "charconv", "chrono",  "cmath",
    "compare",    "cstddef",       "cstdint",       "cstdlib",  "cstring", "deque",
    "functional", "limits",        "map",           "memory",   "new",     "numeric",
    "optional",   "random",        "set",           "span",     "string",  "string_view",
    "tuple",      "unordered_map", "unordered_set", "utility",  "variant", "vector"};

struct Include {
  std::string name;
  bool quoted = false;
};

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

std::vector<Include> IncludesOf(const std::string& text) {
  static const std::regex pattern(R"re(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"])re",
                                  std::regex::multiline);
  std::vector<Include> includes;
  for (auto it = std::sregex_iterator(text.begin(), text.end(), pattern);
       it != std::sregex_iterator(); ++it) {
    includes.push_back({(*it)[2].str(), (*it)[1].str() == "\""});
  }
  return includes;
}

bool IsWindowFile(const std::string& path) {
  return fs::path(path).filename().string().starts_with("frm_");
}

// The layer of a file, by its path from the root; empty for a file outside every layer.
std::string LayerOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().generic_string();
  if (kEngine.contains(folder)) return IsWindowFile(path) ? "windows" : folder;
  if (folder == "customizer" && IsWindowFile(path)) return "customizer/frm_*";
  if (kMayUse.contains(path)) return path;
  return kMayUse.contains(folder) ? folder : "";
}

std::vector<fs::path> SourceFiles() {
  std::vector<fs::path> files;
  for (const char* const top : {"dates", "core", "reminder", "editor", "alarm", "guide", "platform",
                                "customizer", "app", "cli", "twdocs"}) {
    if (!fs::exists(test::SourceFolder() / top)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(test::SourceFolder() / top)) {
      const std::string extension = entry.path().extension().string();
      if (extension == ".cpp" || extension == ".h") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string Relative(const fs::path& path) {
  return path.lexically_relative(test::SourceFolder()).generic_string();
}

// Why an include is not allowed; empty when it is.
std::string Fault(const std::string& file, const Include& include) {
  const std::string layer = LayerOf(file);
  if (layer.empty()) return "the file lies in no layer";
  if (!include.quoted) {
    if (!kPlain.contains(layer) || kStandardHeaders.contains(include.name)) return "";
    return layer + " uses the standard library only";
  }
  if (include.name == "tidewarden_version.h") {
    return kMayUse.at(layer).contains("generated") ? "" : "only the programs know their version";
  }
  const std::string target = LayerOf(include.name);
  if (target.empty()) return "the included file lies in no layer";
  if (target == layer || kMayUse.at(layer).contains(target)) return "";
  return layer + " may not use " + target;
}

TEST(Layers, EveryIncludeIsAllowed) {
  const std::vector<fs::path> files = SourceFiles();
  ASSERT_GT(files.size(), 40U);
  for (const fs::path& file : files) {
    for (const Include& include : IncludesOf(ReadAll(file))) {
      const std::string name = Relative(file);
      EXPECT_EQ(Fault(name, include), "") << name << " includes " << include.name;
    }
  }
}

TEST(Layers, AForbiddenIncludeIsNoticed) {
  EXPECT_NE(Fault("dates/text.cpp", {"core/status.h", true}), "");
  EXPECT_NE(Fault("core/status.cpp", {"reminder/reminder_list.h", true}), "");
  EXPECT_NE(Fault("alarm/alarm_schedule.cpp", {"reminder/reminder_list.h", true}), "");
  EXPECT_NE(Fault("reminder/list_builder.cpp", {"reminder/frm_reminder.h", true}), "");
  EXPECT_NE(Fault("reminder/frm_reminder.cpp", {"platform/system.h", true}), "");
  EXPECT_NE(Fault("core/events_file.cpp", {"QString", false}), "");
  EXPECT_NE(Fault("core/events_file.cpp", {"unistd.h", false}), "");
  EXPECT_NE(Fault("core/events_file.cpp", {"ctime", false}), "");
  EXPECT_NE(Fault("core/somewhere/else.cpp", {"string", false}), "");
  EXPECT_NE(Fault("guide/guide.cpp", {"QString", false}), "");
  EXPECT_NE(Fault("guide/guide.cpp", {"guide/frm_docs.h", true}), "");
  EXPECT_NE(Fault("reminder/list_builder.cpp", {"guide/guide.h", true}), "");
  EXPECT_NE(Fault("guide/frm_docs.cpp", {"twdocs/shipped_guide.h", true}), "");
  EXPECT_EQ(Fault("twdocs/main.cpp", {"guide/frm_docs.h", true}), "");
  EXPECT_NE(Fault("reminder/frm_reminder.cpp", {"customizer/options.h", true}), "");
  EXPECT_NE(Fault("customizer/options_session.cpp", {"customizer/frm_customizer.h", true}), "");
  EXPECT_NE(Fault("customizer/options_session.cpp", {"QString", false}), "");
  EXPECT_NE(Fault("customizer/frm_customizer.cpp", {"platform/system.h", true}), "");
  EXPECT_NE(Fault("app/desktop.cpp", {"customizer/options_session.h", true}), "");
  EXPECT_EQ(Fault("customizer/main.cpp", {"platform/system.h", true}), "");
  EXPECT_EQ(Fault("customizer/frm_customizer.cpp", {"reminder/frm_reminder_look.h", true}), "");
  EXPECT_EQ(Fault("cli/main.cpp", {"reminder/list_builder.h", true}), "");
  EXPECT_EQ(Fault("reminder/frm_reminder.cpp", {"QLabel", false}), "");
}

TEST(Layers, TheEngineAsksNoSystemAndNoClock) {
  static const std::regex forbidden(
      R"re(#\s*if(def)?.*(_WIN32|__linux__|__unix__|__APPLE__)|system_clock::now|steady_clock::now|\btime\(nullptr\)|\blocaltime|\bgetenv\()re");
  for (const fs::path& file : SourceFiles()) {
    const std::string name = Relative(file);
    if (!kPlain.contains(LayerOf(name))) continue;
    const std::string text = ReadAll(file);
    std::smatch match;
    EXPECT_FALSE(std::regex_search(text, match, forbidden)) << name << ": " << match.str();
  }
}

TEST(Layers, TheDocumentShowsEveryLayer) {
  const std::string document = ReadAll(test::SourceFolder() / "docs" / "architecture.md");
  ASSERT_FALSE(document.empty());
  for (const auto& [layer, mayUse] : kMayUse) {
    const bool isFolder = layer.find_first_of(".*") == std::string::npos;
    const std::string shown = layer == "windows" ? "frm_*" : isFolder ? layer + "/" : layer;
    EXPECT_NE(document.find("`" + shown + "`"), std::string::npos) << layer;
  }
}

}  // namespace
}  // namespace tidewarden
