#include "platform/memory/memory_ports.h"

#include <algorithm>
#include <set>

#include "dates/text.h"

namespace tidewarden {
namespace {

class MemoryLock : public FileLock {};

}  // namespace

class MemoryStagedFile : public StagedFile {
 public:
  MemoryStagedFile(MemoryFileSystem& files, std::string path, std::string_view content)
      : files_(files), path_(std::move(path)), content_(content) {}

  Status Commit() override {
    files_.calls.push_back("commit " + path_);
    Status status = MemoryFileSystem::Failure(files_.commitFailures, path_);
    if (!status.ok() && !files_.failsAfterWriting) return status;
    if (files_.writesInPlace) {
      files_.WriteUnderAllNames(path_, content_);
    } else {
      files_.files[path_] = content_;
      files_.identities_[path_] = files_.nextIdentity_++;
    }
    return status;
  }

  [[nodiscard]] bool ReplacesAtOnce() const override { return !files_.writesInPlace; }

 private:
  MemoryFileSystem& files_;
  std::string path_;
  std::string content_;
};

Status MemoryFileSystem::Failure(const std::map<std::string, StatusKind>& kinds,
                                 const std::string& path) {
  const auto found = kinds.find(path);
  return found == kinds.end() ? Status() : Status(found->second);
}

Status MemoryFileSystem::Read(const std::string& path, const TakeBytes& take) {
  calls.push_back("read " + path);
  Status status = Failure(failures, path);
  if (status.ok()) status = Failure(readFailures, path);
  if (!status.ok()) return status;
  const auto found = files.find(path);
  if (found == files.end()) return Status(StatusKind::kNotFound);
  const std::string content = found->second;
  const std::size_t step = piece == 0 ? std::max<std::size_t>(content.size(), 1) : piece;
  for (std::size_t at = 0; at < content.size(); at += step) {
    if (!take(std::string_view(content).substr(at, step))) break;
  }
  return status;
}

Status MemoryFileSystem::GetStamp(const std::string& path, FileStamp& out) {
  Status status = Failure(failures, path);
  if (!status.ok()) return status;
  const auto found = files.find(path);
  if (found == files.end()) return Status(StatusKind::kNotFound);
  const auto identity = identities_.try_emplace(path, nextIdentity_);
  if (identity.second) ++nextIdentity_;
  out = {found->second.size(), 0, identity.first->second};
  return status;
}

Status MemoryFileSystem::ListNames(const std::string& folder, std::vector<std::string>& out) {
  calls.push_back("list " + folder);
  Status status = Failure(failures, folder);
  if (!status.ok()) return status;
  std::string prefix = folder == "." ? std::string() : folder;
  if (!prefix.empty() && !prefix.ends_with('/')) prefix += '/';
  std::set<std::string> entries;
  for (const auto& [path, content] : files) {
    if (!path.starts_with(prefix)) continue;
    const std::string entry =
        path.substr(prefix.size(), path.find('/', prefix.size()) - prefix.size());
    if (!entry.empty()) entries.insert(entry);
  }
  if (entries.empty()) return Status(StatusKind::kNotFound);
  out.assign(entries.begin(), entries.end());
  return status;
}

Status MemoryFileSystem::CreateEmpty(const std::string& path) {
  calls.push_back("create " + path);
  Status status = Failure(writeFailures, path);
  if (status.ok()) files.try_emplace(path);
  return status;
}

Status MemoryFileSystem::Stage(const std::string& path, std::string_view content,
                               std::unique_ptr<StagedFile>& out) {
  calls.push_back("stage " + path);
  Status status = Failure(writeFailures, path);
  if (status.ok()) status = Failure(failures, path);
  if (status.ok()) out = std::make_unique<MemoryStagedFile>(*this, path, content);
  if (status.ok() && onStaged) onStaged(path);
  return status;
}

Status MemoryFileSystem::Lock(const std::string& path, std::unique_ptr<FileLock>& out) {
  calls.push_back("lock " + path);
  Status status = Failure(lockFailures, path);
  if (status.ok()) out = std::make_unique<MemoryLock>();
  return status;
}

Status MemoryFileSystem::Remove(const std::string& path) {
  calls.push_back("remove " + path);
  Status status = Failure(writeFailures, path);
  if (!status.ok()) return status;
  files.erase(path);
  identities_.erase(path);
  return status;
}

Status MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  calls.push_back("rename " + from + " " + to);
  Status status = Failure(renameFailures, from);
  if (!status.ok()) return status;
  if (!files.contains(from)) return Status(StatusKind::kNotFound);
  FileStamp stamp;
  static_cast<void>(GetStamp(from, stamp).ok());
  files[to] = files[from];
  identities_[to] = stamp.identity;
  files.erase(from);
  identities_.erase(from);
  return status;
}

Status MemoryFileSystem::Link(const std::string& from, const std::string& to) {
  calls.push_back("link " + from + " " + to);
  Status status = Failure(linkFailures, to);
  if (!status.ok()) return status;
  if (!files.contains(from)) return Status(StatusKind::kNotFound);
  if (files.contains(to)) return Status(StatusKind::kInputOutput, "the file exists");
  FileStamp stamp;
  static_cast<void>(GetStamp(from, stamp).ok());
  files[to] = files[from];
  identities_[to] = stamp.identity;
  return status;
}

void MemoryFileSystem::WriteUnderAllNames(const std::string& path, const std::string& content) {
  FileStamp stamp;
  files.try_emplace(path);
  static_cast<void>(GetStamp(path, stamp).ok());
  for (const auto& [name, identity] : identities_) {
    if (identity == stamp.identity) files[name] = content;
  }
}

bool MemoryFileSystem::CanCreateIn(const std::string& folder) {
  return std::find(unwritableFolders.begin(), unwritableFolders.end(), folder) ==
         unwritableFolders.end();
}

int MemoryFileSystem::CountCalls(std::string_view word) const {
  return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&](const std::string& call) {
    return call.starts_with(std::string(word) + " ");
  }));
}

const MemorySettingsStore::Entry* MemorySettingsStore::Find(std::string_view section,
                                                            std::string_view name) const {
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
    return EqualIgnoringAsciiCase(entry.section, section) &&
           EqualIgnoringAsciiCase(entry.name, name);
  });
  return found == entries.end() ? nullptr : &*found;
}

Status MemorySettingsStore::Read(std::string_view section, std::string_view name,
                                 std::string& value) {
  if (failure != StatusKind::kOk) return Status(failure);
  const Entry* entry = Find(section, name);
  value = entry == nullptr ? std::string() : entry->value;
  return {};
}

Status MemorySettingsStore::Write(std::string_view section, std::string_view name,
                                  std::string_view value) {
  if (failure != StatusKind::kOk) return Status(failure);
  ++writes;
  if (const Entry* entry = Find(section, name)) {
    entries[static_cast<std::size_t>(entry - entries.data())].value = value;
  } else {
    entries.push_back({std::string(section), std::string(name), std::string(value)});
  }
  return {};
}

Status MemorySettingsStore::Delete(std::string_view section, std::string_view name) {
  if (failure != StatusKind::kOk) return Status(failure);
  std::erase_if(entries, [&](const Entry& entry) {
    return EqualIgnoringAsciiCase(entry.section, section) &&
           EqualIgnoringAsciiCase(entry.name, name);
  });
  return {};
}

bool MemorySettingsStore::Has(std::string_view section, std::string_view name) const {
  return Find(section, name) != nullptr;
}

std::string MemorySettingsStore::At(std::string_view section, std::string_view name) const {
  const Entry* entry = Find(section, name);
  return entry == nullptr ? "(missing)" : entry->value;
}

MessageAnswer MemoryMessageBox::Show(const std::string& text, MessageButtons buttons,
                                     MessageIcon icon) {
  shown.push_back(text);
  boxes.push_back({text, buttons, icon});
  if (whileOpen) whileOpen();
  if (answers.empty()) return answer;
  const MessageAnswer next = answers.front();
  answers.pop_front();
  return next;
}

}  // namespace tidewarden
