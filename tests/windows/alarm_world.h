// An alarm window with everything around it in memory, and alarms that go off on request.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <string>
#include <string_view>
#include <vector>

#include "alarm/alarm_session.h"
#include "alarm/frm_alarm.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_sound.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline constexpr int kTwips = 15;

struct AlarmWorld {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemorySoundPlayer sound;
  MemoryMessageBox messages;
  AlarmSession session{{settings, files, sound, messages},
                       {"/opt/tidewarden", "/home/ann/.data", PathStyle::kPosix}};
  AlarmSchedule schedule;
  std::vector<std::string_view> list;
  LocalTime now{On(2014, 12, 22), 8, 0, 0, 0};
  frmAlarm window{session};

  // Lets alarms go off in the next minute. Their titles get the time of day.
  void Ring(const std::vector<std::string>& titles) {
    const LocalTime before = now;
    ++now.minute;
    schedule.Clear();
    const std::string time = " 8:" + std::string(now.minute < 10 ? "0" : "");
    for (const std::string& title : titles) {
      schedule.ScheduleAlarm(title + time + std::to_string(now.minute), now.date);
    }
    session.ListBuilt(schedule, before);
    QVERIFY(session.Tick(schedule, list, {}, now).showsMessages);
    window.ShowMessages();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
  }

  void Store(const char* name, const std::string& value) {
    QVERIFY(settings.Write("Alarm", name, value).ok());
  }

  void StorePlacement(int left, int top, int width, int height) {
    Store("Left", std::to_string(left));
    Store("Top", std::to_string(top));
    Store("Width", std::to_string(width));
    Store("Height", std::to_string(height));
  }

  [[nodiscard]] QString Stored(const char* name) const {
    return QString::fromStdString(settings.At("Alarm", name));
  }

  template <typename Widget>
  [[nodiscard]] Widget* Find(const char* name) const {
    return window.findChild<Widget*>(QString::fromLatin1(name));
  }
  [[nodiscard]] QString Text() const { return Find<QLabel>("lblAlarmMessage")->text(); }
  [[nodiscard]] QScrollBar* Bar() const {
    return Find<QScrollArea>("scrAlarmMessage")->verticalScrollBar();
  }
};

inline QSize InPixels(int width, int height) {
  return QSize(width / kTwips, height / kTwips);
}

inline QString Twips(int pixels) {
  return QString::number(pixels * kTwips);
}

// Where a control lies, in twips from the corner of `in`.
inline QRect PlaceOf(const QWidget* control, const QWidget* in) {
  const QPoint corner = control->mapTo(in, QPoint(0, 0));
  return QRect(corner * kTwips, control->size() * kTwips);
}

inline std::vector<std::string> Many(int count) {
  std::vector<std::string> titles;
  for (int i = 1; i <= count; ++i) titles.push_back("Number " + std::to_string(i));
  return titles;
}

}  // namespace tidewarden::test
