// The question before the program ends while an alarm is still to come.
#include <gmock/gmock.h>

#include "tests/alarm/alarm_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kQuestion =
    "You have an alarm scheduled for later today.\n\n"
    "IF YOU QUIT NOW, YOUR ALARM WILL NOT SOUND.\n\n"
    "If you would like to set Tidewarden to sound your alarm,\n"
    "press Cancel and then the orange button to send it to the tray.\n\n"
    "Press OK to quit and ignore your alarm scheduled for today.";

// Keeps the buttons and the icon as well.
class RecordingBox : public MessageBox {
 public:
  MessageAnswer answer = MessageAnswer::kOk;
  std::vector<std::string> shown;
  MessageButtons buttons = MessageButtons::kOk;
  MessageIcon icon = MessageIcon::kExclamation;

  MessageAnswer Show(const std::string& text, MessageButtons with, MessageIcon beside) override {
    shown.push_back(text);
    buttons = with;
    icon = beside;
    return answer;
  }
};

bool MayClose(AlarmDesk& desk, WindowState window = WindowState::kNormal,
              CloseReason reason = CloseReason::kUser) {
  desk.messages.shown.clear();
  return desk.session.MayClose(desk.schedule, desk.now, window, reason);
}

TEST(QuitQuestion, HasItsWordsAndButtons) {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemorySoundPlayer sound;
  RecordingBox box;
  AlarmSession session({settings, files, sound, box}, {});
  AlarmSchedule schedule;
  const LocalTime now{On(2014, 12, 22), 14, 0, 0};
  schedule.ScheduleAlarm("Dentist 15:00", now.date);
  session.ListBuilt(schedule, now);
  EXPECT_TRUE(session.MayClose(schedule, now, WindowState::kNormal, CloseReason::kUser));
  EXPECT_THAT(box.shown, ElementsAre(kQuestion));
  EXPECT_EQ(box.buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(box.icon, MessageIcon::kNone);
  box.answer = MessageAnswer::kCancel;
  EXPECT_FALSE(session.MayClose(schedule, now, WindowState::kNormal, CloseReason::kUser));
}

TEST(QuitQuestion, IsAskedAsLongAsAnAlarmIsToCome) {
  const struct {
    int hour, minute;
    bool asked;
  } cases[] = {{14, 0, true}, {14, 59, true}, {15, 0, false}, {15, 1, false}, {16, 0, false}};
  for (const auto& [hour, minute, asked] : cases) {
    AlarmDesk desk;
    desk.Build({"Early 9:00", "Dentist 15:00"});
    desk.SetTime(hour, minute);
    desk.messages.answer = MessageAnswer::kCancel;
    EXPECT_EQ(MayClose(desk), !asked);
    EXPECT_EQ(desk.messages.shown.size(), asked ? 1 : 0) << hour << ":" << minute;
  }
}

TEST(QuitQuestion, IsNotAskedWhereItWouldBeOutOfPlace) {
  AlarmDesk desk;
  desk.messages.answer = MessageAnswer::kCancel;
  desk.Build({"Dentist 15:00"});
  EXPECT_TRUE(MayClose(desk, WindowState::kNormal, CloseReason::kLoginSessionEnds));
  EXPECT_TRUE(MayClose(desk, WindowState::kMinimized, CloseReason::kUser));
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_FALSE(MayClose(desk, WindowState::kMaximized, CloseReason::kUser));
  desk.Build({"Birthday"});
  EXPECT_TRUE(MayClose(desk));
}

TEST(QuitQuestion, ATimePastTheEndOfTheDayIsStillToComeAllDay) {
  AlarmDesk desk;
  desk.Build({"Night 24:30"});
  desk.SetTime(23, 59);
  EXPECT_TRUE(MayClose(desk));
  EXPECT_THAT(desk.messages.shown, ElementsAre(kQuestion));
}

TEST(QuitQuestion, IsNotAskedForAlarmsThatWillNotSound) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:00"});
  desk.TickAt(15, 0);
  desk.SetTime(14, 0);  // the clock is set back: it has rung
  EXPECT_TRUE(MayClose(desk));
  desk.now.date = On(2014, 12, 23);  // the list is still yesterday's
  EXPECT_TRUE(MayClose(desk));
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

}  // namespace
}  // namespace tidewarden::test
