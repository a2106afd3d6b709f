// The autostart port on Windows: the value "Tidewarden" of the user's Run key, whose commands the
// shell starts at login.
#pragma once

#include <string>

#include "core/autostart.h"

namespace tidewarden {

class RegistryAutostart : public Autostart {
 public:
  // `program` is the full path of the program that is to start. `root`, below HKEY_CURRENT_USER,
  // holds the key "Run".
  explicit RegistryAutostart(const std::string& program,
                             std::wstring root = L"Software\\Microsoft\\Windows\\CurrentVersion");

  // An entry that the task manager has switched off is off.
  [[nodiscard]] bool IsOn() override;
  Status Set(bool on) override;

 private:
  [[nodiscard]] bool StartsProgram() const;
  [[nodiscard]] bool IsSwitchedOff() const;

  std::wstring program_;
  std::wstring root_;
};

}  // namespace tidewarden
