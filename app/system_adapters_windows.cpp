#include <QApplication>
#include <QFont>
#include <array>
#include <cstdio>
#include <utility>

#include "app/system_adapters.h"
#include "app/words_to_caller.h"
#include "platform/system.h"
#include "platform/windows/qt_shell_notification_area.h"
#include "platform/windows/qt_topmost_windows.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_ports.h"
#include "platform/windows/windows_process.h"
#include "platform/windows/windows_shell.h"
#include "platform/windows/windows_sound_player.h"
#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

// A program with windows gets no console from the system, but may write to that of its caller.
void UseConsoleOfCaller() {
  struct Stream {
    DWORD handle;
    FILE* stream;
  };
  const std::array<Stream, 2> streams{{{STD_OUTPUT_HANDLE, stdout}, {STD_ERROR_HANDLE, stderr}}};
  const auto isOpen = [](const Stream& stream) {
    const HANDLE handle = ::GetStdHandle(stream.handle);
    return handle != nullptr && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
  };
  std::array<bool, 2> wasOpen{isOpen(streams[0]), isOpen(streams[1])};
  if ((wasOpen[0] && wasOpen[1]) || ::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  // What the caller has sent to a file stays there.
  for (std::size_t i = 0; i < streams.size(); ++i) {
    if (!wasOpen[i]) static_cast<void>(std::freopen("CONOUT$", "w", streams[i].stream));
  }
}

// Writes to a stream; in a box where the program was started without it.
bool TellOn(FILE* stream, const std::string& text, UINT icon) {
  if (::_fileno(stream) < 0) {
    ::MessageBoxW(nullptr, Wide(text).c_str(), L"Tidewarden", MB_OK | MB_SETFOREGROUND | icon);
    return true;
  }
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

}  // namespace

bool PrepareDesktop(int /*argc*/, char** /*argv*/, WindowPlaces /*places*/) {
  UseConsoleOfCaller();
  PrepareProgram();
  // Plugins are linked into the program; none is taken from a folder that anybody may make.
  QCoreApplication::setLibraryPaths({});
  return true;
}

void SettleDesktop(QCoreApplication& application) {
  // Belongs to the application.
  new QtTopmostWindows(application);
  // The default font has its letters in two sizes only, as dots, and Qt stretches them. Its twin
  // has the same letters in outlines.
  QFont::insertSubstitution(QStringLiteral("MS Sans Serif"),
                            QStringLiteral("Microsoft Sans Serif"));
}

bool Tell(const std::string& text) {
  return TellOn(stdout, text, MB_ICONINFORMATION);
}

void TellRefusal(const std::string& line) {
  // Nobody is left to hear that standard error cannot be written.
  static_cast<void>(TellOn(stderr, line + "\n", MB_ICONEXCLAMATION));
}

void LeaveCaller() {
  RestoreConsole();
  ::FreeConsole();
}

ProgramTray MakeProgramTray() {
  auto area = std::make_unique<QtShellNotificationArea>();
  const IconHandle icon = area->AddIcon(QApplication::windowIcon());
  return {std::move(area), icon};
}

std::unique_ptr<SoundPlayer> MakeSystemSound(std::function<void(const std::string&)> complain) {
  return std::make_unique<WindowsSoundPlayer>(std::move(complain));
}

std::unique_ptr<ShiftKey> MakeSystemShiftKey() {
  return std::make_unique<WindowsShiftKey>();
}

std::unique_ptr<Shell> MakeSystemShell() {
  return std::make_unique<WindowsShell>();
}

std::unique_ptr<ProgramEnd> MakeProgramEnd() {
  return std::make_unique<WindowsProgramEnd>();
}

}  // namespace tidewarden
