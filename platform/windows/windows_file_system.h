// The file port on Windows, over wide calls. A file that another program holds is waited for, for
// a second.
#pragma once

#include "core/file_system.h"

namespace tidewarden {

class WindowsFileSystem : public FileSystem {
 public:
  Status Read(const std::string& path, const TakeBytes& take) override;
  Status GetStamp(const std::string& path, FileStamp& out) override;
  Status ListNames(const std::string& folder, std::vector<std::string>& out) override;
  Status CreateEmpty(const std::string& path) override;
  Status Stage(const std::string& path, std::string_view content,
               std::unique_ptr<StagedFile>& out) override;
  Status Lock(const std::string& path, std::unique_ptr<FileLock>& out) override;
  Status Remove(const std::string& path) override;
  Status Rename(const std::string& from, const std::string& to) override;
  Status Link(const std::string& from, const std::string& to) override;
  [[nodiscard]] std::string FullPath(const std::string& path) override;
  [[nodiscard]] bool CanCreateIn(const std::string& folder) override;
};

}  // namespace tidewarden
