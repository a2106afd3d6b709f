// The reminder list as it would be with the settings of a draft: made by the reminder's own list
// builder and readers, without changing a file.
#pragma once

#include <string>
#include <vector>

#include "core/clock.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "dates/regional_formats.h"
#include "reminder/list_appearance.h"

namespace tidewarden {

// What the preview asks of the world.
struct PreviewPorts {
  FileSystem& files;     // only read
  FileSystem& examples;  // in memory; the example events are kept there
  const Clock& clock;
  const RegionalFormats& formats;
  MessageBox& messages;  // nothing is shown
  ProgramFolders folders;
};

struct ListPreview {
  std::string title;  // of the window
  std::vector<std::string> rows;
  std::string dateLabel;  // empty when it is not to be shown
  std::string quote;      // in UTF-8, its lines separated by CR LF; empty when none is to be shown
  ListColours colours;
  ListFont font;
};

// The events of a file. The draft may be written to, as every reader does.
// "ShowOnlyIfEventsInRange" has no effect, and a layout of dates that the program cannot place is
// taken for "MM/dd/yyyy".
[[nodiscard]] ListPreview MakeListPreview(SettingsStore& draft, const PreviewPorts& ports,
                                          const std::string& eventsFile);

// The same for example events around today, with one for everything that the wording can show.
[[nodiscard]] ListPreview MakeExamplePreview(SettingsStore& draft, const PreviewPorts& ports);

}  // namespace tidewarden
