#include "bench/events.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "dates/text.h"

namespace tidewarden::bench {
namespace {

constexpr std::array<std::string_view, 40> kFirstNames{
    "Anna",  "Ben",   "Clara", "David",  "Emma",  "Felix",  "Greta", "Hugo",  "Ida",   "Jonas",
    "Karla", "Leo",   "Mia",   "Noah",   "Olga",  "Paul",   "Quinn", "Rosa",  "Simon", "Tina",
    "Uwe",   "Vera",  "Willi", "Xenia",  "Yusuf", "Zoe",    "Alma",  "Bruno", "Carl",  "Dora",
    "Erik",  "Frida", "Georg", "Hannah", "Ilse",  "Johann", "Kurt",  "Laura", "Max",   "Nora"};
constexpr std::array<std::string_view, 40> kLastNames{
    "Adler",  "Baker",  "Cooper",  "Dietz",  "Evans",  "Fischer", "Gray",  "Huber",
    "Ivanov", "Jensen", "Keller",  "Lopez",  "Meyer",  "Novak",   "Olsen", "Peters",
    "Quast",  "Roth",   "Stone",   "Turner", "Ulrich", "Vogel",   "Weber", "Xu",
    "Young",  "Zander", "Albers",  "Brandt", "Conrad", "Drake",   "Engel", "Falk",
    "Graf",   "Hahn",   "Iversen", "Jung",   "Kraus",  "Lang",    "Moser", "Nagel"};
constexpr std::array<std::string_view, 16> kOccasions{
    "birthday",     "wedding day", "dentist", "rent",      "choir",   "insurance due",
    "bins",         "car tax",     "piano",   "name day",  "reunion", "checkup",
    "garden party", "library",     "fencing", "phone bill"};
constexpr std::array<std::string_view, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> kWeekdays{"Sun", "Mon", "Tue", "Wed",
                                                    "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 5> kOrdinals{"1st", "2nd", "3rd", "4th", "Las"};

// A linear congruential generator (Knuth's MMIX constants): the same numbers everywhere.
class Random {
 public:
  std::size_t Below(std::size_t limit) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::size_t>((state_ >> 33U) % limit);
  }

 private:
  std::uint64_t state_ = 42;
};

struct Day {
  std::size_t month;  // 0 to 11
  std::size_t day;    // 1 to 28
};

void AppendTwoDigits(std::string& out, std::size_t number) {
  AppendNumber(out, static_cast<int>(number), 2);
}

void AddYearly(EventTexts& out, Day day, const std::string& title) {
  AppendTwoDigits(out.events, day.month + 1);
  out.events += ".";
  AppendTwoDigits(out.events, day.day);
  out.events += "," + title + ",7,yearly\r\n";
  out.reminders += "REM " + std::to_string(day.day) + " ";
  out.reminders.append(kMonths[day.month]).append(" +7 MSG ").append(title).append(" %b%\n");
}

void AddMonthly(EventTexts& out, Day day, const std::string& title) {
  out.events += "xx.";
  AppendTwoDigits(out.events, day.day);
  out.events += "," + title + ",7,monthly\r\n";
  out.reminders += "REM " + std::to_string(day.day) + " +7 MSG " + title + " %b%\n";
}

void AddNthWeekday(EventTexts& out, Day day, const std::string& title, Random& random) {
  const std::size_t ordinal = random.Below(kOrdinals.size());
  const std::string weekday(kWeekdays[random.Below(kWeekdays.size())]);
  AppendTwoDigits(out.events, day.month + 1);
  out.events += ".xx," + title + ",7,";
  out.events.append(kOrdinals[ordinal]).append(" ").append(weekday).append("\r\n");
  out.reminders += "REM " + weekday + " ";
  if (ordinal + 1 < kOrdinals.size()) {
    // The first such weekday on or after the 1st, 8th, 15th or 22nd.
    out.reminders += std::to_string(1 + 7 * ordinal) + " ";
    out.reminders.append(kMonths[day.month]);
  } else {
    // The last one: the first of the next month, and back by a week.
    out.reminders += "1 ";
    out.reminders.append(kMonths[(day.month + 1) % kMonths.size()]).append(" --7");
  }
  out.reminders.append(" +7 MSG ").append(title).append(" %b%\n");
}

}  // namespace

EventTexts MakeEvents(std::size_t count) {
  EventTexts out;
  Random random;
  for (std::size_t i = 0; i < count; ++i) {
    std::string title(kFirstNames[random.Below(kFirstNames.size())]);
    title.append(" ").append(kLastNames[random.Below(kLastNames.size())]);
    title.append(" ").append(kOccasions[random.Below(kOccasions.size())]);
    const Day day{random.Below(12), 1 + random.Below(28)};
    const std::size_t kind = random.Below(100);
    if (kind < 70) {
      AddYearly(out, day, title);
    } else if (kind < 85) {
      AddMonthly(out, day, title);
    } else {
      AddNthWeekday(out, day, title, random);
    }
  }
  return out;
}

}  // namespace tidewarden::bench
