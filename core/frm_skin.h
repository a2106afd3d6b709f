// Dressing a window in the text of a skin file (core/skin.h).
#pragma once

#include <QString>

namespace tidewarden {

// The text when all of it is a style sheet to Qt, else an empty one, which stands for no skin: of a
// text with a mistake in it Qt takes some rules and leaves others. Each text is tried once, without
// a message.
[[nodiscard]] QString ReadableSkin(const QString& text);

}  // namespace tidewarden
