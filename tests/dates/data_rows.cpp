#include "tests/dates/data_rows.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

std::string WithoutBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \r") - first + 1);
}

}  // namespace

std::vector<DataRow> ReadDataRows(const std::string& fileName, std::size_t columns) {
  const std::string path = (SourceFolder() / "tests/data" / fileName).string();
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::vector<DataRow> rows;
  std::string text;
  for (int line = 1; std::getline(file, text); ++line) {
    if (WithoutBlanks(text).empty() || text[0] == '#') continue;
    DataRow row{line, {}};
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, '|');) {
      row.columns.push_back(WithoutBlanks(part));
    }
    if (row.columns.size() != columns) {
      throw std::runtime_error(path + ": line " + std::to_string(line) + " has " +
                               std::to_string(row.columns.size()) + " columns");
    }
    rows.push_back(row);
  }
  return rows;
}

CivilDate DateOf(std::string_view text) {
  int year = 0;
  int month = 0;
  int day = 0;
  if (std::sscanf(std::string(text).c_str(), "%d-%2d-%2d", &year, &month, &day) != 3) {
    throw std::invalid_argument("no date: " + std::string(text));
  }
  return CivilDate{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                   std::chrono::day{static_cast<unsigned>(day)}};
}

std::string TextOf(CivilDate date) {
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", YearOf(date), MonthOf(date), DayOf(date));
  return text;
}

std::string Padded(int number, int width) {
  char text[40];
  std::snprintf(text, sizeof text, "%0*d", width, number);
  return text;
}

}  // namespace tidewarden::test
