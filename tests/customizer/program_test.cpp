// The options program as a whole, without a screen: its command line, a picture, what it writes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Ending {
  int code = -1;
  std::string said;
};

class Program : public ::testing::Test {
 protected:
  Program() {
    folder_.Write("home/dates.txt", "12.25,Christmas,14,yearly\r\n");
    folder_.MakeFolder("run", 0700);
  }

  // Runs it to its end, with the home folder of the test.
  Ending Run(const std::vector<std::string>& arguments) const {
    const std::string log = folder_ / "said";
    const pid_t child = ::fork();
    if (child == 0) Become(arguments, log);
    int status = 0;
    for (int tries = 0; tries < 600 && ::waitpid(child, &status, WNOHANG) == 0; ++tries) {
      if (tries == 599) ::kill(child, SIGKILL);
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(log)};
  }

  [[nodiscard]] std::string Settings() const {
    return folder_.Exists("s.ini") ? folder_.Read("s.ini") : "(none)";
  }

  TemporaryFolder folder_;
  bool hasDisplay_ = true;

 private:
  [[noreturn]] void Become(const std::vector<std::string>& arguments,
                           const std::string& log) const {
    static_cast<void>(::freopen(log.c_str(), "w", stdout) == nullptr);
    static_cast<void>(::freopen(log.c_str(), "a", stderr) == nullptr);
    std::vector<std::string> all{TIDEWARDEN_CUSTOMIZER};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& argument : all) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    std::vector<std::string> environment{"HOME=" + folder_ / "home",
                                         "XDG_RUNTIME_DIR=" + folder_ / "run", "LC_ALL=C.UTF-8",
                                         "ASAN_OPTIONS=detect_leaks=0"};
    if (hasDisplay_) environment.emplace_back("QT_QPA_PLATFORM=offscreen");
    std::vector<char*> variables;
    for (std::string& variable : environment) variables.push_back(variable.data());
    variables.push_back(nullptr);
    ::execve(TIDEWARDEN_CUSTOMIZER, pointers.data(), variables.data());
    ::_exit(127);
  }
};

TEST_F(Program, TellsItsOptionsAndItsVersion) {
  const Ending help = Run({"--help"});
  EXPECT_EQ(help.code, 0);
  for (const char* const option :
       {"--settings", "--file", "--page", "--today", "--now", "--grab"}) {
    EXPECT_THAT(help.said, HasSubstr(option));
  }
  // The help wraps its lines.
  std::istringstream words(help.said);
  std::string text;
  for (std::string word; words >> word;) text += word + " ";
  EXPECT_THAT(text, HasSubstr("list, looks, alarms, editor, printing, files, start."));
  EXPECT_THAT(Run({"--help-all"}).said, HasSubstr("--platform"));
  EXPECT_EQ(Run({"--version"}).said, "customizer " TIDEWARDEN_VERSION "\n");
}

TEST_F(Program, WithoutADisplayItSaysSoAndEnds) {
  hasDisplay_ = false;
  const Ending ending = Run({"--settings", folder_ / "s.ini"});
  EXPECT_EQ(ending.code, 1);
  EXPECT_THAT(ending.said, StartsWith("customizer: there is no display"));
  EXPECT_EQ(Settings(), "(none)");
  EXPECT_EQ(Run({"--help"}).code, 0);
}

TEST_F(Program, RefusesWhatItDoesNotKnow) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"--nonsense"},
                                             {"something"},
                                             {"--grab", ""},
                                             {"--page", "attic"},
                                             {"--today", "soon"},
                                             {"--now", "noon"},
                                             {"--now", "24:00"},
                                             {"--now", ""}}) {
    const Ending ending = Run(arguments);
    EXPECT_EQ(ending.code, 2) << arguments.front();
    EXPECT_THAT(ending.said, StartsWith("customizer: "));
    EXPECT_THAT(ending.said, HasSubstr("--help"));
  }
}

TEST_F(Program, APictureLeavesNoTrace) {
  folder_.Write("s.ini", "[Settings]\nPath=" + folder_ / "home/dates.txt" + "\n");
  const auto before = folder_.Look();
  for (const char* const page :
       {"list", "looks", "alarms", "editor", "printing", "files", "start"}) {
    const std::string picture = folder_ / "picture.png";
    const Ending ending = Run({"--settings", folder_ / "s.ini", "--today", "2026-11-20", "--page",
                               page, "--grab", picture});
    EXPECT_EQ(ending.code, 0) << ending.said;
    EXPECT_THAT(BytesOf(picture), StartsWith("\x89PNG"));
    EXPECT_EQ(ModeOf(picture), 0600);
    ASSERT_EQ(::unlink(picture.c_str()), 0);
  }
  auto after = folder_.Look();
  EXPECT_EQ(after.at("s.ini"), before.at("s.ini"));
  EXPECT_EQ(after.at("home/dates.txt"), before.at("home/dates.txt"));
  EXPECT_FALSE(folder_.Exists("home/.config/Tideward"));
}

TEST_F(Program, APictureIsOfTheTimeThatIsNamed) {
  folder_.Write("home/dates.txt", "11.20,Bus 4:15 pm,14,yearly\r\n");
  folder_.Write("s.ini", "[Settings]\nPath=" + folder_ / "home/dates.txt" + "\n");
  const auto picture = [this](const std::string& now) {
    const Ending ending = Run({"--settings", folder_ / "s.ini", "--today", "2026-11-20", "--now",
                               now, "--grab", folder_ / "picture.png"});
    EXPECT_EQ(ending.code, 0) << ending.said;
    return BytesOf(folder_ / "picture.png");
  };
  const std::string morning = picture("08:30:10");
  EXPECT_TRUE(picture("08:30:10") == morning);
  EXPECT_FALSE(picture("14:25") == morning) << "the alarm is nearer";
}

TEST_F(Program, SaysWhyAPictureCannotBeWritten) {
  const Ending ending = Run({"--settings", folder_ / "s.ini", "--grab", folder_ / "no/where.png"});
  EXPECT_EQ(ending.code, 4);
  EXPECT_THAT(ending.said, HasSubstr("the picture cannot be written"));
}

TEST_F(Program, WillNotWorkOnSettingsThatItCannotRead) {
  folder_.MakeFolder("s.ini");
  const Ending ending = Run({"--settings", folder_ / "s.ini", "--grab", folder_ / "p.png"});
  EXPECT_EQ(ending.code, 3);
  EXPECT_THAT(ending.said,
              StartsWith("customizer: The settings in " + folder_ / "s.ini" + " cannot be read: "));
  EXPECT_FALSE(folder_.Exists("p.png"));
}

}  // namespace
}  // namespace tidewarden::test
