#include "platform/qt/display.h"

#include <QString>
#include <QSysInfo>
#include <algorithm>
#include <array>
#include <string_view>

namespace tidewarden {
namespace {

constexpr std::array<std::string_view, 6> kTellingOptions{"--help",    "-h", "--help-all",
                                                          "--version", "-v", "--list-topics"};

bool IsTelling(std::string_view argument) {
  return std::find(kTellingOptions.begin(), kTellingOptions.end(), argument) !=
         kTellingOptions.end();
}

bool IsGrab(std::string_view argument) {
  return argument == "--grab" || argument.starts_with("--grab=");
}

}  // namespace

bool HasDisplay() {
  return QSysInfo::kernelType() == QStringLiteral("winnt") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
         !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool WorksOffscreen(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, &IsTelling) ||
         (!HasDisplay() && std::any_of(argv + 1, argv + argc, &IsGrab));
}

}  // namespace tidewarden
