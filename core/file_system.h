// Port: files, as the program uses them: read from start to end, replaced whole.
//
// Paths are UTF-8 in the system's own form. No function throws; each header line says what
// success and failure leave behind.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/status.h"

namespace tidewarden {

// Receives the bytes of a file, in order and in pieces of any size. Returning false ends the
// reading; that is no failure.
using TakeBytes = std::function<bool(std::string_view piece)>;

// Tells whether a file may have changed: another value means yes.
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t modified = 0;   // in the finest unit that the system has
  std::uint64_t identity = 0;  // changes when the file is replaced
  bool operator==(const FileStamp&) const = default;
};

// New content that is already safe on the disk, beside the file that it will replace. Destroying
// it without Commit gives the content up and leaves nothing behind.
class StagedFile {
 public:
  virtual ~StagedFile() = default;

  // Puts the content in place of its target: all or nothing, for readers at any moment and after
  // a power cut. On failure the target is unchanged. Called once.
  virtual Status Commit() = 0;

  // False when Commit writes into the target itself, because its folder takes no new file: not
  // all or nothing for a process that is killed meanwhile, and other names of the target change
  // with it.
  [[nodiscard]] virtual bool ReplacesAtOnce() const = 0;
};

// Held while the object lives.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Reads a regular file from its start to its end. Never waits for a pipe.
  virtual Status Read(const std::string& path, const TakeBytes& take) = 0;

  // kOk when a file or folder exists at `path`, with its stamp; kNotFound, or why it is not
  // known. Of a drive that is away it is not known, as for Read: the file may come back with it.
  virtual Status GetStamp(const std::string& path, FileStamp& out) = 0;

  // The names in a folder, hidden ones included, in code-point order. kNotFound also when a file
  // stands in place of the folder. On failure `out` is unchanged.
  virtual Status ListNames(const std::string& folder, std::vector<std::string>& out) = 0;

  // Creates an empty file for the user alone, and the missing folders above it. Harms nothing
  // when a file is there already.
  virtual Status CreateEmpty(const std::string& path) = 0;

  // Writes `content` to a new file beside `path` (symbolic links resolved) with the same
  // permissions and owner, for the user alone when `path` is new, and flushes it to the disk. On
  // failure nothing stays. kBusy while another process stages the same file. When the folder
  // takes no new file but the file itself can be written, the content is only held, and Commit
  // writes it into the file after its space has been secured, and puts the old content back if
  // that fails. What a killed process has staged for the same file is removed.
  virtual Status Stage(const std::string& path, std::string_view content,
                       std::unique_ptr<StagedFile>& out) = 0;

  // Takes the advisory lock of `path` (a file beside it that stays), creating the missing
  // folders; waits a few seconds at most, then kBusy. The system frees it when a process dies.
  virtual Status Lock(const std::string& path, std::unique_ptr<FileLock>& out) = 0;

  // Removes a file. kOk also when there is none.
  virtual Status Remove(const std::string& path) = 0;

  // Gives a file another name in the same folder, in place of a file that has it. kNotFound when
  // there is no file `from`.
  virtual Status Rename(const std::string& from, const std::string& to) = 0;

  // Gives the file that `from` leads to a second name `to`, without any moment in which it has
  // none. Fails when `to` exists, on another disk and where files have one name only.
  virtual Status Link(const std::string& from, const std::string& to) = 0;

  // The file that a path leads to, by its whole path: the same text for every path to it, as far
  // as the system tells. It need not exist. `path` itself where nothing better is known.
  [[nodiscard]] virtual std::string FullPath(const std::string& path) = 0;

  // True when the user may create files in a folder that exists.
  [[nodiscard]] virtual bool CanCreateIn(const std::string& folder) = 0;
};

// Reads a regular file whole. On failure `out` is unchanged; kTooLarge when memory does not take
// it.
Status ReadFile(FileSystem& files, const std::string& path, std::string& out);

enum class Likeness { kSame, kOther };

// Whether a regular file holds exactly `content`; needs no memory for the file's bytes and reads no
// farther than to the first difference. On failure `out` is unchanged.
Status CompareFile(FileSystem& files, const std::string& path, std::string_view content,
                   Likeness& out);

// Replaces a file by new content, all or nothing. When the content is what the file already
// holds, nothing is written; nor when the file exists and cannot be read.
Status ReplaceFile(FileSystem& files, const std::string& path, std::string_view content);

// kOk when a file still holds `content`, or without it when there still is no file. kBusy when
// somebody else has changed it, or why it cannot be read.
[[nodiscard]] Status CheckUntouched(FileSystem& files, const std::string& path,
                                    std::optional<std::string_view> content);

}  // namespace tidewarden
