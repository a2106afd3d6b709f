// Standard output that cannot take what is printed.
#include <gmock/gmock.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;

struct Command {
  std::string name;
  std::vector<std::string> arguments;
};

void PrintTo(const Command& command, std::ostream* out) {
  *out << command.name;
}

const std::vector<Command>& EveryCommand() {
  static const std::vector<Command> commands{
      {"List", {"list", "--file", "dates.txt", "--settings", "settings.ini"}},
      {"ListJson", {"list", "--file", "dates.txt", "--settings", "settings.ini", "--json"}},
      {"OnlyIfAny", {"list", "--file", "dates.txt", "--settings", "settings.ini", "--only-if-any"}},
      {"Check", {"check", "--file", "dates.txt"}},
      {"CheckJson", {"check", "--file", "dates.txt", "--json"}},
      {"Next", {"next", "12.25,A,7,yearly"}},
      {"NextJson", {"next", "12.25,A,7,yearly", "--json"}},
      {"Help", {"--help"}},
      {"HelpOfList", {"list", "--help"}},
      {"Version", {"--version"}},
  };
  return commands;
}

class Output : public ::testing::TestWithParam<Command> {
 protected:
  Output() {
    // A finding, so that "check" has something to print.
    terminal_.folder.Write("dates.txt", "12.24,A,7,yearly\nhello\n");
    terminal_.WriteSettings();
  }

  void ExpectCannotWrite() {
    const Outcome outcome = terminal_.Run(GetParam().arguments);
    EXPECT_EQ(outcome.exitCode, 4);
    EXPECT_THAT(outcome.err, HasSubstr("standard output"));
    EXPECT_EQ(terminal_.folder.Read("dates.txt"), "12.24,A,7,yearly\nhello\n");
  }

  Terminal terminal_;
};

TEST_P(Output, ToAFullDeviceEndsInExitCodeFour) {
  terminal_.surroundings.output = StandardOutput::kFullDevice;
  ExpectCannotWrite();
}

TEST_P(Output, ThatIsClosedEndsInExitCodeFour) {
  terminal_.surroundings.output = StandardOutput::kClosed;
  ExpectCannotWrite();
}

TEST_P(Output, ToAPipeWithoutReaderEndsInExitCodeFourWhereTheSignalIsIgnored) {
  terminal_.surroundings.output = StandardOutput::kPipeWithoutReader;
  terminal_.surroundings.ignorePipeSignal = true;
  ExpectCannotWrite();
}

INSTANTIATE_TEST_SUITE_P(Commands, Output, ::testing::ValuesIn(EveryCommand()),
                         [](const auto& suite) { return suite.param.name; });

TEST(OutputToAPipeWithoutReader, EndsTheProgramLikeAnyOther) {
  Terminal terminal;
  terminal.surroundings.output = StandardOutput::kPipeWithoutReader;
  const Outcome outcome = terminal.Run({"next", "12.25,A,7,yearly"});
  EXPECT_TRUE(outcome.exitCode == 128 + SIGPIPE || outcome.exitCode == 4) << outcome.exitCode;
}

// With no streams at all the files that the program opens take their numbers.
TEST(NoStreams, DoNotLetAMessageIntoAFile) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"list", "--file", "dates.txt", "--settings", "settings.ini", "--update"},
           {"list", "--file", "missing.txt", "--settings", "settings.ini", "--update"},
           {"check", "--file", "dates.txt"},
           {"list", "--file", "folder", "--settings", "settings.ini"}}) {
    SCOPED_TRACE(::testing::PrintToString(arguments));
    Terminal terminal;
    terminal.folder.MakeFolder("folder");
    terminal.folder.Write("dates.txt", "12.24,A,7,yearly\n01.01,Gone,7,one2001\nhello\n");
    terminal.folder.Write("settings.ini", "; mine\n");
    terminal.surroundings.closeAllStreams = true;
    EXPECT_NE(terminal.Run(arguments).exitCode, 0);
    EXPECT_THAT(terminal.folder.Read("settings.ini"), ::testing::Not(HasSubstr("tidewarden-cli")));
    EXPECT_THAT(terminal.folder.Read("settings.ini"), ::testing::StartsWith("; mine\n"));
    if (terminal.folder.Exists("missing.txt")) {
      EXPECT_EQ(terminal.folder.Read("missing.txt"), "");
    }
    const bool updates = arguments.back() == "--update" && arguments[2] == "dates.txt";
    EXPECT_EQ(terminal.folder.Read("dates.txt"),
              updates ? "12.24,A,7,yearly\r\nhello\r\n"
                      : "12.24,A,7,yearly\n01.01,Gone,7,one2001\nhello\n");
  }
}

TEST(LongOutput, ArrivesWhole) {
  std::string file;
  std::string expected = "12/22/2014   <TODAY>\n";
  for (int i = 10000; i < 40000; ++i) {
    file += "12.24,Event " + std::to_string(i) + ",7,yearly\n";
    expected += "12/24/2014 Event " + std::to_string(i) + " (Wednesday, 2 days)\n";
  }
  Terminal terminal;
  terminal.folder.Write("dates.txt", file);
  const Outcome outcome = terminal.RunOnTheDay("list", {"--file", "dates.txt"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out == expected);
}

TEST(LongOutput, ToAFullDeviceIsNoticed) {
  std::string file;
  for (int i = 0; i < 30000; ++i) file += "12.24,Event,7,yearly\n";
  Terminal terminal;
  terminal.folder.Write("dates.txt", file);
  terminal.surroundings.output = StandardOutput::kFullDevice;
  const Outcome outcome = terminal.RunOnTheDay("list", {"--file", "dates.txt"});
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_EQ(outcome.err, "tidewarden-cli: standard output cannot be written\n");
}

}  // namespace
}  // namespace tidewarden::test
