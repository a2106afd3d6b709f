// The text form of the settings file: any file, one value set and removed again. The input is the
// section's number, the name, the value and the file's text, separated by the byte 0x1F.
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/ini_settings_store.h"
#include "dates/text.h"
#include "fuzz/check.h"

namespace tidewarden::fuzz {
namespace {

constexpr std::string_view kSections[] = {"Alarm",    "Customizer", "Edit",
                                          "Printing", "Settings",   "Options"};

std::string_view TakePart(std::string_view& input) {
  const std::size_t end = input.find('\x1F');
  const std::string_view part = input.substr(0, end);
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return part;
}

std::string OneLine(std::string_view value) {
  std::string out(value);
  for (char& c : out) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  return out;
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// Everything before the first "=" of each line, as names that may be there.
std::vector<std::string> CandidateNames(std::string_view text) {
  std::vector<std::string> names;
  for (const std::string& line : LinesOf(text)) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos && names.size() < 50) names.push_back(line.substr(0, equals));
  }
  return names;
}

std::map<std::pair<std::string, std::string>, std::string> ValuesOf(
    std::string_view text, const std::vector<std::string>& names) {
  std::map<std::pair<std::string, std::string>, std::string> values;
  for (const std::string_view section : kSections) {
    for (const std::string& name : names) {
      const auto value = ini::FindValue(text, section, name);
      if (value) values[{std::string(section), ToLower(name)}] = *value;
    }
  }
  return values;
}

// True when every line of `part` stands in `whole`, in the same order.
bool AreAmong(const std::vector<std::string>& part, const std::vector<std::string>& whole) {
  std::size_t at = 0;
  for (const std::string& line : whole) {
    if (at < part.size() && part[at] == line) ++at;
  }
  return at == part.size();
}

void CheckChange(std::string_view text, std::string_view section, std::string_view name,
                 std::string_view value) {
  const std::string with = ini::WithValue(text, section, name, value);
  FUZZ_CHECK(ini::FindValue(with, section, name) == OneLine(value));
  FUZZ_CHECK(ini::WithValue(with, section, name, value) == with);

  // Every other value is as it was.
  std::vector<std::string> names = CandidateNames(text);
  std::erase_if(names, [&](const std::string& n) { return !IsAscii(n); });
  auto before = ValuesOf(text, names);
  auto after = ValuesOf(with, names);
  before.erase({std::string(section), ToLower(name)});
  after.erase({std::string(section), ToLower(name)});
  FUZZ_CHECK(before == after);

  const std::string without = ini::WithoutValue(with, section, name);
  FUZZ_CHECK(!ini::FindValue(without, section, name));
  FUZZ_CHECK(AreAmong(LinesOf(without), LinesOf(with)));
  FUZZ_CHECK(ini::WithoutValue(without, section, name) == without);
  if (!ini::FindValue(text, section, name)) {
    // Nothing is taken from a file that did not hold the name.
    FUZZ_CHECK(ini::WithoutValue(text, section, name) == text);
    FUZZ_CHECK(AreAmong(LinesOf(text), LinesOf(with)));
  }
}

}  // namespace
}  // namespace tidewarden::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidewarden;
  std::string_view input = fuzz::TextOf(data, size);
  const std::string_view section = fuzz::kSections[fuzz::TakeByte(input) % 6];
  fuzz::TakePart(input);
  const std::string_view name = fuzz::TakePart(input);
  const std::string_view value = fuzz::TakePart(input);
  if (ini::IsStorableName(name)) fuzz::CheckChange(input, section, name, value);
  return 0;
}
