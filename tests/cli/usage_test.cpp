// Help, version and wrong arguments. None of them touches anything on the disk.
#include <gmock/gmock.h>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::vector<std::string> kCommands{"list", "check", "next"};

TEST(Help, IsPrintedForTheProgramAndForEveryCommand) {
  const Terminal terminal;
  const auto before = terminal.folder.Look();
  for (const char* flag : {"--help", "-h"}) {
    SCOPED_TRACE(flag);
    const Outcome all = terminal.Run({flag});
    EXPECT_EQ(all.exitCode, 0);
    EXPECT_EQ(all.err, "");
    for (const std::string& command : kCommands) {
      SCOPED_TRACE(command);
      EXPECT_THAT(all.out, HasSubstr("  " + command + " "));
      const Outcome one = terminal.Run({command, flag});
      EXPECT_EQ(one.exitCode, 0);
      EXPECT_EQ(one.err, "");
      EXPECT_THAT(one.out, HasSubstr("tidewarden-cli " + command));
      EXPECT_NE(one.out, all.out);
    }
  }
  EXPECT_EQ(terminal.folder.Look(), before);
}

TEST(Help, NamesEveryOption) {
  const Terminal terminal;
  const struct {
    std::string command;
    std::vector<std::string> options;
  } cases[] = {
      {"list",
       {"--file", "--settings", "--today", "--now", "--short-date", "--json", "--update",
        "--only-if-any", "--version", "--help"}},
      {"check", {"--file", "--settings", "--today", "--json", "--version", "--help"}},
      {"next", {"LINE", "-n", "--today", "--short-date", "--json", "--version", "--help"}},
  };
  for (const auto& [command, options] : cases) {
    const std::string help = terminal.Run({command, "--help"}).out;
    for (const std::string& option : options) {
      SCOPED_TRACE(command + " " + option);
      EXPECT_THAT(help, HasSubstr(option));
    }
  }
}

TEST(Help, TellsTheExitCodes) {
  const std::string help = Terminal().Run({"--help"}).out;
  for (const char* code : {"0", "1", "2", "3", "4"}) EXPECT_THAT(help, HasSubstr(code));
}

TEST(Version, IsPrintedForTheProgramAndForEveryCommand) {
  const Terminal terminal;
  const auto before = terminal.folder.Look();
  const Outcome expected{0, "tidewarden-cli " TIDEWARDEN_VERSION "\n", ""};
  EXPECT_EQ(terminal.Run({"--version"}), expected);
  for (const std::string& command : kCommands) {
    SCOPED_TRACE(command);
    EXPECT_EQ(terminal.Run({command, "--version"}), expected);
  }
  EXPECT_EQ(terminal.folder.Look(), before);
}

TEST(WrongArguments, EndInExitCodeTwo) {
  Terminal terminal;
  terminal.folder.Write("dates.txt", "12.24,A,7,yearly\n");
  const auto before = terminal.folder.Look();
  const std::vector<std::vector<std::string>> cases{
      {},
      {""},
      {"lst"},
      {"--json"},
      {"--bogus"},
      {"list", "--bogus"},
      {"list", "check"},
      {"list", "extra"},
      {"list", "--file"},
      {"list", "--file", "dates.txt", "--file", "dates.txt"},
      {"list", "--settings"},
      {"list", "--file", "dates.txt", "--today"},
      {"list", "--file", "dates.txt", "--today", "tomorrow"},
      {"list", "--file", "dates.txt", "--today", "2014-02-29"},
      {"list", "--file", "dates.txt", "--today", "2014-13-01"},
      {"list", "--file", "dates.txt", "--today", "2014-00-10"},
      {"list", "--file", "dates.txt", "--today", "2014-1-1"},
      {"list", "--file", "dates.txt", "--today", "2014/12/22"},
      {"list", "--file", "dates.txt", "--today", "12/22/2014"},
      {"list", "--file", "dates.txt", "--today", "2014-12-22 "},
      {"list", "--file", "dates.txt", "--today", "+014-12-22"},
      {"list", "--file", "dates.txt", "--today", "12014-12-22"},
      {"list", "--file", "dates.txt", "--today", "0000-12-22"},
      {"list", "--file", "dates.txt", "--today", "9999-12-31"},
      {"list", "--file", "dates.txt", "--now", "24:00"},
      {"list", "--file", "dates.txt", "--now", "12:60"},
      {"list", "--file", "dates.txt", "--now", "9:05"},
      {"list", "--file", "dates.txt", "--now", "0905"},
      {"list", "--file", "dates.txt", "--now", "9:05am"},
      {"list", "--file", "dates.txt", "--now", "-1:05"},
      {"list", "--file", "dates.txt", "--short-date", "MMM dd yyyy"},
      {"check", "--update"},
      {"check", "--only-if-any"},
      {"check", "dates.txt"},
      {"check", "--file", "dates.txt", "--today", "2014-02-29"},
      {"next"},
      {"next", "12.25,A,0,yearly", "12.26,B,0,yearly"},
      {"next", "12.25,A,0,yearly", "-n"},
      {"next", "12.25,A,0,yearly", "-n", "0"},
      {"next", "12.25,A,0,yearly", "-n", "-1"},
      {"next", "12.25,A,0,yearly", "-n", "three"},
      {"next", "12.25,A,0,yearly", "-n", "1.5"},
      {"next", "12.25,A,0,yearly", "-n", "99999999999999999999"},
      {"next", "12.25,A,0,yearly", "--file", "dates.txt"},
      {"next", "12.25,A,0,yearly", "--today", "x"},
  };
  for (const auto& arguments : cases) {
    SCOPED_TRACE(::testing::PrintToString(arguments));
    const Outcome outcome = terminal.Run(arguments);
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err, "");
  }
  EXPECT_EQ(terminal.folder.Look(), before);
}

// A script's empty variable must not turn into the user's own file.
struct EmptyOption {
  std::string name;
  std::vector<std::string> arguments;
};

void PrintTo(const EmptyOption& option, std::ostream* out) {
  *out << option.name;
}

class EmptyArgument : public ::testing::TestWithParam<EmptyOption> {};

TEST_P(EmptyArgument, IsNotTakenForAMissingOption) {
  Terminal terminal;
  terminal.CopyProgram();
  terminal.folder.Write("app/dates.txt", "12.21,Gone,7,one2014\n");
  terminal.folder.Write("dates.txt", "12.24,A,7,yearly\n");
  const auto before = terminal.folder.Look();
  const Outcome outcome = terminal.Run(GetParam().arguments);
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(terminal.folder.Look(), before);
}

std::vector<EmptyOption> EmptyOptions() {
  const std::vector<std::string> list{"list", "--file", "dates.txt", "--settings", "no/s.ini"};
  const auto with = [&](const std::string& option) {
    std::vector<std::string> arguments = list;
    arguments.insert(arguments.end(), {option, ""});
    return arguments;
  };
  return {
      {"File", {"list", "--settings", "no/s.ini", "--file", ""}},
      {"FileToUpdate", {"list", "--settings", "no/s.ini", "--file", "", "--update"}},
      {"FileToCheck", {"check", "--settings", "no/s.ini", "--file", ""}},
      {"Settings", {"list", "--file", "dates.txt", "--settings", ""}},
      {"Today", with("--today")},
      {"Now", with("--now")},
      {"ShortDate", with("--short-date")},
      {"TodayOfNext", {"next", "12.25,A,0,yearly", "--today", ""}},
  };
}

INSTANTIATE_TEST_SUITE_P(Options, EmptyArgument, ::testing::ValuesIn(EmptyOptions()),
                         [](const auto& suite) { return suite.param.name; });

}  // namespace
}  // namespace tidewarden::test
