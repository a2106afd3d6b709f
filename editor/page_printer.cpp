#include "editor/page_printer.h"

#include <memory>

#include "core/events_path.h"
#include "editor/print_page.h"

namespace tidewarden {
namespace {

constexpr std::string_view kPageName = "print.htm";
constexpr std::string_view kUnfinished = ".unfinished";

Status WriteFresh(FileSystem& files, const std::string& path, std::string_view page) {
  // Whatever stands there is left over or not meant for this. Where the way to it is no folder,
  // creating it gives the better reason.
  Status status = files.Remove(path);
  if (status.ok() || status.kind() == StatusKind::kNotFound) status = files.CreateEmpty(path);
  std::unique_ptr<StagedFile> staged;
  if (status.ok()) status = files.Stage(path, page, staged);
  return status.ok() ? staged->Commit() : status;
}

}  // namespace

// A file of its own first, because staging under the final name would follow a link and keep the
// permissions of an older page.
Status WritePage(FileSystem& files, const std::string& path, std::string_view page) {
  const std::string unfinished = path + std::string(kUnfinished);
  Status status = WriteFresh(files, unfinished, page);
  if (status.ok()) status = files.Rename(unfinished, path);
  if (!status.ok()) static_cast<void>(files.Remove(unfinished).ok());
  return status;
}

void PrintEvents(const PrintPorts& ports, const std::vector<EventRow>& rows,
                 const RegionalDateFormat& format, const PageFolders& folders) {
  const std::string page = PrintPage(rows, format, ports.names, ReadPageOptions(ports.settings));
  std::string path = JoinPath(folders.common, kPageName, folders.style);
  Status status = WritePage(ports.files, path, page);
  if (!status.ok() && folders.ownData != folders.common) {
    path = JoinPath(folders.ownData, kPageName, folders.style);
    status = WritePage(ports.files, path, page);
  }
  if (!status.ok()) {
    ports.messages.Show(
        "Tidewarden could not write the page:\n" + path + "\n" + DescribeStatus(status),
        MessageButtons::kOk, MessageIcon::kNone);
    return;
  }
  ports.shell.Execute(RequestFor(ShellTarget::kDocument, path, folders.style));
}

}  // namespace tidewarden
