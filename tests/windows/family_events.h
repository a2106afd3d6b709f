// The events of a family: what is typed, the line that it makes, and a calendar of 2015 that was
// made by hand.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>
#include <vector>

#include "dates/civil.h"
#include "editor/occurrence_codes.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline constexpr int kEveryWeekday = -1;  // the day of an event of a weekday kind
inline constexpr int kNoObservance = -1;

struct FamilyEvent {
  const char* title;  // as typed, or as the observance gives it
  const char* key;    // by which it is found in a list
  int kind = kYearlyKind;
  int month = 0;
  int day = 0;
  int year = 0;  // of counters
  const char* advance = "";
  const char* count = "";
  int observance = kNoObservance;
  std::vector<CivilDate> dates = {};  // in 2015; none for counters, which are always listed
  const char* line = "";              // in the file, its code in lower case
};

inline std::vector<CivilDate> Monthly(int day) {
  std::vector<CivilDate> dates;
  for (int month = 1; month <= 12; ++month) dates.push_back(On(2015, month, day));
  return dates;
}

inline std::vector<CivilDate> LastDays() {
  std::vector<CivilDate> dates;
  for (const auto& [month, day] : {std::pair(1, 31),
                                   {2, 28},
                                   {3, 31},
                                   {4, 30},
                                   {5, 31},
                                   {6, 30},
                                   {7, 31},
                                   {8, 31},
                                   {9, 30},
                                   {10, 31},
                                   {11, 30},
                                   {12, 31}}) {
    dates.push_back(On(2015, month, day));
  }
  return dates;
}

inline std::vector<CivilDate> EveryTwoWeeks() {
  std::vector<CivilDate> dates;
  for (DayCount day{On(2015, 1, 5)}; CivilDate{day}.year() < std::chrono::year{2016};
       day += std::chrono::days{14}) {
    dates.push_back(CivilDate{day});
  }
  return dates;
}

// In the order of the file.
inline const std::vector<FamilyEvent>& Family() {
  static const std::vector<FamilyEvent> events{
      {.title = "Easter Sunday",
       .key = "EASTER",
       .advance = "10",
       .observance = 40,
       .dates = {On(2015, 4, 5)},
       .line = "_estr,Easter Sunday,10,yearly"},
      {.title = "Bins",
       .key = "BINS",
       .kind = kEveryKind,
       .month = 1,
       .day = 5,
       .advance = "1",
       .count = "14",
       .dates = EveryTwoWeeks(),
       .line = "01.05,Bins,1,14-2015"},
      {.title = "Water bill",
       .key = "WATER",
       .kind = 1,
       .month = 2,
       .day = 10,
       .advance = "5",
       .dates = {On(2015, 2, 10), On(2015, 5, 10), On(2015, 8, 10), On(2015, 11, 10)},
       .line = "02.10,Water bill,5,quarter"},
      {.title = "Mum's birthday",
       .key = "MUM'S",
       .month = 3,
       .day = 14,
       .advance = "14",
       .dates = {On(2015, 3, 14)},
       .line = "03.14,Mum's birthday,14,yearly"},
      {.title = "Tax return",
       .key = "TAX",
       .kind = kTilDoneKind,
       .month = 4,
       .day = 10,
       .advance = "10",
       .dates = {On(2015, 4, 10)},
       .line = "04.10,Tax return,10,tdo2015"},
      {.title = "Dentist 3:30pm",
       .key = "DENTIST",
       .kind = kOneTimeKind,
       .month = 5,
       .day = 20,
       .advance = "2",
       .dates = {On(2015, 5, 20)},
       .line = "05.20,Dentist 3:30pm,2,one2015"},
      {.title = "Mother's Day",
       .key = "MOTHER",
       .advance = "7",
       .observance = 18,
       .dates = {On(2015, 5, 10)},
       .line = "05.xx,Mother's Day,7,2nd sun"},
      {.title = "Wedding day",
       .key = "WEDDING",
       .month = 7,
       .day = 2,
       .advance = "7",
       .dates = {On(2015, 7, 2)},
       .line = "07.02,Wedding day,7,yearly"},
      {.title = "Since we moved",
       .key = "MOVED",
       .kind = kDaysPastKind,
       .month = 8,
       .day = 1,
       .year = 2014,
       .line = "08.01,Since we moved,0,dp-2014"},
      {.title = "Labor Day",
       .key = "LABOR",
       .advance = "4",
       .observance = 27,
       .dates = {On(2015, 9, 7)},
       .line = "09.xx,Labor Day,4,1st mon"},
      {.title = "Until the trip",
       .key = "TRIP",
       .kind = kDaysFutureKind,
       .month = 12,
       .day = 24,
       .year = 2016,
       .line = "12.24,Until the trip,0,df-2016"},
      {.title = "Christmas Day",
       .key = "CHRISTMAS",
       .advance = "20",
       .observance = 36,
       .dates = {On(2015, 12, 25)},
       .line = "12.25,Christmas Day,20,yearly"},
      {.title = "Rent",
       .key = "RENT",
       .kind = kMonthlyKind,
       .day = 15,
       .advance = "3",
       .dates = Monthly(15),
       .line = "xx.15,Rent,3,monthly"},
      {.title = "Pay day",
       .key = "PAY DAY",
       .kind = kOccurrenceKinds - 1,
       .day = kEveryWeekday,
       .advance = "0",
       .dates = LastDays(),
       .line = "xx.xx,Pay day,0,las day"},
  };
  return events;
}

inline const FamilyEvent& EventOf(const char* title) {
  for (const FamilyEvent& event : Family()) {
    if (std::string_view(event.title) == title) return event;
  }
  qFatal("no event %s", title);
}

// Due within its notice; counters always, and what is to be done until it is done.
inline bool IsDue(const FamilyEvent& event, CivilDate today) {
  if (event.dates.empty()) return true;
  if (event.kind == kTilDoneKind && DayCount{event.dates[0]} < DayCount{today}) return true;
  const int notice = QByteArray(event.advance).toInt();
  return std::any_of(event.dates.begin(), event.dates.end(), [&](CivilDate date) {
    const auto days = (DayCount{date} - DayCount{today}).count();
    return days >= 0 && days <= notice;
  });
}

inline QString LineOf(const FamilyEvent& event) {
  return QString::fromUtf8(event.line).toLower();
}

inline QStringList LinesOfFamily() {
  QStringList lines;
  for (const FamilyEvent& event : Family()) lines << LineOf(event);
  return lines;
}

// What the family knows of its file.
struct Known {
  QStringList lines = LinesOfFamily();
  QStringList gone;  // the keys of what is no longer there

  void Forget(const FamilyEvent& event) {
    lines.removeAll(LineOf(event));
    gone << QString::fromUtf8(event.key);
  }
};

}  // namespace tidewarden::test
