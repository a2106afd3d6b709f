// Whether another copy runs, by an advisory lock that the system frees when a process dies. The
// file has the sticky bit, which keeps it from being cleaned up in the folder of a login session.
#pragma once

#include <string>

#include "reminder/previous_instance.h"

namespace tidewarden {

class PosixPreviousInstance : public PreviousInstance {
 public:
  // `path` is the lock file; it is created when it is missing and stays.
  explicit PosixPreviousInstance(std::string path);
  ~PosixPreviousInstance() override;
  PosixPreviousInstance(const PosixPreviousInstance&) = delete;
  PosixPreviousInstance& operator=(const PosixPreviousInstance&) = delete;

  [[nodiscard]] bool Claim() override;
  void Release() override;
  [[nodiscard]] bool IsClaimedByAnother() override;

 private:
  std::string path_;
  int descriptor_ = -1;
};

}  // namespace tidewarden
