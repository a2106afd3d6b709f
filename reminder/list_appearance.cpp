#include "reminder/list_appearance.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using namespace modGetSetSaveSet;

struct NamedColours {
  std::string_view name;
  std::uint32_t background = 0;  // red, green, blue
  std::uint32_t text = 0;
};

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::string_view kSystem = "system";
constexpr std::string_view kRandom = "random";

constexpr std::array<NamedColours, 14> kNamedColours{{{"pale red", 0xFFCCCC, kBlack},
                                                      {"red", 0xCC0000, kWhite},
                                                      {"pale orange", 0xFFCC66, kBlack},
                                                      {"orange", 0xFF9900, kBlack},
                                                      {"pale yellow", 0xFFFFCC, kBlack},
                                                      {"yellow", 0xFFFF00, kBlack},
                                                      {"pale green", 0x99FF99, kBlack},
                                                      {"green", 0x009900, kWhite},
                                                      {"pale blue", 0xCCCCFF, kBlack},
                                                      {"blue", 0x000099, kWhite},
                                                      {"pale violet", 0xFF99FF, kBlack},
                                                      {"violet", 0x990099, kWhite},
                                                      {"white", 0xFFFFFF, kBlack},
                                                      {"black", 0x000000, kWhite}}};

Colour ColourOf(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U),
          static_cast<std::uint8_t>(rgb)};
}

std::optional<Colour> HexColour(std::string_view digits) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  if (digits.find_first_not_of(kHexDigits) != std::string_view::npos) return std::nullopt;
  std::uint32_t rgb = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), rgb, 16);
  return ColourOf(rgb);
}

std::string_view RandomName(RandomNumbers& random) {
  // The system's colours come after the named ones.
  constexpr std::size_t kCount = kNamedColours.size() + 1;
  const auto index = static_cast<std::size_t>(random.Draw() * kCount);
  return index < kNamedColours.size() ? kNamedColours.at(index).name : kSystem;
}

std::string ColoursSetting(SettingsStore& store) {
  std::string old = Get(store, settings::kReminderListBackColor);
  if (old.empty()) return Get(store, settings::kReminderListColors);
  Delete(store, settings::kReminderListBackColor);
  if (old == "green") old = "pale green";
  Save(store, settings::kReminderListColors, old);
  return old;
}

}  // namespace

ListColours ColoursOf(std::string_view name) {
  constexpr std::size_t kPairSize = 13;
  if (CountCharacters(name) == kPairSize) {
    const auto text = HexColour(FirstCharacters(name, 6));
    const auto background = HexColour(LastCharacters(name, 6));
    if (text && background) return {text, background};
  }
  const auto* const named = std::find_if(kNamedColours.begin(), kNamedColours.end(),
                                         [name](const auto& entry) { return entry.name == name; });
  if (named == kNamedColours.end()) return {};
  return {ColourOf(named->text), ColourOf(named->background)};
}

ListColours ApplyListColors(SettingsStore& settings, RandomNumbers& random, LocalTime now) {
  const std::string name = ColoursSetting(settings);
  if (name != kRandom) return ColoursOf(name);
  random.Seed(SeedFromTimeOfDay(now));
  return ColoursOf(RandomName(random));
}

ListFont ApplyListFont(SettingsStore& settings) {
  return ReadListFont(settings, FontSizeRule::kWholePart);
}

}  // namespace tidewarden
