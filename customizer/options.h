// The table of everything that a user can choose: where it is stored, what it may hold, and how it
// is called in plain words. The session and the window are made from it.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "core/get_set_save_set.h"

namespace tidewarden {

enum class OptionKind {
  kSwitch,      // "True" or "False"
  kChoice,      // one of `choices`
  kNumber,      // `least` to `most`
  kTime,        // a time of day, stored as hhmm
  kColours,     // a name of ColoursOf, "random", or a custom pair
  kFont,        // the name of a font
  kEventsFile,  // paths; each with the rules of its reader
  kSoundFile,
  kQuotesFile,
  kText,
};

// How the programs read a switch: they do not agree on a text that is neither.
enum class SwitchReading { kOnlyTrue, kNotFalse, kTextToBoolean };

enum class OptionPage { kList, kLooks, kAlarms, kEditor, kPrinting, kFiles, kStart };
inline constexpr std::size_t kPageCount = 7;

// The heading of a page, and the word by which the command line asks for it.
struct PageName {
  OptionPage page;
  std::string_view heading;
  std::string_view word;
};
[[nodiscard]] std::span<const PageName, kPageCount> AllPages();

struct Choice {
  std::string_view stored;
  std::string_view label;
};

struct Option {
  // With the default that its readers pass; empty for a path, whose default depends on the
  // program's folder.
  modGetSetSaveSet::Setting setting;
  OptionKind kind = OptionKind::kSwitch;
  OptionPage page = OptionPage::kList;
  std::string_view group;  // the heading above it on its page, where a new group begins; or empty
  std::string_view label;
  std::string_view help;  // one line, or the end of one that the session begins
  SwitchReading reading = SwitchReading::kNotFalse;
  std::span<const Choice> choices{};
  double least = 0;
  double most = 0;
  bool fractions = false;
};

// In the order in which they are shown, page by page.
[[nodiscard]] std::span<const Option> AllOptions();

// The key without its section, such as "FontSize"; no two options share one.
[[nodiscard]] std::string_view NameOf(const Option& option);

// The option of that name; AllOptions().size() when there is none.
[[nodiscard]] std::size_t IndexOfOption(std::string_view name);

// The named schemes of the list's colours, "system" and "random" included, with their labels.
[[nodiscard]] std::span<const Choice> ColourNames();

}  // namespace tidewarden
