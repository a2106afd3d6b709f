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

Status CompareFile(FileSystem& files, const std::string& path, std::string_view content,
                   Likeness& out) {
  std::string_view rest = content;
  bool same = true;
  Status status = files.Read(path, [&](std::string_view piece) {
    same = rest.starts_with(piece);
    if (same) rest.remove_prefix(piece.size());
    return same;
  });
  if (status.ok()) out = same && rest.empty() ? Likeness::kSame : Likeness::kOther;
  return status;
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
  Likeness likeness = Likeness::kOther;
  Status status = CompareFile(files, path, content.value_or(std::string_view()), likeness);
  const bool exists = status.kind() != StatusKind::kNotFound;
  if (exists && !status.ok()) return status;
  const bool same = exists == content.has_value() && (!exists || likeness == Likeness::kSame);
  return same ? Status() : Status(StatusKind::kBusy);
}

}  // namespace tidewarden
