// The user's locale: where the layout and the names of a list come from.
#include <gmock/gmock.h>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

class LocaleTerminal : public ::testing::Test {
 protected:
  LocaleTerminal() {
    terminal_.surroundings.environment.erase("LC_ALL");
    terminal_.folder.Write("dates.txt",
                           "12.25,Christmas,14,yearly\n"
                           "12.22,istanbul ığdır,0,yearly\n"
                           "06.01,Sober,0,dp-2001\n");
  }

  void Set(const std::string& name, const std::string& value) {
    terminal_.surroundings.environment[name] = value;
  }

  Outcome List(const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{"--file", "dates.txt"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return terminal_.RunOnTheDay("list", arguments);
  }

  Terminal terminal_;
};

const Outcome kEnglish{0,
                       "06/01/2001 Sober (4952 days past)\n"
                       "12/22/2014   <TODAY>\n"
                       "12/22/2014 Today is ISTANBUL IĞDIR\n"
                       "12/25/2014 Christmas (Thursday, 3 days)\n",
                       ""};

TEST_F(LocaleTerminal, WithoutALocaleIsEnglishAndMonthFirst) {
  EXPECT_EQ(List(), kEnglish);
}

TEST_F(LocaleTerminal, InAPlainOrUnknownLocaleIsEnglishAndMonthFirst) {
  for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "", "xx_YY.UTF-8", "../../etc"}) {
    SCOPED_TRACE(name);
    Set("LC_ALL", name);
    EXPECT_EQ(List(), kEnglish);
  }
}

TEST_F(LocaleTerminal, InGerman) {
  Set("LOCPATH", TIDEWARDEN_TEST_LOCALES);
  const Outcome expected{0,
                         "01.06.2001 Sober (4952 days past)\n"
                         "22.12.2014   <TODAY>\n"
                         "22.12.2014 Today is ISTANBUL IĞDIR\n"
                         "25.12.2014 Christmas (Donnerstag, 3 days)\n",
                         ""};
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    SCOPED_TRACE(variable);
    Set(variable, "de_DE.UTF-8");
    EXPECT_EQ(List(), expected);
    terminal_.surroundings.environment.erase(variable);
  }
}

// Printed in UTF-8 all the same.
TEST_F(LocaleTerminal, InAnotherCharacterSet) {
  terminal_.folder.Write("dates.txt", "03.01,März,365,yearly\n");
  terminal_.WriteSettings("SpellOutReminderMonths=True\n");
  Set("LOCPATH", TIDEWARDEN_TEST_LOCALES);
  Set("LC_ALL", "de_DE.ISO-8859-1");
  EXPECT_EQ(List(), (Outcome{0, "22 Dez 2014   <TODAY>\n01 Mär 2015 März (69 days)\n", ""}));
}

TEST_F(LocaleTerminal, InTurkish) {
  Set("LOCPATH", TIDEWARDEN_TEST_LOCALES);
  Set("LC_ALL", "tr_TR.UTF-8");
  EXPECT_EQ(List(), (Outcome{0,
                             "01-06-2001 Sober (4952 days past)\n"
                             "22-12-2014   <TODAY>\n"
                             "22-12-2014 Today is ISTANBUL IĞDIR\n"
                             "25-12-2014 Christmas (Perşembe, 3 days)\n",
                             ""}));
}

TEST_F(LocaleTerminal, TakesTheTimeCategoryAndNotTheLanguageOfMessages) {
  Set("LOCPATH", TIDEWARDEN_TEST_LOCALES);
  Set("LANG", "de_DE.UTF-8");
  Set("LC_MESSAGES", "de_DE.UTF-8");
  Set("LC_TIME", "C");
  EXPECT_EQ(List(), kEnglish);
  Set("LC_TIME", "tr_TR.UTF-8");
  EXPECT_THAT(List().out, ::testing::HasSubstr("25-12-2014 Christmas (Perşembe, 3 days)\n"));
  Set("LC_ALL", "de_DE.UTF-8");
  EXPECT_THAT(List().out, ::testing::HasSubstr("25.12.2014 Christmas (Donnerstag, 3 days)\n"));
}

TEST_F(LocaleTerminal, NamesStayWhenTheLayoutIsGiven) {
  Set("LOCPATH", TIDEWARDEN_TEST_LOCALES);
  Set("LC_ALL", "de_DE.UTF-8");
  terminal_.WriteSettings("SpellOutReminderMonths=True\nShowDayOfWeek=True\n");
  EXPECT_EQ(List({"--short-date", "yyyy-MM-dd"}),
            (Outcome{0,
                     "2001 Jun 01 Sober (4952 days past)\n"
                     "2014 Dez 22   <TODAY is Montag>\n"
                     "2014 Dez 22 Today is ISTANBUL IĞDIR\n"
                     "2014 Dez 25 Christmas (Donnerstag, 3 days)\n",
                     ""}));
  EXPECT_EQ(terminal_.RunOnTheDay("next", {"12.25,X,0,yearly"}),
            (Outcome{0, "25.12.2014 (Donnerstag, 3 days)\n", ""}));
}

}  // namespace
}  // namespace tidewarden::test
