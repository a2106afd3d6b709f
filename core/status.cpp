#include "core/status.h"

namespace tidewarden {

std::string DescribeStatus(const Status& status) {
  switch (status.kind()) {
    case StatusKind::kOk:
      return "done";
    case StatusKind::kNotFound:
      return "the file does not exist";
    case StatusKind::kNoPermission:
      return "permission denied";
    case StatusKind::kIsFolder:
      return "this is a folder, not a file";
    case StatusKind::kNotAFile:
      return "this is not a regular file";
    case StatusKind::kNotAFolder:
      return "what should be its folder is a file";
    case StatusKind::kNotText:
      return "this is UTF-16 text; save it as UTF-8 and try again";
    case StatusKind::kNoSpace:
      return "the disk is full";
    case StatusKind::kBusy:
      return "another program is using it";
    case StatusKind::kReadOnly:
      return "the disk is read-only";
    case StatusKind::kTooLarge:
      return "the file is too large";
    case StatusKind::kInputOutput:
      break;
  }
  return status.detail().empty() ? "the system reports an error" : status.detail();
}

}  // namespace tidewarden
