#include "tests/reminder/list_case.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>

#include "dates/regional_text.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

int HexValue(char digit) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::size_t value = kDigits.find(digit);
  if (value == std::string_view::npos) throw std::runtime_error("not a hexadecimal digit");
  return static_cast<int>(value);
}

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out.push_back(text[i]);
      continue;
    }
    if (++i == text.size()) throw std::runtime_error("a backslash at the end");
    switch (text[i]) {
      case 'r':
        out.push_back('\r');
        break;
      case 'n':
        out.push_back('\n');
        break;
      case 't':
        out.push_back('\t');
        break;
      case '0':
        out.push_back('\0');
        break;
      case '\\':
        out.push_back('\\');
        break;
      case 'x':
        if (i + 2 >= text.size()) throw std::runtime_error("\\x without two digits");
        out.push_back(static_cast<char>(16 * HexValue(text[i + 1]) + HexValue(text[i + 2])));
        i += 2;
        break;
      default:
        throw std::runtime_error("an unknown escape");
    }
  }
  return out;
}

// Cuts "a" off "a b"; the rest is what follows the first `separator`.
std::string_view TakeWord(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

std::string TestName(const std::string& file, const std::string& name) {
  std::string out = file + "_";
  for (const char c : name) {
    out.push_back(std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_');
  }
  return out;
}

// Takes the lines of one file and gives its cases.
class CaseReader {
 public:
  explicit CaseReader(std::string fileName) : fileName_(std::move(fileName)) {}

  void Take(std::string_view line) {
    if (line.empty() || line.starts_with('#')) return;
    const std::string_view word = TakeWord(line, ' ');
    if (word == "case") {
      Finish();
      current_ = common_;
      current_->name = line;
      current_->testName = TestName(fileName_, current_->name);
      hasAfter_ = saysRows_ = false;
      return;
    }
    ListCase& target = current_ ? *current_ : common_;
    if (word == "today") {
      SetNow(target, line);
    } else if (word == "short-date") {
      target.shortDate = line;
    } else if (word == "set") {
      const std::string section(TakeWord(line, '/'));
      const std::string name(TakeWord(line, '='));
      // A case may say otherwise than what stands above all cases.
      std::erase_if(target.settings, [&](const StoredSetting& setting) {
        return setting.section == section && setting.name == name;
      });
      target.settings.push_back({section, name, Unescaped(line)});
    } else if (current_) {
      TakeContent(word, line);
    } else {
      throw std::runtime_error("this belongs into a case");
    }
  }

  // Ends the last case.
  std::vector<ListCase> TakeCases() {
    Finish();
    return std::move(cases_);
  }

 private:
  static void SetNow(ListCase& target, std::string_view text) {
    const auto date = ReadIsoDate(TakeWord(text, ' '));
    const auto time = ReadClockTime(text);
    if (!date || !time) throw std::runtime_error("not a date and a time");
    target.now = {*date, *time / 100, *time % 100, 0};
  }

  void TakeContent(std::string_view word, std::string_view text) {
    if (word == "line") {
      current_->file += Unescaped(text) + "\n";
    } else if (word == "bytes") {
      current_->file += Unescaped(text);
    } else if (word == "row") {
      saysRows_ = true;
      const std::string number(TakeWord(text, ' '));
      current_->rows.push_back({std::stol(number), Unescaped(text)});
    } else if (word == "no" && text == "rows") {
      saysRows_ = true;
    } else if (word == "ends") {
      saysRows_ = current_->ends = true;
    } else if (word == "label") {
      current_->label = text;
    } else if (word == "after") {
      hasAfter_ = true;
      current_->fileAfter += Unescaped(text) + "\r\n";
    } else if (word == "after-bytes") {
      hasAfter_ = true;
      current_->fileAfter += Unescaped(text);
    } else if (word == "after-empty") {
      hasAfter_ = true;
    } else {
      throw std::runtime_error("an unknown word");
    }
  }

  void Finish() {
    if (!current_) return;
    if (!saysRows_) throw std::runtime_error("the case before expects nothing");
    if (!hasAfter_) current_->fileAfter = current_->file;
    cases_.push_back(*std::move(current_));
    current_.reset();
  }

  std::string fileName_;
  ListCase common_;
  std::optional<ListCase> current_;
  bool hasAfter_ = false;
  bool saysRows_ = false;
  std::vector<ListCase> cases_;
};

std::vector<ListCase> ReadCases(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error(path.string() + " cannot be read");
  std::string fileName = path.stem().string();
  std::replace(fileName.begin(), fileName.end(), '-', '_');
  CaseReader reader(fileName);
  std::string line;
  int number = 0;
  try {
    while (std::getline(in, line)) {
      ++number;
      reader.Take(line);
    }
    return reader.TakeCases();
  } catch (const std::exception& error) {
    throw std::runtime_error(path.string() + ":" + std::to_string(number) + ": " + error.what());
  }
}

std::vector<ListCase> ReadAllCases() {
  std::set<std::filesystem::path> paths;
  for (const auto& entry :
       std::filesystem::directory_iterator(SourceFolder() / "tests/data/lists")) {
    if (entry.path().extension() == ".txt") paths.insert(entry.path());
  }
  std::vector<ListCase> all;
  for (const auto& path : paths) {
    for (ListCase& listCase : ReadCases(path)) all.push_back(std::move(listCase));
  }
  return all;
}

}  // namespace

void PrintTo(const ExpectedRow& row, std::ostream* out) {
  *out << row.line << " \"" << row.text << "\"";
}

void PrintTo(const ListCase& listCase, std::ostream* out) {
  *out << listCase.name;
}

const std::vector<ListCase>& AllListCases() {
  static const std::vector<ListCase> cases = ReadAllCases();
  return cases;
}

}  // namespace tidewarden::test
