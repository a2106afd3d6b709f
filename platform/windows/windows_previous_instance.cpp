#include "platform/windows/windows_previous_instance.h"

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_handles.h"

namespace tidewarden {

WindowsPreviousInstance::WindowsPreviousInstance(const std::wstring& name)
    : name_(L"Local\\" + name) {}

WindowsPreviousInstance::~WindowsPreviousInstance() {
  WindowsPreviousInstance::Release();
}

bool WindowsPreviousInstance::Claim() {
  if (mutex_ != nullptr) return true;
  // That the object exists is the claim. Nothing more than waiting is asked of it, so that a copy
  // with fewer rights finds the one of an administrator.
  PrivateSecurity security;
  HANDLE mutex = ::CreateMutexExW(security.get(), name_.c_str(), 0, SYNCHRONIZE);
  if (mutex == nullptr) return true;
  if (::GetLastError() == ERROR_ALREADY_EXISTS) {
    ::CloseHandle(mutex);
    return false;
  }
  mutex_ = mutex;
  return true;
}

void WindowsPreviousInstance::Release() {
  if (mutex_ != nullptr) ::CloseHandle(mutex_);
  mutex_ = nullptr;
}

bool WindowsPreviousInstance::IsClaimedByAnother() {
  if (mutex_ != nullptr) return false;
  HANDLE mutex = ::OpenMutexW(SYNCHRONIZE, FALSE, name_.c_str());
  if (mutex == nullptr) return false;
  ::CloseHandle(mutex);
  return true;
}

}  // namespace tidewarden
