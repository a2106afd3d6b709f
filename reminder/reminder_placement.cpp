#include "reminder/reminder_placement.h"

#include <algorithm>

#include "core/settings_keys.h"

namespace tidewarden {
namespace {

using namespace modGetSetSaveSet;

WindowArea NewArea(const Screens& screens) {
  const WindowArea& primary = screens.primary;
  return {primary.left + (primary.width - kReminderWidth) / 2,
          primary.top + (primary.height - kReminderHeight) / 2, kReminderWidth, kReminderHeight};
}

bool ReadSize(SettingsStore& store, WindowArea& out) {
  const std::string width = Get(store, settings::kWidth);
  const std::string height = Get(store, settings::kHeight);
  return ReadPlacementNumber(width, out.width) && ReadPlacementNumber(height, out.height) &&
         out.width >= kReminderWidth && out.height >= kReminderHeight;
}

// All four are read even when the first is of no use, so that each missing one gets its default.
// Where windows have no place of their own, left and top are left alone.
bool ReadArea(SettingsStore& store, const Screens& screens, WindowArea& out) {
  if (!screens.canPlaceWindows) return ReadSize(store, out);
  const WindowArea& primary = screens.primary;
  const int firstLeft = primary.left + (primary.width - kLeastReminderWidth) / 2;
  const int firstTop = primary.top + (primary.height - kLeastReminderHeight) / 2;
  const std::string left = Get(store, settings::kLeft, std::to_string(firstLeft));
  const std::string top = Get(store, settings::kTop, std::to_string(firstTop));
  const bool hasSize = ReadSize(store, out);
  return hasSize && ReadPlacementNumber(left, out.left) && ReadPlacementNumber(top, out.top) &&
         out.left > -5 && out.top > -5;
}

}  // namespace

StoredPlacement LoadWindowPlacement(SettingsStore& settings, const Screens& screens) {
  if (isTrue(Get(settings, settings::kMaximized))) return {true, NewArea(screens)};
  const WindowArea middle = NewArea(screens);
  WindowArea area = middle;
  if (!ReadArea(settings, screens, area)) {
    if (!screens.canPlaceWindows) return {false, middle};
    // All four go under the one name, as they always have: the other three keep what they hold.
    for (const int number : {middle.left, middle.top, middle.width, middle.height}) {
      Save(settings, settings::kLeft, std::to_string(number));
    }
    return {false, middle};
  }
  if (!MeetsAScreen(area, screens)) {
    area.left = middle.left;
    area.top = middle.top;
  }
  return {false, area};
}

WindowArea InTheMiddle(const WindowArea& area, const Screens& screens) {
  const WindowArea& primary = screens.primary;
  return {primary.left + std::max(0, (primary.width - area.width) / 2),
          primary.top + std::max(0, (primary.height - area.height) / 2), area.width, area.height};
}

void SaveWindowPlacement(SettingsStore& settings, const WindowPlacement& placement,
                         const Screens& screens) {
  const auto save = [&settings](const Setting& setting, int twips) {
    Save(settings, setting, std::to_string(twips));
  };
  Save(settings, settings::kMaximized,
       placement.state == WindowState::kMaximized ? "True" : "False");
  if (placement.state != WindowState::kNormal) return;
  if (screens.canPlaceWindows) {
    save(settings::kLeft, placement.area.left);
    save(settings::kTop, placement.area.top);
  }
  save(settings::kWidth, placement.area.width);
  save(settings::kHeight, placement.area.height);
}

}  // namespace tidewarden
