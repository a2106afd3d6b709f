// Entries that the editor refuses and entries that it saves, with the exact texts of the messages;
// typed on 22 December 2014.
#pragma once

#include <string>
#include <vector>

#include "dates/date_text.h"
#include "editor/event_entry.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline const std::string kNoTitle =
    "You need to enter a title for the event before you can save it.";
inline const std::string kCommas =
    "Tidewarden's file format uses commas to separate the fields.\n"
    "Because of this, you cannot use commas in your Event Titles.\n"
    "\n"
    "Would you like to have the commas in your Event Title removed automatically?";
inline const std::string kAdvance =
    "Please pick an advance notice for this event from 0 - 365 days.\n"
    "\n"
    "(Zero will only show on the day of, 365 will show all year long.)";
inline const std::string kCount =
    "For an event that occurs \"every -\" so many days, please pick a value from \"every 1 day\" "
    "to \"every 199 days.\"";
inline const std::string kMonth = "You need to enter a proper month for this event.";
inline const std::string kDay = "You need to enter a proper day for this event.";
inline const std::string kShortMonths =
    "NOTE: A monthly event with a day higher than 28 won't occur every month,\n"
    "there is a \"Last Day\" occurrence you can use, however.";
inline const std::string kLeapDay =
    "This event will only occur on leap years.\n"
    "\n"
    "You can also create a \"Las Day\" occurrence for Feb\n"
    "which will give you a Feb 29 event on leap years\n"
    "and a Feb 28 event on non-leap years.\n"
    "\n"
    "Click OK to continue creating this event or click Cancel to cancel.";

inline std::string OneSeparator(const std::string& what) {
  return "Please use a single separator like . - or / to separate the " + what + " of this event.";
}
inline std::string TwoSeparators(const std::string& pattern) {
  return "Please use two separators like . - or / to provide a valid " + pattern +
         " for this event.";
}
inline std::string BadMonth(const std::string& pattern) {
  return "Invalid Month Entered.\n\nMonths can only range from 1 to 12.\n\n"
         "Please enter a valid month using " +
         pattern + " format.";
}
inline std::string BadDay(const std::string& detail, const std::string& pattern) {
  return "Invalid Day Entered.\n\n" + detail + "\n\nPlease enter a valid day using " + pattern +
         " format.";
}
inline std::string BadPastYear(const std::string& pattern) {
  return "Invalid Year Entered.\n\nFor a forward count from a past date,\n"
         "you must enter a year between 0 and the current year.\n\n"
         "Please enter a valid year using " +
         pattern + " format.";
}
inline std::string BadFutureYear(const std::string& pattern) {
  return "Invalid Year Entered.\n\nFor a countdown to a future date,\n"
         "you must enter the current year or a future year.\n\n"
         "Please enter a valid year using " +
         pattern + " format.";
}

// An entry that is refused: its message, and where the focus goes.
struct Refusal {
  std::string name;
  RegionalDateFormat format;
  int kind;
  std::string date;
  std::string message;
  EditorFocus focus = EditorFocus::kNone;
  std::string title = "Bob";
  std::string advance = "7";
  std::string count = "14";
};

inline std::vector<Refusal> Refusals() {
  const auto none = EditorFocus::kNone;
  const auto dateBox = EditorFocus::kDateInput;
  const std::string least = "A value of at least 1 must be entered for your day.";
  return {
      {"no title", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, ""},
      {"blanks", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, "   "},
      {"line ends", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, "\r\n"},
      {"366", MonthFirst(), 0, "12.25", kAdvance, EditorFocus::kAdvanceInput, "Bob", "366"},
      {"-1", MonthFirst(), 0, "12.25", kAdvance, EditorFocus::kAdvanceInput, "Bob", "-1"},
      {"count 0", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "0"},
      {"count 200", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "200"},
      {"count words", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "abc"},
      {"count small", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", ".9"},
      {"month 0", MonthFirst(), 8, "0", kMonth},
      {"month 13", MonthFirst(), 8, "13", kMonth},
      {"month none", DayFirst(), 43, "", kMonth},
      {"month name", DayFirst(), 43, "de", kMonth},
      {"day 0", MonthFirst(), 2, "0", kDay},
      {"day 32", MonthFirst(), 2, "32", kDay},
      {"day xx", DayFirst(), 2, "xx", kDay},
      {"separator", MonthFirst(), 0, "1225", OneSeparator("month from the day"), dateBox},
      {"separator day", DayFirst(), 0, "2512", OneSeparator("day from the month"), dateBox},
      {"separator year", YearFirst(), 0, "2512", OneSeparator("day from the month"), dateBox},
      {"blank", MonthFirst(), 0, "15 03", OneSeparator("month from the day"), dateBox},
      {"month name", MonthFirst(), 0, "dec31", OneSeparator("month from the day"), dateBox},
      {"short offset", MonthFirst(), 0, "e+39", OneSeparator("month from the day"), dateBox},
      {"comma offset", MonthFirst(), 0, "e+5,1", OneSeparator("month from the day"), dateBox},
      {"offset and xx", MonthFirst(), 0, "e+1xx", OneSeparator("month from the day"), dateBox},
      {"half an offset", MonthFirst(), 0, "e+0.5", BadMonth("mm/dd")},
      {"back and xx", MonthFirst(), 3, "e-1xx", BadMonth("mm/dd")},
      {"past 1", MonthFirst(), 6, "12.25", TwoSeparators("mm/dd/yyyy"), dateBox},
      {"past 3", DayFirst(), 6, "1.1.20.14", TwoSeparators("dd.mm.yyyy"), dateBox},
      {"future 1", YearFirst(), 7, "12-25", TwoSeparators("yyyy-mm-dd"), dateBox},
      {"future two digits", TwoDigitYearFirst(), 7, "12", TwoSeparators("yy/mm/dd"), dateBox},
      {"month 13 date", MonthFirst(), 0, "13.01", BadMonth("mm/dd")},
      {"month 0 date", DayFirst(), 0, "01.0", BadMonth("dd.mm")},
      {"month 0 year", YearFirst(), 0, "01.13", BadMonth("dd-mm")},
      {"xx date", DayFirst(), 0, "xx.xx", BadMonth("dd.mm")},
      {"three short parts", MonthFirst(), 6, "1.1.5", BadMonth("mm/dd")},
      {"day 0 date", MonthFirst(), 0, "1.0", BadDay(least, "mm/dd")},
      {"day none", MonthFirst(), 0, "1.", BadDay(least, "mm/dd")},
      {"Jan 32", MonthFirst(), 0, "1.32", BadDay("Jan only has 31 days.", "mm/dd")},
      {"Apr 31", MonthFirst(), 0, "4/31", BadDay("Apr only has 30 days.", "mm/dd")},
      {"Feb 30", DayFirst(), 0, "30.02", BadDay("Feb only has 28 days.", "dd.mm")},
      {"Nov 31", YearFirst(), 0, "31.11", BadDay("Nov only has 30 days.", "dd-mm")},
      {"past next year", MonthFirst(), 6, "1/1/2015", BadPastYear("mm/dd/yyyy")},
      {"past no year", DayFirst(), 6, "26.01.x", BadPastYear("dd.mm.yyyy")},
      {"past five digits", DayFirst(), 6, "1.01.20140", BadPastYear("dd.mm.yyyy")},
      {"past feast", DayFirst(), 6, "_estr", BadPastYear("dd.mm.yyyy")},
      {"future last year", MonthFirst(), 7, "12.31.2013", BadFutureYear("mm/dd/yyyy")},
      {"future two-digit", YearFirst(), 7, "88.12.31", BadFutureYear("yyyy-mm-dd")},
      {"future feast", TwoDigitYearFirst(), 7, "_rosh", BadFutureYear("yy/mm/dd")},
  };
}

// An entry that is saved, and its line in the file.
struct Accepted {
  RegionalDateFormat format;
  int kind;
  std::string date;
  std::string line;
  std::string title = "Bob";
  std::string advance = "7";
  std::string count = "14";
  std::vector<std::string> messages{};
};

inline std::vector<Accepted> AcceptedEntries() {
  return {{MonthFirst(), 0, "12.25", "12.25,Bob,365,yearly", "Bob", "365"},
          {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", "0"},
          {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", "abc"},
          {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", ""},
          {MonthFirst(), 0, "12.25", "12.25,Bob,3,yearly", "Bob", "3.7"},
          {MonthFirst(), 0, "1.5", "01.05,Bob,7,yearly"},
          {MonthFirst(), 1, "1/5", "01.05,Bob,7,quarter"},
          {DayFirst(), 0, "15/03", "03.15,Bob,7,yearly"},
          {DayFirst(), 0, "15-03", "03.15,Bob,7,yearly"},
          {DayFirst(), 0, "26.01", "01.26,Bob,7,yearly"},
          {YearFirst(), 0, "26-01", "01.26,Bob,7,yearly"},
          {MonthFirst(), 0, "_estr", "_estr,Bob,7,yearly"},
          {DayFirst(), 0, "E-046", "E-046,Bob,7,yearly"},
          {MonthFirst(), 0, "e+365", "e+365,Bob,7,yearly"},
          {YearFirst(), 0, "e-001", "e-001,Bob,7,yearly"},
          {MonthFirst(), 0, "Eastr", "Eastr,Bob,7,yearly"},
          {DayFirst(), 0, "_VICT", "_VICT,Bob,7,yearly"},
          {MonthFirst(), 0, "_rosh", "_rosh,Bob,7,yearly"},
          {MonthFirst(), 2, "31", "xx.31,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
          {MonthFirst(), 2, "30", "xx.30,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
          {DayFirst(), 2, "30", "xx.30,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
          {MonthFirst(), 2, "29", "xx.29,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
          {YearFirst(), 2, "28", "xx.28,Bob,7,monthly"},
          {DayFirst(), 2, "1", "xx.01,Bob,7,monthly"},
          {MonthFirst(), 23, "1", "01.xx,Bob,7,3rd mon"},
          {DayFirst(), 43, "12", "12.xx,Bob,7,las day"},
          {MonthFirst(), 36, "xx", "xx.xx,Bob,7,las sun"},
          {DayFirst(), 36, "XX", "xx.xx,Bob,7,las sun"},
          // 22 December 2014: a day that has passed belongs to the next year.
          {MonthFirst(), 3, "12.21", "12.21,Bob,7,one2015"},
          {MonthFirst(), 3, "12.22", "12.22,Bob,7,one2014"},
          {DayFirst(), 5, "21.12", "12.21,Bob,7,tdo2015"},
          {MonthFirst(), 3, "_estr", "_estr,Bob,7,one2015"},
          {MonthFirst(), 4, "12.31", "12.31,Bob,7,99-2014", "Bob", "7", "99"},
          {MonthFirst(), 4, "12.31", "12.31,Bob,7,07-2014", "Bob", "7", "7"},
          {MonthFirst(), 4, "12.31", "12.31,Bob,7,01-2014", "Bob", "7", "1.5"},
          {MonthFirst(), 4, "12.31", "12.31,Bob,7,00~2014", "Bob", "7", "100"},
          {MonthFirst(), 4, "12.31", "12.31,Bob,7,99~2014", "Bob", "7", "199"},
          {MonthFirst(), 3, "2.29", "02.29,Bob,7,one2016", "Bob", "7", "", {kLeapDay}},
          {MonthFirst(), 0, "2.29", "02.29,Bob,7,yearly", "Bob", "7", "", {kLeapDay}},
          {DayFirst(), 0, "29.02", "02.29,Bob,7,yearly", "Bob", "7", "", {kLeapDay}},
          {YearFirst(), 0, "29-02", "02.29,Bob,7,yearly", "Bob", "7", "", {kLeapDay}},
          {MonthFirst(), 6, "1/26/1788", "01.26,Bob,0,dp-1788"},
          {DayFirst(), 6, "26.01.88", "01.26,Bob,0,dp-1988"},
          {DayFirst(), 6, "26.01.0000", "01.26,Bob,0,dp-0000"},
          {DayFirst(), 6, "26.01.00", "01.26,Bob,0,dp-2000"},
          {YearFirst(), 6, "2010-03-05", "03.05,Bob,0,dp-2010"},
          {MonthFirst(), 6, "12.31.2014", "12.31,Bob,0,dp-2014"},
          {MonthFirst(), 7, "1.1.2014", "01.01,Bob,0,df-2014"},
          {TwoDigitYearFirst(), 7, "20/12/31", "12.31,Bob,0,df-2020"},
          {MonthFirst(), 0, "12.25", "12.25,A B,7,yearly", "A\nB"},
          {MonthFirst(), 0, "12.25", "12.25,<TODAY>,7,yearly", " <TODAY> "},
          {MonthFirst(), 0, "12.25.2014", "12.25,Bob,7,yearly"},
          {LayoutOf("dd MM yyyy"), 0, "25.12", "12.25,Bob,7,yearly"}};
}

// What the file holds after the entry, with the names of weekday kinds in small letters: a new item
// keeps its capitals until the next save.
inline std::string WithSmallKinds(std::string file, int kind) {
  for (const std::string word : {"Mon", "Sun", "Las", "Day"}) {
    if (kind < 8) break;
    for (auto at = file.find(word); at != std::string::npos; at = file.find(word)) {
      file[at] = static_cast<char>(file[at] - 'A' + 'a');
    }
  }
  return file;
}

}  // namespace tidewarden::test
