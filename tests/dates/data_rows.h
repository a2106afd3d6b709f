// Tables of cases from tests/data, and the texts in them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dates/civil.h"

namespace tidewarden::test {

struct DataRow {
  int line = 0;                      // in the file, for messages
  std::vector<std::string> columns;  // without the blanks around them
};

// Reads a table: one case a line, columns between "|", "#" begins a comment line. Throws when the
// file is missing or a row has another number of columns.
[[nodiscard]] std::vector<DataRow> ReadDataRows(const std::string& fileName, std::size_t columns);

// "YYYY-MM-DD", with a "-" in front for the years before 0. Throws for anything else.
[[nodiscard]] CivilDate DateOf(std::string_view text);

// The same text of a date, real or not.
[[nodiscard]] std::string TextOf(CivilDate date);

// A number with leading zeros, made without the engine.
[[nodiscard]] std::string Padded(int number, int width);

}  // namespace tidewarden::test
