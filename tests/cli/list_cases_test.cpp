// The cases of tests/data/lists through the whole program.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "dates/regional_text.h"
#include "tests/cli/program.h"
#include "tests/reminder/list_case.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAreArray;

class ListCommandCase : public ::testing::TestWithParam<ListCase> {
 protected:
  ListCommandCase() {
    terminal_.folder.Write("dates.txt", GetParam().file);
    std::string settings;
    for (const StoredSetting& setting : GetParam().settings) {
      settings += "[" + setting.section + "]\n" + setting.name + "=" + setting.value + "\n";
    }
    terminal_.WriteSettings(settings);
  }

  Outcome List(const std::vector<std::string>& more) const {
    const LocalTime& now = GetParam().now;
    char time[32];
    std::snprintf(time, sizeof time, "%02d:%02d", now.hour, now.minute);
    std::vector<std::string> arguments{
        "list",         "--file",       "dates.txt",         "--settings",
        "settings.ini", "--today",      IsoDate(now.date),   "--now",
        time,           "--short-date", GetParam().shortDate};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return terminal_.Run(arguments);
  }

  Terminal terminal_;
};

TEST_P(ListCommandCase, GivesTheListAndTheFile) {
  const FileState before = LookAt(terminal_.folder / "dates.txt");
  std::string expected;
  for (const ExpectedRow& row : GetParam().rows) expected += row.text + "\n";
  EXPECT_EQ(List({}), (Outcome{0, expected, ""}));
  EXPECT_EQ(LookAt(terminal_.folder / "dates.txt"), before);

  const Outcome update = List({"--json", "--update"});
  EXPECT_EQ(update.exitCode, 0);
  EXPECT_EQ(update.err, "");
  std::vector<ExpectedRow> rows;
  for (const auto& item : nlohmann::json::parse(update.out)) {
    rows.push_back({item.at("line").get<long>(), item.at("text").get<std::string>()});
  }
  EXPECT_THAT(rows, ElementsAreArray(GetParam().rows));
  EXPECT_EQ(terminal_.folder.Read("dates.txt"), GetParam().fileAfter);
  if (GetParam().fileAfter == GetParam().file) {
    EXPECT_EQ(LookAt(terminal_.folder / "dates.txt"), before);
  }
  // Nothing stays beside the file.
  for (const auto& [name, state] : terminal_.folder.Look()) {
    EXPECT_TRUE(name == "." || name == "home" || name == "dates.txt" || name == "settings.ini")
        << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, ListCommandCase, ::testing::ValuesIn(AllListCases()),
                         [](const auto& suite) { return suite.param.testName; });

}  // namespace
}  // namespace tidewarden::test
