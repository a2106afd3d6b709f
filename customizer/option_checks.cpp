#include "customizer/option_checks.h"

#include <algorithm>

#include "alarm/alarm_sound.h"
#include "core/random_numbers.h"
#include "core/settings_keys.h"
#include "customizer/draft_settings.h"
#include "dates/text.h"
#include "reminder/daily_quote.h"
#include "reminder/list_appearance.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::isNotFalse;
using modGetSetSaveSet::isTrue;
using modGetSetSaveSet::Save;
using modGetSetSaveSet::Setting;
using modGetSetSaveSet::Stored;
using modGetSetSaveSet::toBoolean;

// "50" or, where fractions are allowed, "75.5"; no more digits than a number can need.
bool IsNumber(std::string_view text, bool fractions) {
  constexpr std::size_t kMostDigits = 9;
  const std::size_t point = text.find('.');
  const bool whole = IsDigits(text.substr(0, point)) && text.size() <= kMostDigits;
  if (point == std::string_view::npos) return whole;
  return fractions && whole && IsDigits(text.substr(point + 1));
}

std::string Whole(double number) {
  return std::to_string(static_cast<long long>(number));
}

std::string CheckNumber(const Option& option, std::string_view text) {
  const std::string_view number = Trim(text);
  const double value = LeadingNumber(number);
  if (IsNumber(number, option.fractions) && value >= option.least && value <= option.most) {
    return {};
  }
  return "Type a number from " + Whole(option.least) + " to " + Whole(option.most) + ".";
}

// hhmm of "0630", "630", "06:30" or "6:30"; -1 for anything else.
int TimeOf(std::string_view text) {
  text = Trim(text);
  std::string digits(text);
  const std::size_t colon = digits.find(':');
  if (colon != std::string::npos) {
    if (colon == 0 || digits.size() != colon + 3) return -1;
    digits.erase(colon, 1);
  }
  if (digits.size() < 3 || digits.size() > 4) return -1;
  const int time = DigitsValue(digits);
  return time >= 0 && time < 2400 && time % 100 < 60 ? time : -1;
}

std::string CheckColours(std::string_view text) {
  const std::string name = ToLower(text);
  const auto names = ColourNames();
  const bool isName = std::any_of(names.begin(), names.end(),
                                  [&name](const Choice& choice) { return choice.stored == name; });
  if (isName || ColoursOf(name).text) return {};
  return "These colours are not known; the list has the colours of the desktop.";
}

bool IsFullPath(std::string_view path, PathStyle style) {
  if (style == PathStyle::kPosix) return path.starts_with('/');
  return path.starts_with('\\') || path.starts_with('/') || path.substr(1, 1) == ":";
}

bool HasFolder(std::string_view path) {
  return path.find_first_of("\\/") != std::string_view::npos;
}

std::string_view FolderOf(std::string_view path) {
  const std::size_t slash = path.find_last_of("\\/");
  if (slash == std::string_view::npos) return {};
  return path.substr(0, slash == 0 ? 1 : slash);
}

std::string WantsWholePath(PathStyle style) {
  return style == PathStyle::kPosix ? "Type the whole path, from the first / on."
                                    : "Type the whole path, with its drive.";
}

Status TryToRead(FileSystem& files, const std::string& path) {
  return files.Read(path, [](std::string_view) { return false; });
}

// Why a file cannot be used, as a sentence.
std::string Sentence(const Status& status, std::string_view path) {
  switch (status.kind()) {
    case StatusKind::kNotFound:
      return "There is no file " + std::string(path) + ".";
    case StatusKind::kIsFolder:
      return "This is a folder. Add the name of a file.";
    default:
      return "This file cannot be read: " + DescribeStatus(status) + ".";
  }
}

// A draft with a value for one key.
DraftSettings DraftWith(SettingsStore& settings, const Setting& setting, std::string_view text) {
  DraftSettings draft(settings);
  Save(draft, setting, std::string(text));
  return draft;
}

std::string CheckEventsFile(std::string_view text, const PathSurroundings& paths) {
  const bool isBare = !HasFolder(text) || text.starts_with('\\');
  if (!isBare && !IsFullPath(text, paths.folders.style)) {
    return WantsWholePath(paths.folders.style);
  }
  // As it stands it may be a folder, to which the program would add an ending.
  if (TryToRead(paths.files, std::string(text)).kind() == StatusKind::kIsFolder) {
    return Sentence(Status(StatusKind::kIsFolder), text);
  }
  DraftSettings draft = DraftWith(paths.settings, settings::kPath, text);
  const std::string path = LocateEventsFile(draft, paths.files, paths.folders);
  const Status status = TryToRead(paths.files, path);
  if (status.ok()) return {};
  if (status.kind() != StatusKind::kNotFound) return Sentence(status, path);
  // The program begins a new file where there is none; in a folder that is there.
  const std::string folder(FolderOf(path));
  if (folder == paths.folders.userData) return {};
  if (paths.files.CanCreateIn(folder)) return {};
  FileStamp stamp;
  if (!paths.files.GetStamp(folder, stamp).ok()) return "There is no folder " + folder + ".";
  return "There is no such file, and none can be made in " + folder + ".";
}

std::string CheckSoundFile(std::string_view text, const PathSurroundings& paths) {
  const bool isBare = !HasFolder(text) || text.starts_with('\\');
  if (!isBare && !IsFullPath(text, paths.folders.style)) {
    return WantsWholePath(paths.folders.style);
  }
  DraftSettings draft = DraftWith(paths.settings, settings::kAlarmPath, text);
  std::string path;
  const Status status = LocateAlarmSound(draft, paths.files, paths.folders, path);
  return status.ok() ? std::string() : Sentence(status, path);
}

// A quote read from the file by the reminder's own reader.
bool HasQuotes(SettingsStore& draft, const PathSurroundings& paths) {
  Save(draft, settings::kShowDailyQuotes, "True");
  SplitMixNumbers random;
  DailyQuote quote(draft, paths.files, random, paths.folders);
  quote.LoadDailyQuote({});
  return quote.visible();
}

std::string CheckQuotesFile(std::string_view text, const PathSurroundings& paths) {
  const bool isBare = !HasFolder(text) || text.starts_with('\\');
  if (!isBare && !IsFullPath(text, paths.folders.style)) {
    return WantsWholePath(paths.folders.style);
  }
  DraftSettings draft = DraftWith(paths.settings, settings::kQuotesPath, text);
  if (HasQuotes(draft, paths)) return {};
  const std::string path = FromProgramFolder(text, paths.folders);
  const Status status = TryToRead(paths.files, path);
  return status.ok() ? "There are no quotes in this file." : Sentence(status, path);
}

std::string DefaultEventsFile(const PathSurroundings& paths) {
  DraftSettings draft = DraftWith(paths.settings, settings::kPath, "");
  return LocateEventsFile(draft, paths.files, paths.folders);
}

// What a reader stores when it finds nothing.
std::string DefaultSoundFile(const PathSurroundings& paths) {
  DraftSettings draft = DraftWith(paths.settings, settings::kAlarmPath, "");
  std::string path;
  static_cast<void>(LocateAlarmSound(draft, paths.files, paths.folders, path).ok());
  return Stored(draft, settings::kAlarmPath);
}

std::string DefaultQuotesFile(const PathSurroundings& paths) {
  DraftSettings draft = DraftWith(paths.settings, settings::kQuotesPath, "");
  static_cast<void>(HasQuotes(draft, paths));
  return Stored(draft, settings::kQuotesPath);
}

}  // namespace

std::string CheckOption(const Option& option, std::string_view text,
                        const PathSurroundings& paths) {
  if (text.empty()) return {};
  switch (option.kind) {
    case OptionKind::kNumber:
      return CheckNumber(option, text);
    case OptionKind::kTime:
      return TimeOf(text) >= 0 ? "" : "Type a time of day such as 0630.";
    case OptionKind::kColours:
      return CheckColours(text);
    case OptionKind::kEventsFile:
      return CheckEventsFile(text, paths);
    case OptionKind::kSoundFile:
      return CheckSoundFile(text, paths);
    case OptionKind::kQuotesFile:
      return CheckQuotesFile(text, paths);
    case OptionKind::kSwitch:
    case OptionKind::kChoice: {
      const bool known = option.kind == OptionKind::kSwitch
                             ? EqualIgnoringCase(text, "true") || EqualIgnoringCase(text, "false")
                             : ChoiceOf(option, text) >= 0;
      return known ? "" : "The settings say \"" + std::string(text) + "\" here.";
    }
    case OptionKind::kFont:
    case OptionKind::kText:
      break;
  }
  return {};
}

std::string StorableText(const Option& option, std::string_view text) {
  if (option.kind == OptionKind::kNumber) return std::string(Trim(text));
  if (option.kind != OptionKind::kTime) return std::string(text);
  const int time = TimeOf(text);
  std::string out;
  if (time >= 0) AppendNumber(out, time, 4);
  return time < 0 ? std::string(text) : out;
}

std::string MisreadTime(const Option& option, std::string_view text) {
  const std::string meant = StorableText(option, text);
  if (option.kind != OptionKind::kTime || TimeOf(text) < 0 ||
      LeadingNumber(text) == LeadingNumber(meant)) {
    return {};
  }
  return "The settings say \"" + std::string(text) +
         "\", which the reminder does not read as this time. Type " + meant + ".";
}

std::string DefaultOf(const Option& option, const PathSurroundings& paths) {
  switch (option.kind) {
    case OptionKind::kEventsFile:
      return DefaultEventsFile(paths);
    case OptionKind::kSoundFile:
      return DefaultSoundFile(paths);
    case OptionKind::kQuotesFile:
      return DefaultQuotesFile(paths);
    default:
      return std::string(option.setting.defaultValue);
  }
}

bool ReadSwitch(const Option& option, std::string_view stored) {
  const std::string value = ToLower(stored);
  switch (option.reading) {
    case SwitchReading::kOnlyTrue:
      return isTrue(value);
    case SwitchReading::kTextToBoolean:
      return toBoolean(value, option.setting.defaultValue == "True");
    case SwitchReading::kNotFalse:
      break;
  }
  return isNotFalse(value);
}

int ChoiceOf(const Option& option, std::string_view stored) {
  const auto found = std::find_if(
      option.choices.begin(), option.choices.end(),
      [stored](const Choice& choice) { return EqualIgnoringCase(choice.stored, stored); });
  return found == option.choices.end() ? -1 : static_cast<int>(found - option.choices.begin());
}

}  // namespace tidewarden
