// The list as it would look, before anything is saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/customizer/options_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

using Rows = std::vector<std::string>;

TEST(ListPreview, ShowsTheUsersEventsAsTheReminderWould) {
  OptionsDesk desk;
  EXPECT_FALSE(desk.session().showsExamples());
  EXPECT_THAT(desk.session().preview().rows,
              ElementsAre("12/22/2014   <TODAY>", "12/22/2014 Today is DENTIST 3:30PM (1:05 to go)",
                          "12/25/2014 Christmas (Thursday, 3 days)"));
  EXPECT_EQ(desk.session().preview().title, "Your Tidewarden Upcoming Events");
  EXPECT_EQ(desk.session().preview().dateLabel, "12/22/2014");
  EXPECT_EQ(desk.session().preview().colours, ColoursOf("pale green"));
  EXPECT_EQ(desk.session().preview().font.name, "MS Sans Serif");
}

TEST(ListPreview, FollowsEveryChange) {
  OptionsDesk desk;
  desk.Tick("CapitalizeTodaysEvents", false);
  desk.Type("PrefaceTodaysEventsWithTODAYis", "Blank");
  desk.Tick("ShowLessThan", true);
  desk.Tick("SpellOutReminderMonths", true);
  desk.Type("ShowDayOfWeek", "True");
  desk.Type("TitlebarText", "My days");
  desk.Type("ReminderListColors", "FF0000,FFFFFF");
  desk.Type("FontSize", "18");
  desk.Tick("FontItalic", true);
  const ListPreview& preview = desk.session().preview();
  EXPECT_THAT(preview.rows, ElementsAre("Dec 22 2014   <Today is Monday>",
                                        "Dec 22 2014  Dentist 3:30pm (1:05 to go)",
                                        "Dec 25 2014 Christmas (Thursday, 3 days < 14)"));
  EXPECT_EQ(preview.title, "My days");
  EXPECT_EQ(preview.colours, (ListColours{Colour{255, 0, 0}, Colour{255, 255, 255}}));
  EXPECT_EQ(preview.font.size, 18);
  EXPECT_TRUE(preview.font.italic);
  EXPECT_EQ(preview.dateLabel, "Dec 22 2014");
  desk.Tick("ShowTodaysDateBeneathReminders", false);
  desk.Tick("ListTodayWithEvents", false);
  EXPECT_EQ(desk.session().preview().dateLabel, "");
  EXPECT_EQ(desk.session().preview().rows.size(), 2U);
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(ListPreview, ReadsAnotherEventsFileAsSoonAsItIsNamed) {
  OptionsDesk desk;
  desk.files.files["/home/ann/work.txt"] = "12.23,Report,7,yearly\r\n";
  desk.Type("Path", "/home/ann/work");
  EXPECT_THAT(desk.session().preview().rows, Contains("12/23/2014 Report (Tuesday, 1 day)"));
}

TEST(ListPreview, ReadsTheFileOfTheCommandLineInPlaceOfTheUsers) {
  OptionsDesk desk;
  desk.files.files["/demo.txt"] = "12.24,Demo,7,yearly\r\n";
  OptionsSession session(desk.Ports(), "/demo.txt");
  EXPECT_THAT(session.preview().rows, Contains("12/24/2014 Demo (Wednesday, 2 days)"));
}

TEST(ListPreview, ShowsAQuoteWhenOneIsWanted) {
  OptionsDesk desk;
  // Of two quotes the reminder always takes the first.
  desk.files.files[kQuotesPath] = "// Ours\r\nFirst line¬second line\r\nTwo\r\n";
  EXPECT_EQ(desk.session().preview().quote, "");
  desk.Tick("ShowDailyQuotes", true);
  EXPECT_EQ(desk.session().preview().quote, "First line\r\nsecond line");
  desk.session().ShowExamples(true);
  EXPECT_EQ(desk.session().preview().quote, "First line\r\nsecond line");
  desk.files.files["/home/ann/mine.txt"] = "Mine\n";
  desk.Type("QuotesPath", "/home/ann/mine.txt");
  EXPECT_EQ(desk.session().preview().quote, "Mine");
  desk.files.files["/home/ann/mine.txt"] = "// nothing\n";
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().preview().quote, "");
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(ListPreview, ShowsTheSameQuoteAllDayLong) {
  OptionsDesk desk;
  std::string quotes;
  for (int i = 0; i < 500; ++i) quotes += "Number " + std::to_string(i) + "\n";
  desk.files.files[kQuotesPath] = quotes;
  desk.Tick("ShowDailyQuotes", true);
  const std::string quote = desk.session().preview().quote;
  EXPECT_THAT(quote, ::testing::StartsWith("Number "));
  desk.clock.now.minute += 7;
  desk.Tick("FontBold", true);
  EXPECT_EQ(desk.session().preview().quote, quote);
}

TEST(ListPreview, LeavesTheEventsFileAsItIs) {
  OptionsDesk desk;
  desk.files.files[kEventsPath] = "12.01,Over,7,one2014\r\n12.25,Soon,7,yearly\r\n";
  static_cast<void>(desk.session().preview());
  EXPECT_EQ(desk.files.CountCalls("stage") + desk.files.CountCalls("create"), 0);
}

TEST(ListPreview, ShowsSomethingEvenIfTheProgramWouldNotStart) {
  OptionsDesk desk;
  desk.files.files[kEventsPath] = "";
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  EXPECT_TRUE(desk.session().showsExamples());
  EXPECT_EQ(desk.session().preview().rows.size(), 7U);
  desk.session().ShowExamples(false);
  EXPECT_THAT(desk.session().preview().rows, ElementsAre("12/22/2014   <TODAY>"));
}

TEST(ListPreview, ShowsExamplesWhereThereIsNoFile) {
  OptionsDesk desk;
  desk.files.files.erase(kEventsPath);
  EXPECT_TRUE(desk.session().showsExamples());
  EXPECT_THAT(desk.session().preview().rows,
              ElementsAre("11/13/2010 Moved into the house (1500 days past)",
                          "12/16/2014 Return the library books (6 DAYS OVERDUE!!!)",
                          "12/22/2014   <TODAY>", "12/22/2014 Today is ANNA'S BIRTHDAY",
                          "12/23/2014 Choir practice (Tuesday, 1 day)",
                          "12/27/2014 Rent (Saturday, 5 days)",
                          "01/03/2015 Dinner with friends (12 days)"));
  EXPECT_FALSE(desk.files.files.contains(kEventsPath));
  desk.Tick("ShowDateDifferencesInDaysOnly", false);
  EXPECT_THAT(desk.session().preview().rows.front(), ::testing::HasSubstr("year"));
}

TEST(ListPreview, IsMadeInALayoutThatTheProgramCanPlace) {
  OptionsDesk desk;
  PatternRegionalFormats dayFirst("dd.MM.yyyy");
  PatternRegionalFormats unsupported("MMMM d, yyyy");
  CustomizerPorts ports{desk.settings, desk.files,    desk.examples,  desk.clock,    dayFirst,
                        desk.sound,    desk.messages, desk.autostart, desk.reminder, desk.folders};
  EXPECT_THAT(OptionsSession(ports).preview().rows,
              Contains("25.12.2014 Christmas (Thursday, 3 days)"));
  CustomizerPorts others{desk.settings, desk.files,    desk.examples,  desk.clock,    unsupported,
                         desk.sound,    desk.messages, desk.autostart, desk.reminder, desk.folders};
  EXPECT_THAT(OptionsSession(others).preview().rows,
              Contains("12/25/2014 Christmas (Thursday, 3 days)"));
}

TEST(ListPreview, RandomColoursStandStillAndStayRandom) {
  OptionsDesk desk;
  desk.Set("Options", "ReminderListColors", "random");
  const ListColours first = desk.session().preview().colours;
  desk.clock.now.minute = 59;
  desk.Tick("FontBold", true);
  EXPECT_EQ(desk.session().preview().colours, first);
  EXPECT_EQ(desk.Text("ReminderListColors"), "random");
}

}  // namespace
}  // namespace tidewarden::test
