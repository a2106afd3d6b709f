// Cases for the reminder list, read from tests/data/lists. The README there says how they are
// written.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "dates/civil.h"
#include "dates/date_text.h"

namespace tidewarden::test {

struct ExpectedRow {
  long line = 0;
  std::string text;
  bool operator==(const ExpectedRow&) const = default;
};

void PrintTo(const ExpectedRow& row, std::ostream* out);

struct StoredSetting {
  std::string section;
  std::string name;
  std::string value;
};

struct ListCase {
  std::string name;
  std::string testName;  // the name as letters, digits and "_", the file's name in front
  LocalTime now{MakeDate(2014, 12, 22), 14, 25, 0};
  std::string shortDate = "MM/dd/yyyy";
  std::vector<StoredSetting> settings;
  std::string file;
  std::vector<ExpectedRow> rows;
  bool ends = false;
  std::string label;      // empty when the case does not say
  std::string fileAfter;  // equal to `file` when nothing changes
};

void PrintTo(const ListCase& listCase, std::ostream* out);

// All cases of all files. Throws std::runtime_error, with file and line, for anything that is
// not written as it should be.
[[nodiscard]] const std::vector<ListCase>& AllListCases();

}  // namespace tidewarden::test
