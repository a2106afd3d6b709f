// Check boxes whose outline can be seen on every desktop.
#pragma once

class QApplication;

namespace tidewarden {

// Qt's own style, Fusion, draws the outline of a check box darker than the window, whatever the
// colours of the desktop are: on a dark one nothing is left of a box that is not ticked. From now
// on it is drawn with a contrast of 3 to 1 or more. Other styles stay as they are, and a style
// sheet that draws the boxes itself goes before.
void OutlineCheckBoxes(QApplication& application);

}  // namespace tidewarden
