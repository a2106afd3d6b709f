// How the reminder list looks: the user's colours and font.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/list_font.h"
#include "core/random_numbers.h"
#include "core/settings_store.h"
#include "dates/civil.h"

namespace tidewarden {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

// The colours of a list; nothing stands for the system's own.
struct ListColours {
  std::optional<Colour> text;
  std::optional<Colour> background;
  bool operator==(const ListColours&) const = default;
};

// The colours of a name ("pale green"), or of a custom pair: six hexadecimal digits red, green,
// blue for the text, any one character, six for the background. The name is in lower case and is
// compared exactly; any other text gives the system's colours.
[[nodiscard]] ListColours ColoursOf(std::string_view name);

// Reads "ReminderListColors". A value of the older "ReminderListBackColor" takes its place and is
// removed. "random" draws one of the fifteen names, anew with each call and from
// the time of day; the setting stays.
[[nodiscard]] ListColours ApplyListColors(SettingsStore& settings, RandomNumbers& random,
                                          LocalTime now);

// Reads the font of the list and the daily quote.
[[nodiscard]] ListFont ApplyListFont(SettingsStore& settings);

}  // namespace tidewarden
