// Whether another copy runs, by a named object of the login session that the system frees when a
// process dies.
#pragma once

#include <string>

#include "reminder/previous_instance.h"

namespace tidewarden {

class WindowsPreviousInstance : public PreviousInstance {
 public:
  // Copies that are to know of each other have the same `name`, which holds no "\".
  explicit WindowsPreviousInstance(const std::wstring& name);
  ~WindowsPreviousInstance() override;
  WindowsPreviousInstance(const WindowsPreviousInstance&) = delete;
  WindowsPreviousInstance& operator=(const WindowsPreviousInstance&) = delete;

  [[nodiscard]] bool Claim() override;
  void Release() override;
  [[nodiscard]] bool IsClaimedByAnother() override;

 private:
  std::wstring name_;
  void* mutex_ = nullptr;
};

}  // namespace tidewarden
