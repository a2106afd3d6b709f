// The entry row of the events editor: what each of its controls holds and shows, and how that
// follows the kind of occurrence and what the user types. It knows no file and no message; the
// checks are in editor/event_checks.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "dates/date_text.h"
#include "editor/editor_placement.h"
#include "editor/observances.h"

namespace tidewarden {

struct LabelState {
  std::string caption;
  bool visible = false;
  bool enabled = true;
};
struct TextBoxState {
  std::string text;
  int maxLength = 0;  // in characters; typing and pasting stop there, the text may be longer
  bool visible = false;
  bool enabled = false;
};
struct ComboBoxState {
  int index = -1;  // -1: nothing chosen
  bool visible = false;
  bool enabled = false;
};
struct CheckBoxState {
  std::string caption;
  bool checked = false;
  bool visible = false;
  bool enabled = false;
};
struct ButtonState {
  std::string caption;  // "&" marks the accelerator; one character for glyph buttons
  std::string tooltip;
  bool visible = true;
  bool enabled = true;
};

enum class EntryMode { kIdle, kAdd, kEdit };

// A control that is to receive the focus.
enum class EditorFocus { kNone, kList1, kEventInput, kDateInput, kAdvanceInput };

// Whether a key that the entry row has looked at still goes to its box.
enum class KeyUse { kPassOn, kConsumed };

// The controls by their names. Only EventEntry changes them.
struct EntryRow {
  TextBoxState txtEventInput;
  TextBoxState txtDateInput;
  TextBoxState txtAdvanceInput;
  TextBoxState txtEveryInput;
  ComboBoxState cmbOccursInput;  // items: OccurrenceItems
  ComboBoxState cmbPopular;      // items: EditSession::observances; text without a choice:
                                 // "Popular Observances"
  CheckBoxState chkEveryMonth;
  LabelState lblEvent;
  LabelState lblDate;
  LabelState lblAdvance;
  LabelState lblOccurs;
  LabelState lblEvery;
  LabelState lblDays;
  LabelState lblDateExample;
  LabelState lblPopularObservances;
  ButtonState cmdSave;
  ButtonState cmdCancel;
  ButtonState cmdDelete;
  DateInputPlace datePlace;  // of txtDateInput and lblDate
};

// Which of the two optional hints the user wants.
struct EntryHints {
  bool popularArrow = false;
  bool dateExample = false;
};

// A typed text as the entry row takes it: line ends and other control characters become blanks,
// and a byte that is no UTF-8 becomes the character that it is in Windows-1252.
[[nodiscard]] std::string CleanText(std::string_view text);

class EventEntry {
 public:
  explicit EventEntry(RegionalDateFormat format);

  void SetHints(EntryHints hints) { hints_ = hints; }

  [[nodiscard]] const EntryRow& row() const { return row_; }
  [[nodiscard]] EntryMode mode() const { return mode_; }
  [[nodiscard]] int occursIndex() const { return row_.cmbOccursInput.index; }

  // Starts an entry. The boxes of a new event are empty but for `date` and `advance`; those of an
  // edit come from the listed row.
  void StartAdd(std::string_view date, std::string_view advance, int occursIndex);
  void StartEdit(std::string_view listedRow);

  // Ends it; the boxes keep their texts.
  void End();

  // The text of a box after typing or pasting: line ends and other control characters become
  // blanks, and what was put in is cut to the box's maximum length.
  void EventInputTyped(std::string_view text);
  void DateInputTyped(std::string_view text);
  void AdvanceInputTyped(std::string_view text);
  void EveryInputTyped(std::string_view text);

  // A character that is about to be typed into the date box: month names become numbers.
  KeyUse DateInputKey(std::string_view character);
  // The same help when the box loses the focus.
  void DateInputLeft();

  // The user ticks or unticks the box, chooses a kind or an observance.
  void EveryMonthClicked(bool checked);
  void SelectOccurs(int index);
  void PopularPicked(int index, const Observance& observance);

  // For the checks: what they correct in the boxes.
  void ReplaceTitle(std::string title) { row_.txtEventInput.text = std::move(title); }
  void ClearAdvance() { row_.txtAdvanceInput.text.clear(); }
  void ReplaceEvery(std::string count) { row_.txtEveryInput.text = std::move(count); }

 private:
  void SetEntryMode(bool on);
  void LayoutDateInput();
  void SetOccursFromCode(std::string_view code);
  void FillDateInput(std::string_view listedRow);
  void ShowOccursInputs();
  void ReplaceMonthName();

  RegionalDateFormat format_;
  EntryHints hints_;
  EntryRow row_;
  EntryMode mode_ = EntryMode::kIdle;
};

}  // namespace tidewarden
