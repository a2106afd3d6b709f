// The state behind the events editor, without its window: the list of events, the entry row, the
// checks, saving and deleting. The window reads its controls, calls one function of the session
// and shows what the session then holds.
//
// Every function is named after what the user did. Any of them may show message boxes (through
// the port) before it returns and may change every value below; the window shows them all again
// afterwards and gives the focus to TakeFocus(). The clock is read once in each function.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/clock.h"
#include "core/file_system.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "dates/date_text.h"
#include "editor/editor_placement.h"
#include "editor/event_entry.h"
#include "editor/event_list.h"
#include "editor/event_rows.h"
#include "editor/events_writer.h"
#include "editor/occurrence_codes.h"

namespace tidewarden {

// What the session asks of the world. Everything outlives the session.
struct EditPorts {
  SettingsStore& settings;
  FileSystem& files;
  const Clock& clock;
  MessageBox& messages;
};

// What other parts of the program do for the editor. Any may be empty.
struct EditorHooks {
  std::function<void(const std::vector<EventRow>& rows)> print;
  std::function<void()> help;
  std::function<void()> options;       // changes to the options program, which ends this one
  std::function<void()> donate;        // without it the order page is not offered
  std::function<void()> showReminder;  // brings the reminder window back, which rebuilds its list
  std::function<void()> hideReminder;  // the editor takes the reminder window's place again
};

// What the program knows when it makes the session.
struct EditorSetup {
  std::string eventsFilePath;
  std::string rescueFolder;  // the user's data folder for the program; created when needed
  int majorVersion = 0;
  int minorVersion = 0;
  std::uint64_t seed = 0;  // added to the clock for the random glyph
};

// Why the window is closed.
enum class EditorClosing { kReturnToReminders, kProgramEnds };

inline constexpr std::string_view kEditorHeader =
    " Date:   Event:                                                                            "
    "Advance:   Occurs:";

class EditSession {
 public:
  EditSession(EditPorts ports, EditorHooks hooks, RegionalDateFormat format, EditorSetup setup);

  // --- Opening and closing.

  // What the reminder window asks for: the event of this line of the file (-1 for none), whose
  // bytes were `rawLine` when the reminder list was built, or a new event for today. Call before
  // the window is opened, or when it is open already: an entry that is under way then wins over
  // the request, else the list is read again, its selected row stays, and the request is carried
  // out.
  void Request(long requestedEditLine, std::string rawLine, bool requestedAdd);

  // Opening, before the window is shown: reads the settings and gives the window's place.
  // `screens` as for LoadEditorPlacement.
  [[nodiscard]] WindowArea Load(const std::vector<WindowArea>& screens);

  // Opening, once the window is shown: reads the events and carries out the request.
  void Shown();

  // True when the skin is to be used if there is one ("UseSkin"). Valid after Load.
  [[nodiscard]] bool wantsSkin() const { return wantsSkin_; }

  // Closing: saves the place when the window is in its normal state (`place` given), discards an
  // entry, and brings the reminder window back unless the program ends.
  void Closed(const std::optional<EditorPlace>& place, EditorClosing why);

  // The window was minimized or maximized, once for each such change: the reminder window comes
  // back; nothing is saved and an entry stays open.
  void LeftNormalState() const;

  // The window is back from where it was minimized: the reminder window goes again, and the file
  // is read as by Reload.
  void Restored();

  // Reads the file again when no entry is under way, for example after the reminder window has
  // changed it. The selected row keeps its index.
  void Reload();

  // True from Load to Closed.
  [[nodiscard]] bool isLoaded() const { return isLoaded_; }
  // True while an event is being added or edited.
  [[nodiscard]] bool isEntryUnderWay() const { return entry_.mode() != EntryMode::kIdle; }

  // --- The list.

  [[nodiscard]] const std::vector<EventRow>& List1() const { return List1_; }
  // For each row the line of its event in the file, from 0; kTodayRowLine for the TODAY row.
  [[nodiscard]] const std::vector<long>& EditorLineMap() const { return EditorLineMap_; }
  // Changes whenever the rows do.
  [[nodiscard]] std::uint64_t listVersion() const { return listVersion_; }
  [[nodiscard]] bool isListEnabled() const { return isListEnabled_; }
  [[nodiscard]] int selectedRow() const { return selectedRow_; }  // -1 for none

  // The user selects a row. A row that is not there, and any row while the list is disabled,
  // changes nothing.
  void RowSelected(int row);
  void RowDoubleClicked() { Edit(); }
  void ListEnterPressed();    // Return on the list
  void ListDeleteReleased();  // the Delete key on the list
  // The right button was pressed over a row, -1 for none. True when the popup menu is to be shown.
  [[nodiscard]] bool RowRightPressed(int row);
  void PopupEdit() { Edit(); }
  void PopupDelete();
  void PopupCancel();

  // --- The buttons and keys. Each may be called at any time; Alt keys go through Hidden*.

  void Add();
  void Edit();
  void Save();
  void Cancel();
  void Delete();
  void Print() const;
  void Help() const;
  // `place` as in Closed. It is saved before the hook is called, which may never return. Nothing
  // while an entry is under way, which would be lost.
  void Options(const std::optional<EditorPlace>& place) const;
  void Donate() const;
  void HiddenSave();
  void HiddenPrint() const;
  void HiddenOptions(const std::optional<EditorPlace>& place) const;
  void HiddenDonate() const;
  void EscapeReleased();  // ends an entry, does nothing without one

  // --- The entry row. See EventEntry for each; without an entry they do nothing.

  void EventInputTyped(std::string_view text);
  void DateInputTyped(std::string_view text);
  void AdvanceInputTyped(std::string_view text);
  void EveryInputTyped(std::string_view text);
  [[nodiscard]] KeyUse DateInputKey(std::string_view character);
  void DateInputLeft();
  void EveryMonthClicked(bool checked);
  void OccursPicked(int index);
  void PopularPicked(int index);

  // --- What the window shows.

  [[nodiscard]] const std::string& caption() const { return caption_; }
  [[nodiscard]] const EntryRow& entry() const { return entry_.row(); }
  [[nodiscard]] EntryMode entryMode() const { return entry_.mode(); }
  [[nodiscard]] const ButtonState& cmdAdd() const { return cmdAdd_; }
  [[nodiscard]] const ButtonState& cmdEdit() const { return cmdEdit_; }
  [[nodiscard]] const ButtonState& cmdClose() const { return cmdClose_; }
  [[nodiscard]] const ButtonState& cmdHelp() const { return cmdHelp_; }
  [[nodiscard]] const ButtonState& cmdPrint() const { return cmdPrint_; }
  [[nodiscard]] const ButtonState& cmdOptions() const { return cmdOptions_; }
  [[nodiscard]] const ButtonState& cmdDonate() const { return cmdDonate_; }
  // The items of cmbPopular, in their order.
  [[nodiscard]] const std::vector<std::string>& observances() const { return observances_; }
  // The control that is to have the focus now; kNone when it stays where it is. Asking clears it.
  [[nodiscard]] EditorFocus TakeFocus();

  // The hand-over values as they are now: consumed at opening.
  [[nodiscard]] long RequestedEditLine() const { return RequestedEditLine_; }
  [[nodiscard]] bool RequestedAdd() const { return RequestedAdd_; }
  // The row being edited, or chosen for deletion.
  [[nodiscard]] const std::string& SelectedRowText() const { return SelectedRowText_; }
  // How the last reading of the file ended. Nothing is saved while it failed.
  [[nodiscard]] const Status& readStatus() const { return readStatus_; }

 private:
  // A row that comes, a row that goes, or both.
  struct Change {
    std::optional<EventRow> added;
    bool removesSelected = false;
    std::optional<std::size_t> removed{};  // where the selected row was found
  };

  // The file that a change is applied to.
  struct FileState {
    std::string_view content;  // content_ or `read`
    std::string read;
    bool exists = true;
    bool unchanged = true;  // since List1_ was made of it
    EventList fresh;        // its rows, when they are not those of List1_
  };

  void CarryOutRequest();
  void SetEntryMode(bool on);
  void EnableEventList(bool enable);
  [[nodiscard]] Status SettleEventsFile();
  [[nodiscard]] Status ReadEventsFile(std::string& content);
  void LoadEventLines(CivilDate today);
  [[nodiscard]] bool RescueContent();
  void FillEventList(std::string content, CivilDate today);
  void FillAfterWriting(std::string content, CivilDate today);
  [[nodiscard]] std::optional<TodayCase> TodayRowWanted() const;
  void NumberRows();
  [[nodiscard]] bool WriteChange(Change change, CivilDate today);
  [[nodiscard]] bool ReadForChange(FileState& file, CivilDate today);
  [[nodiscard]] std::string ContentAfter(const FileState& file, const RowsToWrite& events) const;
  void ShowWritten(const Change& change, bool unchanged, std::string content, CivilDate today);
  [[nodiscard]] bool ReplaceTodayRow(CivilDate today);
  void ChangeEventList(const Change& change, std::string content, CivilDate today);
  [[nodiscard]] std::optional<std::size_t> FindSelectedRow(const std::vector<EventRow>& rows) const;
  void SelectRequestedEvent();
  [[nodiscard]] bool IsEditableSelection();
  void FindEventRowByTitle(std::string_view title);
  void DrawDonateGlyph();
  void ShowReadFailure();
  void ShowWriteFailure(const std::string& path, const Status& status);

  EditPorts ports_;
  EditorHooks hooks_;
  RegionalDateFormat format_;
  EditorSetup setup_;

  bool isLoaded_ = false;
  bool isShown_ = false;
  bool wantsSkin_ = false;
  bool warned_ = false;  // of a first occurrence more than 300 days away
  std::uint64_t random_ = 0;
  std::string caption_;
  std::vector<std::string> observances_;

  std::vector<EventRow> List1_;
  std::vector<long> EditorLineMap_;
  std::uint64_t listVersion_ = 0;
  bool isListEnabled_ = true;
  int selectedRow_ = -1;
  std::optional<int> List1Tag_;  // the row to select when the list is next enabled
  std::string SelectedRowText_;

  std::string content_;                    // the file as last read or written
  int yearRead_ = 0;                       // in which content_ became List1_
  RescueNeed rescue_ = RescueNeed::kNone;  // of content_
  bool settled_ = true;                    // whether its rows are read back as they are
  bool asWritten_ = false;                 // see EventList
  long wantedLine_ = -1;                   // where the requested line was found in content_
  Status readStatus_;
  std::string unreadPath_;  // the file that could not be read
  long RequestedEditLine_ = -1;
  std::string requestedRawLine_;
  bool RequestedAdd_ = false;

  EventEntry entry_;
  EditorFocus focus_ = EditorFocus::kNone;
  ButtonState cmdAdd_;
  ButtonState cmdEdit_;
  ButtonState cmdClose_;
  ButtonState cmdHelp_;
  ButtonState cmdPrint_;
  ButtonState cmdOptions_;
  ButtonState cmdDonate_;
};

}  // namespace tidewarden
