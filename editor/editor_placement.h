// Where the events editor stands and how it is laid out, in twips: 15 twips are one
// device-independent pixel. Pure arithmetic; the window converts once, at its edge.
#pragma once

#include <optional>
#include <vector>

#include "core/settings_store.h"
#include "core/window_placement.h"

namespace tidewarden {

inline constexpr int kEditorWidth = 9015;        // fixed
inline constexpr int kEditorLeastHeight = 4845;  // of the window's inside

// The place to save. Left and top are missing where the system does not tell them (Wayland); what
// is stored then stays.
struct EditorPlace {
  std::optional<int> left;
  std::optional<int> top;
  int height = kEditorLeastHeight;
};

// The place of the editor from the settings "Edit/Left", "Edit/Top" and "Edit/Height". They count
// when left and top are above -1 and the height above 4844; a value that is no whole number of 16
// bits spoils them all. Else the window is centred by the width 7575, which is not its own.
// `screens` are the connected screens, the primary one first, at least one. A stored place that
// lies on none of them is moved to the primary screen's top left; the settings stay.
[[nodiscard]] WindowArea LoadEditorPlacement(SettingsStore& settings,
                                             const std::vector<WindowArea>& screens);

// `place` if it lies on one of the screens, else of the same size at the primary one's top left.
[[nodiscard]] WindowArea OntoAScreen(WindowArea place, const std::vector<WindowArea>& screens);

// Saves "Edit/Left", "Edit/Top" and "Edit/Height".
void SaveEditorPlacement(SettingsStore& settings, const EditorPlace& place);

// Tops of the controls for a window of `height` twips; everything not named here keeps its place.
struct EditorTops {
  int List1Height = 0;  // the list's height, its top does not move
  int idleButtons = 0;  // cmdHelp, cmdPrint, cmdOptions, cmdDonate, cmdAdd, cmdEdit
  int cmdClose = 0;
  int cmdDelete = 0;
  int titleRow = 0;  // txtEventInput, cmbPopular, lblPopularObservances
  int lblEvent = 0;
  int saveButtons = 0;  // cmdSave, cmdCancel
  int entryRow = 0;     // txtDateInput, txtAdvanceInput, cmbOccursInput, chkEveryMonth
  int txtEveryInput = 0;
  int lblEvery = 0;
  int entryLabels = 0;  // lblDate, lblOccurs, lblAdvance
  int lblDays = 0;
  int lblDateExample = 0;
};

enum class EditorLook { kPlain, kSkinned };

[[nodiscard]] EditorTops LayOutEditor(int height, EditorLook look);

// The date box of a maximum length of 2, 5 or 10 characters and the label left of it.
struct DateInputPlace {
  int boxLeft = 0;
  int boxWidth = 0;
  int labelLeft = 0;
};
[[nodiscard]] DateInputPlace PlaceDateInput(int maxLength);

}  // namespace tidewarden
