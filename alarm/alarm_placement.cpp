#include "alarm/alarm_placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using namespace modGetSetSaveSet;

constexpr std::array kPlace{settings::kAlarmLeft, settings::kAlarmTop};
constexpr std::array kSize{settings::kAlarmWidth, settings::kAlarmHeight};

// An empty default leaves the store as it is.
bool IsStored(SettingsStore& store, const Setting& setting) {
  return !Get(store, setting, std::string()).empty();
}

// Text that is no number reads as 0 elsewhere; here it must not be taken for the screen's edge.
bool ReadNumber(std::string_view text, int& out) {
  if (!ReadPlacementNumber(text, out)) return false;
  return out != 0 || (text.find_first_of("0123456789") != std::string_view::npos &&
                      text.find_first_not_of(" +-.0123456789") == std::string_view::npos &&
                      std::abs(LeadingNumber(text)) <= 0.5);
}

WindowArea FirstArea(const Screens& screens) {
  return {screens.primary.left + (screens.primary.width - kLeastAlarmWidth) / 2,
          screens.primary.top + (screens.primary.height - kLeastAlarmHeight) / 2, kFirstAlarmWidth,
          kFirstAlarmHeight};
}

// Every number is read even when another is of no use, so that each missing one gets its default.
bool ReadArea(SettingsStore& store, const Screens& screens, WindowArea& out) {
  const WindowArea first = FirstArea(screens);
  const auto isStored = [&](const Setting& setting) { return IsStored(store, setting); };
  bool usable = std::all_of(kSize.begin(), kSize.end(), isStored);
  if (screens.canPlaceWindows) {
    usable = std::all_of(kPlace.begin(), kPlace.end(), isStored) && usable;
    const std::string left =
        Get(store, settings::kAlarmLeft, std::to_string(first.left - screens.primary.left));
    const std::string top =
        Get(store, settings::kAlarmTop, std::to_string(first.top - screens.primary.top));
    usable = ReadNumber(left, out.left) && ReadNumber(top, out.top) && usable;
  }
  const std::string width = Get(store, settings::kAlarmWidth);
  const std::string height = Get(store, settings::kAlarmHeight);
  usable = ReadNumber(width, out.width) && ReadNumber(height, out.height) && usable;
  return usable && out.left > -1 && out.top > -1 && out.width >= kLeastAlarmWidth &&
         out.height >= kLeastAlarmHeight;
}

}  // namespace

AlarmPlacement LoadAlarmPlacement(SettingsStore& settings, const Screens& screens) {
  const WindowArea first = FirstArea(screens);
  if (isTrue(Get(settings, settings::kAlarmMaximized))) return {true, first};
  WindowArea area;
  if (!ReadArea(settings, screens, area)) return {false, first};
  if (!MeetsAScreen(area, screens)) {
    area.left = screens.primary.left;
    area.top = screens.primary.top;
  }
  return {false, area};
}

void SaveAlarmPlacement(SettingsStore& settings, const AlarmWindowState& window,
                        const Screens& screens) {
  const auto save = [&settings](const Setting& setting, int twips) {
    Save(settings, setting, std::to_string(twips));
  };
  Save(settings, settings::kAlarmMaximized,
       window.state == WindowState::kMaximized ? "True" : "False");
  if (!window.visible || window.state != WindowState::kNormal) return;
  if (screens.canPlaceWindows) {
    save(settings::kAlarmLeft, window.area.left);
    save(settings::kAlarmTop, window.area.top);
  }
  save(settings::kAlarmWidth, window.area.width);
  save(settings::kAlarmHeight, window.area.height);
}

void SaveAlarmMaximized(SettingsStore& settings) {
  Save(settings, settings::kAlarmMaximized, "True");
}

}  // namespace tidewarden
