// What the reminder window's controls look like: sheets, fonts and the small picture that Qt does
// not bring along. Only the window itself uses it.
#pragma once

#include <QFont>
#include <QString>

#include "reminder/list_appearance.h"

class QToolButton;

namespace tidewarden {

// A rule for the list itself, so that the user's colours win over a skin. A selected row has the
// colours the other way round: whoever can read the list can read that too. The desktop's colours
// are written out as they are now: by their names a sheet keeps those that it was first used with.
[[nodiscard]] QString ListSheet(const ListColours& colours);

// A size of 0 gives the size that the controls were designed with.
[[nodiscard]] QFont FontOf(const ListFont& font);

// As a tooltip that shows every character as it is.
[[nodiscard]] QString PlainToolTip(const QString& text);

// Small, round and orange on every desktop and under every skin, because the program speaks of the
// orange button; with an arrow pointing down to the panel. A skin whose text names "#cmdTray"
// dresses the button itself.
inline constexpr int kTrayButtonSize = 20;
void DressTrayButton(QToolButton& button, const QString& skin);

}  // namespace tidewarden
