// twdocs: the help program.
#include <QApplication>
#include <QBuffer>
#include <QDesktopServices>
#include <QPixmap>
#include <QUrl>

#include "app/system_adapters.h"
#include "app/words_to_caller.h"
#include "core/file_system.h"
#include "core/settings_store.h"
#include "core/skin.h"
#include "guide/frm_docs.h"
#include "platform/qt/display.h"
#include "platform/qt/program_icon.h"
#include "platform/system.h"
#include "tidewarden_version.h"
#include "twdocs/arguments.h"
#include "twdocs/shipped_guide.h"

namespace tidewarden {
namespace {

// Reading a setting stores its default; a guide that is only read leaves nothing behind.
class SettingsToRead : public SettingsStore {
 public:
  explicit SettingsToRead(SettingsStore& store) : store_(store) {}

  Status Read(std::string_view section, std::string_view name, std::string& value) override {
    return store_.Read(section, name, value);
  }
  Status Write(std::string_view /*section*/, std::string_view /*name*/,
               std::string_view /*value*/) override {
    return {};
  }
  Status Delete(std::string_view /*section*/, std::string_view /*name*/) override { return {}; }

 private:
  SettingsStore& store_;
};

QString SkinOfTheWindows(FileSystem& files) {
  const auto stored = MakeSystemSettings(files);
  SettingsToRead settings(*stored);
  return QString::fromStdString(ReadSkin(settings, files, SystemFolders()));
}

ExitCode Grab(QWidget& window, const QString& path, FileSystem& files) {
  window.show();
  QApplication::processEvents();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (window.grab().save(&buffer, "PNG") &&
      ReplaceFile(files, path.toStdString(), bytes.toStdString()).ok()) {
    return kDone;
  }
  Complain(QStringLiteral("%1: the picture cannot be written").arg(path));
  return kCannotWrite;
}

int Run(const Arguments& arguments, const Guide& guide) {
  DocsSession session(guide);
  if (!arguments.topic.isEmpty() && !session.Begin(arguments.topic.toStdString())) {
    Complain(QStringLiteral("there is no topic \"%1\", so here are the contents; --list-topics "
                            "prints what there is")
                 .arg(arguments.topic));
  }
  frmDocs window(session);
  window.OpenOutside = [](const QString& address) {
    QDesktopServices::openUrl(QUrl(address, QUrl::StrictMode));
  };
  const auto files = MakeSystemFiles();
  window.ApplySkin(SkinOfTheWindows(*files));
  if (!arguments.grab.isEmpty()) return Grab(window, arguments.grab, *files);
  window.show();
  LeaveCaller();
  return QApplication::exec();
}

}  // namespace
}  // namespace tidewarden

int main(int argc, char** argv) {
  using namespace tidewarden;
  if (!PrepareDesktop(argc, argv, WindowPlaces::kDesktop)) {
    Complain(QStringLiteral(
        "there is no display to open a window on; the manual pages tell the same: man tidewarden, "
        "man tidewarden-cli, man tidewarden-dates, man tidewarden-settings"));
    return kNoDisplay;
  }
  QApplication app(argc, argv);
  SettleDesktop(app);
  QCoreApplication::setApplicationName(QStringLiteral("twdocs"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  // It belongs to the entry of the reminder in the desktop's menu.
  QGuiApplication::setDesktopFileName(QStringLiteral("tidewarden"));
  QApplication::setWindowIcon(ProgramIcon());
  const Guide guide = ShippedGuide();
  Arguments arguments;
  if (const auto code = ReadArguments(guide, arguments)) return *code;
  return Run(arguments, guide);
}
