// The outcome of an operation on files, as a closed set of kinds.
//
// Adapters translate the system's error codes into these kinds, once; DescribeStatus words them
// for people, in one place. A Status must be looked at: the compiler warns about a dropped one.
#pragma once

#include <string>
#include <string_view>

namespace tidewarden {

enum class StatusKind {
  kOk,
  kNotFound,      // the file or a folder on its path does not exist
  kNoPermission,  // the system refuses the user
  kIsFolder,      // a folder stands in place of the file
  kNotAFile,      // a pipe, a device or a socket stands in place of the file
  kNotAFolder,    // a file stands in place of a folder on the way to a file to be created
  kNotText,       // the file holds another encoding than the ones that are read (UTF-16)
  kNoSpace,       // the disk or the quota is full
  kBusy,          // another program holds the lock for too long
  kReadOnly,      // the file system cannot be written
  kTooLarge,      // more bytes than memory can take
  kInputOutput,   // everything else the system reports
};

class [[nodiscard]] Status {
 public:
  Status() = default;
  // `detail` is the system's own wording, empty when there is none.
  explicit Status(StatusKind kind, std::string detail = {})
      : kind_(kind), detail_(std::move(detail)) {}

  [[nodiscard]] bool ok() const { return kind_ == StatusKind::kOk; }
  [[nodiscard]] StatusKind kind() const { return kind_; }
  [[nodiscard]] const std::string& detail() const { return detail_; }

 private:
  StatusKind kind_ = StatusKind::kOk;
  std::string detail_;
};

// One plain sentence without a full stop: "permission denied". "done" for kOk.
[[nodiscard]] std::string DescribeStatus(const Status& status);

}  // namespace tidewarden
