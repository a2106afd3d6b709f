#include "tests/editor/page_cases.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "dates/regional_text.h"
#include "editor/edit_session.h"
#include "editor/print_page.h"
#include "tests/support/layouts.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

std::string BytesOfPage(const std::string& name) {
  std::ifstream in(SourceFolder() / "tests/data/pages" / name, std::ios::binary);
  if (!in) throw std::runtime_error("no file " + name);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

MemorySettingsStore::Entry EntryOf(const std::string& text) {
  const std::size_t slash = text.find('/');
  const std::size_t equals = text.find('=', slash);
  if (equals == std::string::npos) throw std::runtime_error("no setting: " + text);
  return {text.substr(0, slash), text.substr(slash + 1, equals - slash - 1),
          text.substr(equals + 1)};
}

}  // namespace

std::vector<PageCase> PageCases() {
  std::vector<PageCase> cases;
  std::istringstream in(BytesOfPage("cases.txt"));
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t blank = line.find(' ');
    const std::string word = line.substr(0, blank);
    const std::string text = line.substr(blank + 1);
    if (word == "case") {
      cases.emplace_back();
      cases.back().name = text;
      cases.back().page = BytesOfPage(text + ".htm");
    } else if (word == "short-date") {
      cases.back().shortDate = text;
    } else if (word == "set") {
      cases.back().settings.push_back(EntryOf(text));
    } else if (word == "line") {
      cases.back().events += text + "\r\n";
    } else {
      throw std::runtime_error("unknown: " + line);
    }
  }
  return cases;
}

std::string PageOf(const PageCase& c, MemorySettingsStore& settings) {
  for (const auto& entry : c.settings) {
    static_cast<void>(settings.Write(entry.section, entry.name, entry.value).ok());
  }
  const RegionalDateFormat format = LayoutOf(c.shortDate);
  MemoryFileSystem files;
  files.files["/dates.txt"] = c.events;
  const MemoryClock clock;
  MemoryMessageBox messages;
  EditSession session({settings, files, clock, messages}, {}, format, {"/dates.txt", "/rescue"});
  static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
  session.Shown();
  return PrintPage(session.List1(), format, PatternRegionalFormats(c.shortDate),
                   ReadPageOptions(settings));
}

std::string PageOf(const PageCase& c) {
  MemorySettingsStore settings;
  return PageOf(c, settings);
}

}  // namespace tidewarden::test
