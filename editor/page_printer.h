// Printing the events editor's list: writing the page and showing it in the user's browser, from
// which he prints it.
#pragma once

#include <string>
#include <vector>

#include "core/file_system.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "core/shell.h"
#include "core/status.h"
#include "dates/date_text.h"
#include "dates/regional_formats.h"
#include "editor/event_rows.h"

namespace tidewarden {

struct PrintPorts {
  SettingsStore& settings;
  FileSystem& files;
  const RegionalFormats& names;
  MessageBox& messages;
  Shell& shell;
};

// Where the page is written: to the first folder that takes it. They need not exist.
struct PageFolders {
  std::string common;   // of all users, or the user's own where there is no such folder
  std::string ownData;  // the user's own, for the case that somebody else owns the page in `common`
  PathStyle style = PathStyle::kPosix;
};

// Writes a page as the file `path`, for the user alone, creating the missing folders. The content
// is complete before it gets the name; a link that has the name is replaced and never followed. On
// failure whatever has the name stays.
Status WritePage(FileSystem& files, const std::string& path, std::string_view page);

// Builds the page from rows and settings, writes it as "print.htm" and opens it. When it cannot be
// written, the user is told why and nothing is opened.
void PrintEvents(const PrintPorts& ports, const std::vector<EventRow>& rows,
                 const RegionalDateFormat& format, const PageFolders& folders);

}  // namespace tidewarden
