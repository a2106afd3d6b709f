#include "core/file_system.h"

#include <new>
#include <utility>

namespace tidewarden {

Status ReadFile(FileSystem& files, const std::string& path, std::string& out) {
  try {
    FileStamp stamp;
    std::string content;
    if (files.GetStamp(path, stamp).ok()) content.reserve(stamp.size);
    Status status = files.Read(path, [&](std::string_view piece) {
      content += piece;
      return true;
    });
    if (status.ok()) out = std::move(content);
    return status;
  } catch (const std::bad_alloc&) {
    return Status(StatusKind::kTooLarge);
  }
}

Status ReplaceFile(FileSystem& files, const std::string& path, std::string_view content) {
  std::string present;
  Status status = ReadFile(files, path, present);
  if (status.ok() && present == content) return status;
  if (!status.ok() && status.kind() != StatusKind::kNotFound) return status;
  std::unique_ptr<StagedFile> staged;
  status = files.Stage(path, content, staged);
  return status.ok() ? staged->Commit() : status;
}

Status CheckUntouched(FileSystem& files, const std::string& path,
                      std::optional<std::string_view> content) {
  std::string present;
  Status status = ReadFile(files, path, present);
  const bool exists = status.kind() != StatusKind::kNotFound;
  if (exists && !status.ok()) return status;
  const bool same = exists == content.has_value() && (!exists || present == *content);
  return same ? Status() : Status(StatusKind::kBusy);
}

}  // namespace tidewarden
