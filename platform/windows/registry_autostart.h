// The autostart port on Windows: the value "Tidewarden" of the user's Run key, whose commands the
// shell starts at login.
#pragma once

#include <functional>
#include <string>

#include "core/autostart.h"

namespace tidewarden {

class RegistryAutostart : public Autostart {
 public:
  using RemoveFromRegistry =
      std::function<Status(const std::wstring& key, const std::wstring& name)>;

  // `program` is the full path of the program that is to start. `root`, below HKEY_CURRENT_USER,
  // holds the key "Run". `removeMark` stands in for DeleteFromRegistry in a test.
  explicit RegistryAutostart(const std::string& program,
                             std::wstring root = L"Software\\Microsoft\\Windows\\CurrentVersion",
                             RemoveFromRegistry removeMark = {});

  // An entry that the task manager has switched off is off.
  [[nodiscard]] bool IsOn() override;

  // On failure the entry is as before.
  Status Set(bool on) override;

 private:
  [[nodiscard]] bool StartsProgram() const;
  [[nodiscard]] bool IsSwitchedOff() const;

  std::wstring program_;
  std::wstring root_;
  RemoveFromRegistry removeMark_;
};

}  // namespace tidewarden
