// The cases of tests/data/lists against the engine.
#include "tests/reminder/list_case.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class ReminderListCase : public ::testing::TestWithParam<ListCase> {
 protected:
  ReminderListCase() { Prepare(desk_); }

  static void Prepare(Desk& desk) {
    desk.files.files[kEventsPath] = GetParam().file;
    desk.clock.now = GetParam().now;
    desk.format = LayoutOf(GetParam().shortDate);
    for (const StoredSetting& setting : GetParam().settings) {
      desk.Set(setting.section, setting.name, setting.value);
    }
  }

  [[nodiscard]] bool Changes() const { return GetParam().fileAfter != GetParam().file; }

  [[nodiscard]] static bool Sets(const std::string& name) {
    const auto& all = GetParam().settings;
    return std::any_of(all.begin(), all.end(),
                       [&](const StoredSetting& setting) { return setting.name == name; });
  }

  // The same when the file arrives in pieces, and when it may not be changed; line numbers are
  // then those of the unchanged file.
  static void CheckOtherWaysOfReading() {
    std::vector<std::string> texts;
    for (const ExpectedRow& row : GetParam().rows) texts.push_back(row.text);
    for (const std::size_t piece : {0U, 1U, 2U, 3U, 7U, 64U}) {
      SCOPED_TRACE(piece);
      Desk reader;
      Prepare(reader);
      reader.access = FileAccess::kReadOnly;
      reader.files.piece = piece;
      reader.Build();
      EXPECT_THAT(reader.List(), ElementsAreArray(texts));
      EXPECT_EQ(reader.file(), GetParam().file);
      EXPECT_EQ(reader.FileChanges(), 0);

      Desk writer;
      Prepare(writer);
      writer.files.piece = piece;
      writer.Build();
      EXPECT_THAT(writer.Listed(), ElementsAreArray(GetParam().rows));
      EXPECT_EQ(writer.file(), GetParam().fileAfter);
    }
  }

  // What holds for every list.
  void CheckRows() {
    const auto& rows = desk_.builder().rows();
    ASSERT_EQ(desk_.builder().ReminderLineMap().size(), desk_.List().size());
    ASSERT_EQ(rows.size(), desk_.List().size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SCOPED_TRACE(rows[i].text);
      EXPECT_EQ(rows[i].line, desk_.builder().ReminderLineMap()[i]);
      EXPECT_EQ(desk_.List()[i].substr(0, rows[i].text.size()), rows[i].text);
      EXPECT_EQ(rows[i].daysToGo, DaysBetween(GetParam().now.date, rows[i].date));
    }
  }

  Desk desk_;
};

TEST_P(ReminderListCase, GivesTheListAndTheFile) {
  EXPECT_EQ(desk_.Build() == BuildOutcome::kEnd, GetParam().ends);
  EXPECT_THAT(desk_.Listed(), ElementsAreArray(GetParam().rows));
  EXPECT_EQ(desk_.file(), GetParam().fileAfter);
  EXPECT_EQ(desk_.FileChanges() > 0, Changes());
  if (!GetParam().label.empty()) {
    EXPECT_EQ(desk_.builder().dateLabel(), GetParam().label);
  }
  EXPECT_THAT(desk_.messages.shown, IsEmpty());
  if (!Sets("ShowDayOfWeek")) {
    EXPECT_EQ(desk_.settings.At("Options", "ShowDayOfWeek"), "(missing)");
  }
  CheckRows();

  // Building it again changes nothing.
  desk_.files.calls.clear();
  desk_.Build();
  EXPECT_THAT(desk_.Listed(), ElementsAreArray(GetParam().rows));
  EXPECT_EQ(desk_.file(), GetParam().fileAfter);
  EXPECT_EQ(desk_.FileChanges(), 0);

  CheckOtherWaysOfReading();
}

INSTANTIATE_TEST_SUITE_P(Lists, ReminderListCase, ::testing::ValuesIn(AllListCases()),
                         [](const auto& suite) { return suite.param.testName; });

}  // namespace
}  // namespace tidewarden::test
