// The quote below the reminder list: picked at random out of a text file whenever the list is
// built, another one with every click. Off unless the user turns it on.
//
// A quotes file holds one quote on each line, in UTF-8 or Windows-1252 and with any line ends.
// Empty lines and lines that begin with "//" do not count. "¬" stands for a line break within a
// quote. At most 4 MiB and 32,768 quotes are read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/events_path.h"
#include "core/file_system.h"
#include "core/random_numbers.h"
#include "core/settings_store.h"
#include "dates/civil.h"

namespace tidewarden {

class DailyQuote {
 public:
  // The height that the window keeps for the quote while one is shown, in twips.
  static constexpr int kReserveTwips = 1515;

  // Everything outlives the quote. Hidden until LoadDailyQuote.
  DailyQuote(SettingsStore& settings, FileSystem& files, RandomNumbers& random,
             ProgramFolders folders);

  // The last step of every list build: reads the settings and the file afresh, seeds the random
  // numbers from the time of day and picks a quote. Hidden when the option is off, when there is
  // no file, when it cannot be read as text and when no quote is in it; nothing is reported. For
  // where the path in the settings leads see FromProgramFolder.
  //
  // The quote is number Int(r × quoteLastIndex), so of several quotes the last is never picked.
  void LoadDailyQuote(LocalTime now);

  // A click on the quote: picks one in the same way with the next random number. Does nothing
  // while no quote is shown.
  void ShowAnother();

  [[nodiscard]] bool visible() const { return isVisible_; }

  // The quote in UTF-8, its lines separated by CR LF. Plain text, whatever it looks like.
  [[nodiscard]] const std::string& text() const { return text_; }

  // kReserveTwips while visible, else 0.
  [[nodiscard]] int reserveTwips() const { return isVisible_ ? kReserveTwips : 0; }

  // The quotes as they were last loaded, in the order of the file, and the index of the last one,
  // -1 when there are none.
  [[nodiscard]] const std::vector<std::string>& quotes() const { return quotes_; }
  [[nodiscard]] std::int16_t quoteLastIndex() const {
    return static_cast<std::int16_t>(static_cast<int>(quotes_.size()) - 1);
  }

 private:
  void Pick();

  SettingsStore& settings_;
  FileSystem& files_;
  RandomNumbers& random_;
  ProgramFolders folders_;
  std::vector<std::string> quotes_;
  std::string text_;
  bool isVisible_ = false;
};

}  // namespace tidewarden
