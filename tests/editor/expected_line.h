// The line that an entry is to leave in the events file, worked out from the written rules and
// without the code under test.
#pragma once

#include <optional>
#include <string>

#include "dates/civil.h"
#include "dates/date_text.h"
#include "editor/event_entry.h"

namespace tidewarden::test {

// The line without its end, its occurs field in lower case, for an entry that has been accepted.
// Nothing when the date is no feast and not made of two or three plain numbers as its kind wants
// them.
[[nodiscard]] std::optional<std::string> ExpectedLine(const EntryRow& entry,
                                                      const RegionalDateFormat& format,
                                                      CivilDate today);

// A number as it is read from the start of a text; 0 without one.
[[nodiscard]] double NumberIn(const std::string& text);

}  // namespace tidewarden::test
