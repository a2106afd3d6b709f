// The options with everything around them in memory.
#pragma once

#include <optional>
#include <string>

#include "customizer/options_session.h"
#include "dates/regional_text.h"
#include "platform/memory/memory_autostart.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/memory_sound.h"

namespace tidewarden::test {

inline const std::string kProgram = "/opt/tidewarden";
inline const std::string kEventsPath = "/home/ann/dates.txt";
inline const std::string kSoundPath = kProgram + "/alarms/emergency.wav";
inline const std::string kQuotesPath = kProgram + "/Quotes/Inspiration.txt";
inline const std::string kSkinPath = kProgram + "/winaqua.skn";

class OptionsDesk {
 public:
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryFileSystem examples;
  MemoryClock clock;  // 22 December 2014, 14:25
  PatternRegionalFormats formats{"MM/dd/yyyy"};
  MemorySoundPlayer sound;
  MemoryMessageBox messages;
  MemoryAutostart autostart;
  MemoryPreviousInstance reminder;
  ProgramFolders folders{kProgram, "/home/ann/.local/share/Tideward", PathStyle::kPosix};

  OptionsDesk() {
    files.files[kEventsPath] = "12.22,Dentist 3:30pm,7,yearly\r\n12.25,Christmas,14,yearly\r\n";
    files.files[kSoundPath] = "RIFF";
    files.files[kQuotesPath] = "One\r\nTwo\r\n";
    files.files[kSkinPath] = "QPushButton { color: #ffffff; }";
    files.unwritableFolders.push_back(kProgram);
    Set("Settings", "Path", kEventsPath);
  }

  void Set(const std::string& section, const std::string& name, const std::string& value) {
    static_cast<void>(settings.Write(section, name, value).ok());
    settings.writes = 0;
  }

  [[nodiscard]] CustomizerPorts Ports() {
    return {settings, files,    examples,  clock,    formats,
            sound,    messages, autostart, reminder, folders};
  }

  // Made when first asked for, so that a test can set everything before.
  OptionsSession& session() {
    if (!session_) session_.emplace(Ports());
    return *session_;
  }

  // The program is started once more.
  OptionsSession& Reopen() {
    session_.reset();
    return session();
  }

  // By the options' names.
  [[nodiscard]] std::string Text(std::string_view name) {
    return session().Text(IndexOfOption(name));
  }
  [[nodiscard]] bool IsOn(std::string_view name) { return session().IsOn(IndexOfOption(name)); }
  [[nodiscard]] const OptionNote& Note(std::string_view name) {
    return session().Note(IndexOfOption(name));
  }
  void Type(std::string_view name, std::string_view text) {
    session().SetText(IndexOfOption(name), text);
  }
  void Tick(std::string_view name, bool on) { session().SetOn(IndexOfOption(name), on); }

 private:
  std::optional<OptionsSession> session_;
};

}  // namespace tidewarden::test
