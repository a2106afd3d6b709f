// The reminder window's surroundings in memory, and what its tests do to it.
#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QListView>
#include <QTest>
#include <QTimer>

#include "dates/regional_text.h"
#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/memory_sound.h"
#include "reminder/frm_reminder.h"
#include "reminder/reminder_session.h"
#include "tests/support/source_folder.h"

namespace tidewarden {

inline constexpr char kPath[] = "/home/someone/dates.txt";
inline constexpr char kQuotesPath[] = "/opt/tidewarden/Quotes/Inspiration.txt";
inline constexpr char kSkinPath[] = "/opt/tidewarden/winaqua.skn";
// One screen of 1920 by 1080 pixels.
inline const Screens kScreens{{0, 0, 28800, 16200}, {{0, 0, 28800, 16200}}, true};

// On 22 December 2014 at 14:25.
struct World {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  PatternRegionalFormats formats{"MM/dd/yyyy"};
  MemoryPreviousInstance instance;
  MemoryNotificationArea area;
  MemoryRandomNumbers random;
  MemoryEditorWindow editor;
  MemorySoundPlayer sound;
  ProgramFolders folders{"/opt/tidewarden", "/home/someone/data", PathStyle::kPosix};
  AlarmSession alarms{{settings, files, sound, messages}, folders};
  ReminderSession session{ReminderPorts{settings, files, clock, messages, shiftKey, formats,
                                        instance, area, random, editor, alarms, folders}};

  explicit World(const std::string& events) { files.files[kPath] = events; }

  void Set(const char* section, const char* name, const std::string& value) {
    QVERIFY(settings.Write(section, name, value).ok());
  }

  bool Load(const Screens& screens = kScreens) {
    return session.Load(screens, kPath) == WindowChange::kNone;
  }

  void Tick(frmReminder& window) {
    QVERIFY(QMetaObject::invokeMethod(window.findChild<QTimer*>(QStringLiteral("tmrAlarm")),
                                      "timeout"));
  }
  void TickOn(frmReminder& window, CivilDate day) {
    clock.now.date = day;
    Tick(window);
  }

  // The four settings of the placement.
  [[nodiscard]] std::vector<std::string> Placement() const {
    return {settings.At("Settings", "Left"), settings.At("Settings", "Top"),
            settings.At("Settings", "Width"), settings.At("Settings", "Height")};
  }
};

// A window over a loaded world, started and on the screen.
struct StartedWindow : frmReminder {
  explicit StartedWindow(World& world) : frmReminder(world.session) {
    Start();
    [this] { QVERIFY(QTest::qWaitForWindowExposed(this)); }();
    [&world] { QTRY_VERIFY(world.session.isShown()); }();
  }
};

template <typename Object>
Object* Find(const frmReminder& window, const char* name) {
  return window.findChild<Object*>(QString::fromLatin1(name));
}

inline QListView* ListOf(const frmReminder& window) {
  return Find<QListView>(window, "List1");
}

inline QStringList RowsOf(const frmReminder& window) {
  QStringList rows;
  const auto* const model = ListOf(window)->model();
  for (int row = 0; row < model->rowCount(); ++row) rows << model->index(row, 0).data().toString();
  return rows;
}

inline int RowWith(const frmReminder& window, const char* text) {
  const QStringList rows = RowsOf(window);
  for (int row = 0; row < rows.size(); ++row) {
    if (rows[row].contains(QString::fromUtf8(text))) return row;
  }
  return -1;
}

// In the list's viewport: the middle of a row, and a place below all rows.
inline QPoint PlaceOf(const frmReminder& window, int row) {
  const QRect rect = ListOf(window)->visualRect(ListOf(window)->model()->index(row, 0));
  return {40, rect.center().y()};
}
inline QPoint BesideTheRows(const frmReminder& window) {
  return ListOf(window)->viewport()->rect().bottomRight() - QPoint(3, 3);
}

inline std::string SkinOfTheProgram() {
  QFile file(QString::fromStdString((test::SourceFolder() / "skin/winaqua.skn").string()));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace tidewarden
