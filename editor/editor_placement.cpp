#include "editor/editor_placement.h"

#include <string>
#include <string_view>

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::Get;
using modGetSetSaveSet::Save;

// The width by which a first opening is centred; it leaves the window right of the centre.
constexpr int kCentringWidth = 7575;

constexpr double kLeastSixteenBit = -32768;
constexpr double kMostSixteenBit = 32767;

// A complete number of 16 bits, rounded to the nearest whole one.
std::optional<int> SixteenBit(std::string_view text) {
  text = Trim(text);
  std::string_view digits = text;
  if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
  const std::size_t point = digits.find('.');
  const bool whole = point == std::string_view::npos;
  if (!IsDigits(digits.substr(0, point)) || (!whole && !IsDigits(digits.substr(point + 1)))) {
    return std::nullopt;
  }
  const double value = LeadingNumber(text);
  if (value < kLeastSixteenBit || value > kMostSixteenBit) return std::nullopt;
  return static_cast<int>(RoundHalfToEven(value));
}

}  // namespace

WindowArea LoadEditorPlacement(SettingsStore& settings, const std::vector<WindowArea>& screens) {
  const auto left = SixteenBit(Get(settings, settings::kEditLeft));
  const auto top = SixteenBit(Get(settings, settings::kEditTop));
  const auto height = SixteenBit(Get(settings, settings::kEditHeight));
  const WindowArea& primary = screens.front();
  const bool usable =
      left && top && height && *left > -1 && *top > -1 && *height >= kEditorLeastHeight;
  if (!usable) {
    return {primary.left + (primary.width - kCentringWidth) / 2,
            primary.top + (primary.height - kEditorLeastHeight) / 2, kEditorWidth,
            kEditorLeastHeight};
  }
  return OntoAScreen({*left, *top, kEditorWidth, *height}, screens);
}

WindowArea OntoAScreen(WindowArea place, const std::vector<WindowArea>& screens) {
  const WindowArea& primary = screens.front();
  if (!MeetsAScreen(place, {primary, screens})) {
    place.left = primary.left;
    place.top = primary.top;
  }
  return place;
}

void SaveEditorPlacement(SettingsStore& settings, const EditorPlace& place) {
  if (place.left) Save(settings, settings::kEditLeft, std::to_string(*place.left));
  if (place.top) Save(settings, settings::kEditTop, std::to_string(*place.top));
  Save(settings, settings::kEditHeight, std::to_string(place.height));
}

EditorTops LayOutEditor(int height, EditorLook look) {
  const int skinned = look == EditorLook::kSkinned ? 45 : 0;
  EditorTops tops;
  tops.List1Height = height - 2520;
  tops.idleButtons = height - 1395 - skinned;
  tops.cmdClose = height - 1395 - skinned + 240;
  tops.cmdDelete = height - 1840 - skinned;
  tops.titleRow = height - 1840;
  tops.lblEvent = height - 1770;
  tops.saveButtons = height - 1245 - skinned;
  tops.entryRow = height - 1245;
  tops.txtEveryInput = height - 1185;
  tops.lblEvery = height - 1380;
  tops.entryLabels = height - 1155;
  tops.lblDays = height - 1125;
  tops.lblDateExample = height - 765;
  return tops;
}

DateInputPlace PlaceDateInput(int maxLength) {
  constexpr int kCentre = 1320;
  constexpr int kFullDateLength = 10;
  constexpr int kLabelDistance = 900;
  DateInputPlace place;
  place.boxWidth = maxLength == kFullDateLength ? 975 : 600;
  place.boxLeft = kCentre - place.boxWidth / 2;
  place.labelLeft = place.boxLeft + place.boxWidth / 2 - kLabelDistance;
  return place;
}

}  // namespace tidewarden
