// The system's clock and the user's time zone.
#include <gtest/gtest.h>

#include <chrono>

#include "dates/civil.h"
#include "dates/regional_text.h"
#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

// What the today line says in a zone; `east` counts hours.
std::string TodayIn(const char* zone) {
  Terminal terminal;
  terminal.surroundings.environment["TZ"] = zone;
  terminal.WriteSettings();
  terminal.folder.Write("dates.txt", "");
  return terminal.Run({"list", "--file", "dates.txt", "--settings", "settings.ini"}).out;
}

std::string TodayLineAt(std::chrono::system_clock::time_point moment, int hoursEast) {
  const auto day = std::chrono::floor<std::chrono::days>(moment + std::chrono::hours(hoursEast));
  const CivilDate date{day};
  const std::string iso = IsoDate(date);
  return iso.substr(5, 2) + "/" + iso.substr(8) + "/" + iso.substr(0, 4) + "   <TODAY>\n";
}

TEST(Today, IsTheDayOfTheSystemsClockInTheUsersZone) {
  const struct {
    const char* zone;
    int hoursEast;
  } cases[] = {{"UTC", 0}, {"<+12>-12", 12}, {"<-12>12", -12}};
  for (const auto& [zone, hoursEast] : cases) {
    SCOPED_TRACE(zone);
    // Midnight may come while the program runs; then either day is right.
    const std::string before = TodayLineAt(std::chrono::system_clock::now(), hoursEast);
    const std::string line = TodayIn(zone);
    const std::string after = TodayLineAt(std::chrono::system_clock::now(), hoursEast);
    EXPECT_TRUE(line == before || line == after) << line << before << after;
  }
}

}  // namespace
}  // namespace tidewarden::test
