// The state behind the options window, without the window: every option with its stored and its
// new value, what is wrong with it, saving, the preview, and what is left for the reminder program.
//
// The window reads a control, calls one function and shows again what the session then holds.
// Nothing is stored before Save, and then all settings or none.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alarm/sound_player.h"
#include "core/autostart.h"
#include "customizer/draft_settings.h"
#include "customizer/list_preview.h"
#include "customizer/option_checks.h"
#include "customizer/options.h"
#include "reminder/previous_instance.h"

namespace tidewarden {

// What the session asks of the world. Everything outlives the session.
struct CustomizerPorts {
  SettingsStore& settings;
  FileSystem& files;
  FileSystem& examples;  // in memory, for the preview
  const Clock& clock;
  const RegionalFormats& formats;
  SoundPlayer& sound;
  MessageBox& messages;
  Autostart& autostart;
  PreviousInstance& reminder;  // only asked whether the program runs, never claimed
  ProgramFolders folders;
};

// What stands beside a field.
struct OptionNote {
  std::string text;      // empty for nothing
  bool refuses = false;  // the value cannot be saved; else it only tells what is stored
};

enum class SaveOutcome {
  kSaved,    // everything is stored, or there was nothing to store
  kRefused,  // a value is wrong: see firstRefused and the notes; nothing has been stored
  kFailed,   // the user has been told what could not be stored, and why
};

// Why the window closes.
enum class OptionsClosing { kDone, kByHand, kLoginSessionEnds };

class OptionsSession {
 public:
  // Reads every option; writes nothing. `eventsFile` is previewed in place of the user's own
  // events when it is not empty.
  explicit OptionsSession(CustomizerPorts ports, std::string eventsFile = {});

  // --- The options, by their index in AllOptions().

  // As it is stored, as the user has changed it, or the default where nothing is stored.
  [[nodiscard]] const std::string& Text(std::size_t option) const;
  [[nodiscard]] bool IsOn(std::size_t option) const;
  // The choices of an option of that kind, or of the colours; first the stored text where it is
  // none of them. And the place of the present text among them.
  [[nodiscard]] std::vector<Choice> Choices(std::size_t option) const;
  [[nodiscard]] std::size_t ChosenOf(std::size_t option) const;
  // The line of help, with the default; for a sound, with the kinds of file that play here.
  [[nodiscard]] std::string Help(std::size_t option) const;
  [[nodiscard]] const OptionNote& Note(std::size_t option) const;

  // The user changes an option. A note that refuses goes as soon as the value is right.
  void SetText(std::size_t option, std::string_view text);
  void SetOn(std::size_t option, bool on);
  // The user has left the field: its value is looked at.
  void Look(std::size_t option);

  // --- The colours of the list.

  // Both are given for a custom pair only.
  [[nodiscard]] ListColours OwnColours() const;
  // Those of the preview; black and white stand for the desktop's own.
  [[nodiscard]] ListColours ShownColours();
  // The colours that are shown become the custom pair.
  void UseOwnColours();
  void SetOwnColours(Colour text, Colour background);

  // --- The start with the computer.

  [[nodiscard]] bool startsWithComputer() const;
  void SetStartsWithComputer(bool on);
  // Looks again whether it is so; what the user has changed stays.
  void LookAtAutostart();

  // --- The sound of the alarm, from the file that is typed.

  // What is wrong with the file is noted beside it, and the beep sounds, as at an alarm.
  void PlaySound();
  void StopSound();
  // The player says while it begins why it beeps in place of the file.
  void TellSoundProblem(std::string_view problem);

  // As SoundPlayer gives them.
  [[nodiscard]] std::vector<std::string> SoundEndings() const;

  // --- The preview.

  // Whether it shows example events; so it does at first when there is no event to show.
  [[nodiscard]] bool showsExamples() const { return showsExamples_; }
  void ShowExamples(bool examples);
  [[nodiscard]] const ListPreview& preview();
  // The skin of the windows as it would be; empty for none.
  [[nodiscard]] std::string skin();

  // --- Saving and closing.

  [[nodiscard]] bool hasChanges() const;
  [[nodiscard]] SaveOutcome Save();
  // The first option whose note refuses.
  [[nodiscard]] std::optional<std::size_t> firstRefused() const;
  // True when the window may close: a change that would be lost is asked about unless the user
  // has decided already. Leaves word for the reminder program's next start: "true" when it has to
  // be started anew to show what was saved, else "false". While a copy runs to which nothing is
  // news, no word is left: it would silence every second start for as long as that copy runs. To a
  // copy that was started after the last save nothing is news.
  [[nodiscard]] bool Close(OptionsClosing why);

  // Saves, leaves word and starts the reminder program; when it runs already and has nothing to
  // hear, the user is told where it is. False when the window is to stay.
  [[nodiscard]] bool ReturnToReminder();

  // Whether a copy of the reminder program runs, as of the last look.
  [[nodiscard]] bool reminderRuns() const { return reminderRuns_; }
  void LookAtReminder();

  // Opens the guide at the options beside this program; the user is told when that fails.
  void ShowHelp();

  // Starts the help program; false when that cannot be done. Set by the program.
  std::function<bool()> StartHelp;
  // Starts the reminder program; false when that cannot be done. Set by the program.
  std::function<bool()> StartReminder;

 private:
  struct Value {
    std::string shown;  // when the options were read
    std::string text;   // now
    OptionNote note;
    [[nodiscard]] bool isChanged() const { return text != shown; }
  };

  void Read();
  void ReadColours();
  [[nodiscard]] DraftSettings Draft() const;
  [[nodiscard]] PathSurroundings Paths() const;
  [[nodiscard]] PreviewPorts ForPreview() const;
  [[nodiscard]] OptionNote NoteOf(std::size_t option) const;
  void Tell(const std::string& text);
  [[nodiscard]] Status StoreSettings();
  void LeaveWord();

  CustomizerPorts ports_;
  std::string eventsFile_;
  std::vector<Value> values_;
  bool hasOldColours_ = false;  // an older setting holds them
  bool autostart_ = false;      // as it is
  std::optional<bool> wantedAutostart_;
  bool showsExamples_ = false;
  std::optional<ListPreview> preview_;
  bool hasReturned_ = false;  // to the reminder program, which has been left word
  bool reminderRuns_ = false;
};

}  // namespace tidewarden
