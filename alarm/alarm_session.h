// The behaviour of alarms, without a window: what each tick of the minute timer does, which
// messages wait for the user, what sounds, and the question before the program ends.
//
// The schedule and the list that shows its countdowns belong to whoever builds the list; they
// come in with each call, and so does the time. An alarm rings once: in the tick of its minute, or
// when that minute has passed without a tick (the computer slept, the clock was set forward), in
// the next tick of the same day. One that is listed for the first time when its minute has begun
// rings in the next tick, and one whose minute is over then never does. The program's first list
// rings nothing of the minute of the start.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "alarm/alarm_placement.h"
#include "alarm/alarm_schedule.h"
#include "alarm/sound_player.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/list_font.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "core/window_placement.h"
#include "dates/civil.h"

namespace tidewarden {

// What the session asks of the world. Everything outlives the session.
struct AlarmPorts {
  SettingsStore& settings;
  FileSystem& files;
  SoundPlayer& sound;
  MessageBox& messages;
};

// The user's choices, as they were when the list was built.
struct AlarmOptions {
  bool alarmSound = true;           // an alarm sounds at its minute
  bool alarmBeepEachMinute = true;  // and again each minute until it is acknowledged,
  bool disableAlarms = false;       // unless this is set; nothing else depends on it
};

// What a tick asks of its caller, in this order.
struct AlarmTick {
  bool rowsChanged = false;     // rows of the list show another countdown
  bool showsMessages = false;   // an alarm went off: show alarmMessages(), open the window
  bool sounds = false;          // then, with the window there, PlayAlarmSound()
  bool checksForNewDay = true;  // look whether a new day has begun
};

// Why the reminder window is about to close.
enum class CloseReason {
  kUser,
  kLoginSessionEnds,  // a question would hold up the logout
};

// In milliseconds, of AlarmSession::MillisecondsToNextTick. Timers stand still while the computer
// sleeps, and do not hear of a clock that is set.
inline constexpr int kLongestTickWait = 15'000;

class AlarmSession {
 public:
  static constexpr int kNoMinute = -1;

  // `folders` tells where the program's own sound is.
  AlarmSession(AlarmPorts ports, ProgramFolders folders);

  // The list, and with it the schedule, has been built at `now`. To be called after each build,
  // so that it is known since when each alarm has been watched.
  void ListBuilt(const AlarmSchedule& schedule, LocalTime now);

  // One tick of the timer. More ticks than one in a minute do no harm: all but the first end at
  // once, without the look for a new day. Only a list with new alarms of its own minute gets
  // another one. Plays nothing itself.
  [[nodiscard]] AlarmTick Tick(AlarmSchedule& schedule, std::vector<std::string_view>& list,
                               const AlarmOptions& options, LocalTime now);

  // How long to wait for the helping tick that makes sure that no minute goes by without one: it
  // is due 50 ms after the next full minute, or after this one when that is still to come and the
  // minute has had no tick, or 50 ms from now when the list has new alarms of its own minute. Never
  // more than a quarter of a minute, so that a sleep or a clock that is set is noticed soon. 1 to
  // kLongestTickWait.
  [[nodiscard]] int MillisecondsToNextTick(LocalTime now) const;

  // Plays the user's sound, in place of what is playing; the beep when there is no such file.
  void PlayAlarmSound();

  // Asks whether to quit although an alarm of today is still to come, where there is reason to
  // ask: not at a logout, not from a minimized window. The way to the editor is none to this
  // question, since the window only hides. True when the window may close.
  [[nodiscard]] bool MayClose(const AlarmSchedule& schedule, LocalTime now, WindowState window,
                              CloseReason reason);

  // The titles of the alarms that went off and that the user has not acknowledged, each between
  // line breaks (carriage return and line feed). Empty when there are none.
  [[nodiscard]] const std::string& AlarmText() const { return AlarmText_; }

  // The same for the screen, with line feeds alone.
  [[nodiscard]] std::string alarmMessages() const;

  // hhmm of the last tick that did work and of the last repeated sound; kNoMinute before.
  [[nodiscard]] int lastTickMinute() const { return lastTickMinute_; }
  [[nodiscard]] int lastBeepMinute() const { return lastBeepMinute_; }

  // --- The alarm window.
  [[nodiscard]] AlarmPlacement LoadAlarmPlacement(const Screens& screens);
  [[nodiscard]] ListFont ReadAlarmFont();

  // The user has maximized the window.
  void Maximized();

  // The mouse was released over the bare window.
  void SaveAlarmPlacement(const AlarmWindowState& window, const Screens& screens);

  // The window goes away, in whatever way: the place is saved, the messages are acknowledged and
  // the sound ends.
  void Unload(const AlarmWindowState& window, const Screens& screens);

 private:
  // An alarm of the schedule, by its index there.
  struct Watch {
    CivilDate date;
    std::string title;
    std::int64_t since = 0;  // only minutes after this one ring
  };
  // The titles of the alarms of a day that have rung. A title tells its time.
  struct RungOnDay {
    CivilDate date;
    std::set<std::string, std::less<>> titles;
  };

  [[nodiscard]] bool Knows(const AlarmSchedule& schedule) const;
  void Adopt(const AlarmSchedule& schedule, std::int64_t sinceOfNew);
  [[nodiscard]] bool IsDue(const Watch& watch, int time, LocalTime now) const;
  [[nodiscard]] bool HasRung(CivilDate date, std::string_view title) const;
  void MarkRung(const std::vector<const Watch*>& due, CivilDate today);

  AlarmPorts ports_;
  ProgramFolders folders_;
  std::string AlarmText_;
  std::vector<Watch> watches_;
  std::deque<RungOnDay> rung_;
  // The same minutes twice: with their date, and as hhmm.
  std::optional<std::int64_t> lastTick_;
  std::optional<std::int64_t> lastBeep_;
  int lastTickMinute_ = kNoMinute;
  int lastBeepMinute_ = kNoMinute;
  bool isStarted_ = false;
  bool awaitsTick_ = false;  // in the same minute as the last one
};

}  // namespace tidewarden
