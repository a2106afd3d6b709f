#include "platform/windows/registry_autostart.h"

#include <utility>

#include "platform/windows/registry_key.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"

// Needs the types of windows.h.
#include <shellapi.h>

namespace tidewarden {
namespace {

constexpr wchar_t kRun[] = L"\\Run";
// Where the task manager notes which entries the user has switched off.
constexpr wchar_t kApproved[] = L"\\Explorer\\StartupApproved\\Run";
constexpr wchar_t kName[] = L"Tidewarden";

// The program that a command line starts.
std::wstring ProgramOf(const std::wstring& commandLine) {
  int count = 0;
  wchar_t** const parts = ::CommandLineToArgvW(commandLine.c_str(), &count);
  std::wstring program = parts != nullptr && count > 0 ? parts[0] : L"";
  ::LocalFree(parts);
  return program;
}

bool AreEqual(const std::wstring& one, const std::wstring& other) {
  return ::CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

RegistryAutostart::RegistryAutostart(const std::string& program, std::wstring root,
                                     RemoveFromRegistry removeMark)
    : program_(Wide(program)), root_(std::move(root)), removeMark_(std::move(removeMark)) {
  if (!removeMark_) removeMark_ = DeleteFromRegistry;
}

bool RegistryAutostart::StartsProgram() const {
  std::optional<RegistryValue> value;
  if (!ReadRegistry(root_ + kRun, kName, value).ok() || !value) return false;
  const std::wstring command = TextOf(*value);
  return !command.empty() && AreEqual(ProgramOf(command), program_);
}

bool RegistryAutostart::IsSwitchedOff() const {
  std::optional<RegistryValue> mark;
  if (!ReadRegistry(root_ + kApproved, kName, mark).ok() || !mark) return false;
  // The lowest bit of the first byte.
  return !mark->bytes.empty() && (static_cast<unsigned char>(mark->bytes.front()) & 1U) != 0;
}

bool RegistryAutostart::IsOn() {
  return StartsProgram() && !IsSwitchedOff();
}

Status RegistryAutostart::Set(bool on) {
  if (on == IsOn()) return {};
  if (!on) return DeleteFromRegistry(root_ + kRun, kName);
  std::optional<RegistryValue> former;
  Status status = ReadRegistry(root_ + kRun, kName, former);
  if (!status.ok()) return status;
  const bool writes = !StartsProgram();
  if (writes) status = WriteRegistryText(root_ + kRun, kName, L"\"" + program_ + L"\"");
  if (!status.ok() || !IsSwitchedOff()) return status;
  status = removeMark_(root_ + kApproved, kName);
  // An entry that stays switched off is of no use; another program's may be.
  if (!status.ok() && writes) {
    static_cast<void>((former ? WriteRegistry(root_ + kRun, kName, *former)
                              : DeleteFromRegistry(root_ + kRun, kName))
                          .ok());
  }
  return status;
}

}  // namespace tidewarden
