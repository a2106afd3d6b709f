#include "customizer/options_session.h"

#include <algorithm>
#include <array>
#include <utility>

#include "alarm/alarm_sound.h"
#include "core/settings_keys.h"
#include "core/skin.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::isTrue;
using modGetSetSaveSet::Stored;

// Stands in the settings from a save until the window closes. A reminder program that starts on
// what was saved removes it, as it removes every word; to a second start it says nothing.
constexpr char kSavedNotLeft[] = "saved";

constexpr std::string_view kStays = " The setting stays as it is until you change it.";

const Option& OptionAt(std::size_t option) {
  return AllOptions()[option];
}

std::size_t Colours() {
  return IndexOfOption("ReminderListColors");
}

std::string HexPair(Colour text, Colour background) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  for (const std::uint8_t part :
       {text.red, text.green, text.blue, background.red, background.green, background.blue}) {
    if (out.size() == 6) out.push_back(',');
    out.push_back(kDigits[part / 16]);
    out.push_back(kDigits[part % 16]);
  }
  return out;
}

// "A wav, ogg or mp3 file. "
std::string KindsOfFile(const std::vector<std::string>& endings) {
  std::string text = "A ";
  for (std::size_t i = 0; i < endings.size(); ++i) {
    if (i > 0) text += i + 1 < endings.size() ? ", " : " or ";
    text += endings[i];
  }
  return text + " file. ";
}

// How a default is called in the line of help.
std::string DefaultWords(const Option& option, const PathSurroundings& paths) {
  std::string text = DefaultOf(option, paths);
  if (option.kind == OptionKind::kSwitch) return ReadSwitch(option, text) ? "on" : "off";
  const std::span<const Choice> choices =
      option.kind == OptionKind::kColours ? ColourNames() : option.choices;
  for (const Choice& choice : choices) {
    if (choice.stored == text) {
      return ToLower(choice.label.substr(0, 1)).append(choice.label.substr(1));
    }
  }
  return text;
}

}  // namespace

OptionsSession::OptionsSession(CustomizerPorts ports, std::string eventsFile)
    : ports_(std::move(ports)), eventsFile_(std::move(eventsFile)) {
  Read();
  LookAtAutostart();
  LookAtReminder();
  const bool listsToday = IsOn(IndexOfOption("ListTodayWithEvents"));
  showsExamples_ = preview().rows.size() <= (listsToday ? 1U : 0U);
  preview_.reset();
}

void OptionsSession::Read() {
  values_.assign(AllOptions().size(), {});
  for (std::size_t i = 0; i < values_.size(); ++i) {
    std::string stored = Stored(ports_.settings, OptionAt(i).setting);
    if (stored.empty()) stored = DefaultOf(OptionAt(i), Paths());
    values_[i] = {stored, stored, {}};
  }
  ReadColours();
  for (std::size_t i = 0; i < values_.size(); ++i) values_[i].note = NoteOf(i);
  preview_.reset();
}

// An older setting still takes the place of the present one when the reminder reads its colours.
void OptionsSession::ReadColours() {
  DraftSettings draft(ports_.settings);
  hasOldColours_ = !Stored(draft, settings::kReminderListBackColor).empty();
  if (!hasOldColours_) return;
  SplitMixNumbers random;
  static_cast<void>(ApplyListColors(draft, random, {}));
  const std::string text = Stored(draft, settings::kReminderListColors);
  values_[Colours()] = {text, text, {}};
}

PathSurroundings OptionsSession::Paths() const {
  return {ports_.settings, ports_.files, ports_.folders};
}

PreviewPorts OptionsSession::ForPreview() const {
  return {ports_.files,   ports_.examples, ports_.clock,
          ports_.formats, ports_.messages, ports_.folders};
}

DraftSettings OptionsSession::Draft() const {
  DraftSettings draft(ports_.settings);
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (!values_[i].isChanged()) continue;
    modGetSetSaveSet::Save(draft, OptionAt(i).setting, values_[i].text);
    if (i == Colours()) modGetSetSaveSet::Delete(draft, settings::kReminderListBackColor);
  }
  return draft;
}

const std::string& OptionsSession::Text(std::size_t option) const {
  return values_.at(option).text;
}

bool OptionsSession::IsOn(std::size_t option) const {
  return ReadSwitch(OptionAt(option), Text(option));
}

std::vector<Choice> OptionsSession::Choices(std::size_t option) const {
  const Option& o = OptionAt(option);
  const auto known = o.kind == OptionKind::kColours ? ColourNames() : o.choices;
  std::vector<Choice> choices(known.begin(), known.end());
  // The stored text is offered for as long as it is stored, so that it can be had back.
  const std::string& stored = values_.at(option).shown;
  const bool isKnown = std::any_of(known.begin(), known.end(), [&stored](const Choice& choice) {
    return EqualIgnoringCase(choice.stored, stored);
  });
  const bool isPair = o.kind == OptionKind::kColours && ColoursOf(ToLower(stored)).text;
  if (!isKnown && !isPair) choices.insert(choices.begin(), {stored, stored});
  return choices;
}

std::size_t OptionsSession::ChosenOf(std::size_t option) const {
  const std::vector<Choice> choices = Choices(option);
  const auto found = std::find_if(choices.begin(), choices.end(), [&](const Choice& choice) {
    return EqualIgnoringCase(choice.stored, Text(option));
  });
  return static_cast<std::size_t>(found - choices.begin());
}

std::string OptionsSession::Help(std::size_t option) const {
  const Option& o = OptionAt(option);
  const std::string kinds = o.kind == OptionKind::kSoundFile ? KindsOfFile(SoundEndings()) : "";
  return kinds + std::string(o.help) + " Default: " + DefaultWords(o, Paths()) + ".";
}

std::vector<std::string> OptionsSession::SoundEndings() const {
  return ports_.sound.Endings();
}

const OptionNote& OptionsSession::Note(std::size_t option) const {
  return values_.at(option).note;
}

// What is stored is told; what the user has typed can be refused.
OptionNote OptionsSession::NoteOf(std::size_t option) const {
  const Value& value = values_.at(option);
  std::string text = CheckOption(OptionAt(option), value.text, Paths());
  if (text.empty() && !value.isChanged()) text = MisreadTime(OptionAt(option), value.text);
  if (text.empty()) return {};
  if (value.isChanged()) return {std::move(text), true};
  return {text.append(kStays), false};
}

void OptionsSession::SetText(std::size_t option, std::string_view text) {
  Value& value = values_.at(option);
  if (value.text == text) return;
  value.text = text;
  // While somebody is typing, a value is not yet wrong, but it may be right again.
  const OptionNote now = NoteOf(option);
  const bool wasRefused = value.note.refuses;
  value.note = now.refuses && !wasRefused ? OptionNote() : now;
  preview_.reset();
}

void OptionsSession::SetOn(std::size_t option, bool on) {
  if (on != IsOn(option)) SetText(option, on ? "True" : "False");
}

void OptionsSession::Look(std::size_t option) {
  values_.at(option).note = NoteOf(option);
}

ListColours OptionsSession::OwnColours() const {
  const std::string text = ToLower(Text(Colours()));
  const auto names = ColourNames();
  const bool isName = std::any_of(names.begin(), names.end(),
                                  [&text](const Choice& choice) { return choice.stored == text; });
  return isName ? ListColours() : ColoursOf(text);
}

ListColours OptionsSession::ShownColours() {
  constexpr Colour kBlack{0, 0, 0};
  constexpr Colour kWhite{255, 255, 255};
  const ListColours& shown = preview().colours;
  return {shown.text.value_or(kBlack), shown.background.value_or(kWhite)};
}

void OptionsSession::UseOwnColours() {
  const ListColours shown = ShownColours();
  SetOwnColours(*shown.text, *shown.background);
}

void OptionsSession::SetOwnColours(Colour text, Colour background) {
  SetText(Colours(), HexPair(text, background));
}

bool OptionsSession::startsWithComputer() const {
  return wantedAutostart_.value_or(autostart_);
}

void OptionsSession::SetStartsWithComputer(bool on) {
  wantedAutostart_ = on;
}

void OptionsSession::LookAtAutostart() {
  autostart_ = ports_.autostart.IsOn();
}

void OptionsSession::PlaySound() {
  Look(IndexOfOption("AlarmPath"));
  DraftSettings draft = Draft();
  std::string path;
  const Status status = LocateAlarmSound(draft, ports_.files, ports_.folders, path);
  if (status.ok()) {
    ports_.sound.Play(path, SoundKindOf(path));
  } else {
    ports_.sound.Beep(path + ": " + DescribeStatus(status));
  }
}

void OptionsSession::TellSoundProblem(std::string_view problem) {
  OptionNote& note = values_.at(IndexOfOption("AlarmPath")).note;
  if (!note.text.empty()) return;
  note = {"You hear the beep of the system: " + std::string(problem) + ".", false};
}

void OptionsSession::StopSound() {
  ports_.sound.Stop();
}

void OptionsSession::ShowExamples(bool examples) {
  showsExamples_ = examples;
  preview_.reset();
}

const ListPreview& OptionsSession::preview() {
  if (!preview_) {
    DraftSettings draft = Draft();
    if (showsExamples_) {
      preview_ = MakeExamplePreview(draft, ForPreview());
    } else {
      const std::string path =
          eventsFile_.empty() ? LocateEventsFile(draft, ports_.files, ports_.folders) : eventsFile_;
      preview_ = MakeListPreview(draft, ForPreview(), path);
    }
  }
  return *preview_;
}

std::string OptionsSession::skin() {
  DraftSettings draft = Draft();
  return ReadSkin(draft, ports_.files, ports_.folders);
}

bool OptionsSession::hasChanges() const {
  return startsWithComputer() != autostart_ ||
         std::any_of(values_.begin(), values_.end(),
                     [](const Value& value) { return value.isChanged(); });
}

std::optional<std::size_t> OptionsSession::firstRefused() const {
  const auto found = std::find_if(values_.begin(), values_.end(),
                                  [](const Value& value) { return value.note.refuses; });
  if (found == values_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - values_.begin());
}

void OptionsSession::Tell(const std::string& text) {
  ports_.messages.Show(text, MessageButtons::kOk, MessageIcon::kExclamation);
}

// The entry of the desktop comes last: what it said before could not be put back.
SaveOutcome OptionsSession::Save() {
  for (std::size_t i = 0; i < values_.size(); ++i) Look(i);
  if (firstRefused()) return SaveOutcome::kRefused;
  LookAtAutostart();
  if (!hasChanges()) return SaveOutcome::kSaved;
  Status status = StoreSettings();
  if (!status.ok()) {
    Tell("Nothing has been saved: " + DescribeStatus(status) + ".");
    return SaveOutcome::kFailed;
  }
  Read();
  if (startsWithComputer() != autostart_) status = ports_.autostart.Set(startsWithComputer());
  if (!status.ok()) {
    Tell("The start with the computer cannot be changed: " + DescribeStatus(status) +
         ".\n\nEverything else has been saved.");
    return SaveOutcome::kFailed;
  }
  wantedAutostart_.reset();
  LookAtAutostart();
  return SaveOutcome::kSaved;
}

Status OptionsSession::StoreSettings() {
  std::vector<std::pair<std::string, std::string>> changes;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (!values_[i].isChanged()) continue;
    const Option& option = OptionAt(i);
    changes.emplace_back(option.setting.key, StorableText(option, values_[i].text));
    // The older setting would win over what the user has chosen.
    if (i == Colours() && hasOldColours_) {
      changes.emplace_back(settings::kReminderListBackColor.key, "");
    }
  }
  if (changes.empty()) return {};
  if (!isTrue(modGetSetSaveSet::Get(ports_.settings, settings::kJustExited))) {
    changes.emplace_back(settings::kJustExited.key, kSavedNotLeft);
  }
  return modGetSetSaveSet::SaveAll(ports_.settings, changes);
}

void OptionsSession::LookAtReminder() {
  reminderRuns_ = ports_.reminder.IsClaimedByAnother();
}

void OptionsSession::LeaveWord() {
  LookAtReminder();
  const std::string word = modGetSetSaveSet::Get(ports_.settings, settings::kJustExited);
  // Word of an earlier run that nobody has heard yet still holds.
  if (word == kSavedNotLeft || isTrue(word)) {
    modGetSetSaveSet::Save(ports_.settings, settings::kJustExited, "true");
  } else if (!reminderRuns_) {
    modGetSetSaveSet::Save(ports_.settings, settings::kJustExited, "false");
  } else if (!word.empty()) {
    modGetSetSaveSet::Delete(ports_.settings, settings::kJustExited);
  }
}

bool OptionsSession::Close(OptionsClosing why) {
  const bool asks = why == OptionsClosing::kByHand && hasChanges();
  if (asks && ports_.messages.Show("Your changes have not been saved.\n\nClose without saving?",
                                   MessageButtons::kYesNo,
                                   MessageIcon::kExclamation) != MessageAnswer::kYes) {
    return false;
  }
  StopSound();
  // The reminder program that was started has heard the word, and may have removed it already.
  if (!hasReturned_) LeaveWord();
  return true;
}

void OptionsSession::ShowHelp() {
  if (!StartHelp || !StartHelp()) Tell("The help program could not be started.");
}

bool OptionsSession::ReturnToReminder() {
  if (Save() != SaveOutcome::kSaved) return false;
  // It reads the word as it starts.
  LeaveWord();
  if (reminderRuns_ && modGetSetSaveSet::Get(ports_.settings, settings::kJustExited).empty()) {
    ports_.messages.Show(
        "Tidewarden is running already. If you do not see its window, a click on its icon in the "
        "notification area brings it back.",
        MessageButtons::kOk, MessageIcon::kNone);
    return true;
  }
  hasReturned_ = StartReminder && StartReminder();
  if (!hasReturned_) Tell("The reminder program could not be started.");
  return hasReturned_;
}

}  // namespace tidewarden
