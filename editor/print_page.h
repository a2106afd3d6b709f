// The page that is printed: the rows of the events editor as an HTML 4.01 table, byte for byte.
//
// Ordinary events come first, under the names of their months when these are wanted, in the order
// of the rows; events of feasts and of days counted from Easter come after all others under one
// heading. A fixed pair of rows (a blank one and the heading) separates the parts.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings_store.h"
#include "dates/date_text.h"
#include "dates/regional_formats.h"
#include "editor/event_rows.h"

namespace tidewarden {

// The kinds of event that can be left out of the page, by the number in their setting.
enum class PrintedType {
  kYearly = 0,
  kQuarterly = 1,
  kMonthly = 2,
  kOneTime = 3,
  kEverySoManyDays = 4,
  kUntilDone = 5,
  kCounter = 6,       // days past and days to come
  kDayOfTheMonth = 7  // a weekday, the last weekday or the last day of a month; anything else
};
inline constexpr std::size_t kPrintedTypes = 8;

// The kind of an occurs field in any letter case.
[[nodiscard]] PrintedType PrintedTypeOf(std::string_view occurs);

// The user's wishes for the page.
struct PageOptions {
  bool hasBorder = false;
  double widthPercent = 90;  // 50 to 100
  bool hasMonthHeaders = true;
  std::string monthFont = "arial";
  std::string eventFont = "arial";
  std::array<bool, kPrintedTypes> isPrinted{true, true, true, true, true, true, true, true};
};

// Reads the settings of the section "Printing". A width that is no number from 50 to 100 is
// replaced by 90, which is stored.
[[nodiscard]] PageOptions ReadPageOptions(SettingsStore& settings);

// The page with CR LF line ends, in ISO-8859-1. Rows as in the editor's list; a row that holds
// "  <TODAY>" in any letter case is not printed. `names` gives the months' names.
[[nodiscard]] std::string PrintPage(const std::vector<EventRow>& rows,
                                    const RegionalDateFormat& format, const RegionalFormats& names,
                                    const PageOptions& options);

}  // namespace tidewarden
