#include "core/frm_skin.h"

#include <QWidget>
#include <utility>

namespace tidewarden {
namespace {

bool complained = false;

void Listen(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  complained = complained || text.startsWith(QStringLiteral("Could not parse"));
}

// Keeps what Qt says to itself while it lives: an unusable skin is passed over without a message.
class Listener {
 public:
  Listener() : before_(qInstallMessageHandler(Listen)) { complained = false; }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { qInstallMessageHandler(before_); }

 private:
  QtMessageHandler before_;
};

// What a widget's status tip becomes under a sheet.
QString TipUnder(const QString& sheet) {
  QWidget probe;
  probe.setObjectName(QStringLiteral("skinProbe"));
  probe.setStyleSheet(sheet);
  probe.ensurePolished();
  return probe.statusTip();
}

bool CanBeRead(const QString& text) {
  const Listener listener;
  static_cast<void>(TipUnder(text));
  if (complained) return false;
  // Qt does not complain of every mistake, but nothing after one counts: neither a rule at the end
  // of rules nor a declaration at the end of declarations. The empty block keeps half a rule at the
  // end of the text from becoming a whole one.
  const QString declaration = QStringLiteral("qproperty-statusTip: \"read\";");
  const QString rule = QStringLiteral("\n@media none { }\n#skinProbe { %1 }").arg(declaration);
  const QString read = QStringLiteral("read");
  return TipUnder(text + rule) == read ||
         TipUnder(text + QStringLiteral("\n; ") + declaration) == read;
}

}  // namespace

QString ReadableSkin(const QString& text) {
  if (text.isEmpty()) return {};
  static std::pair<QString, bool> last;
  if (last.first != text) last = {text, CanBeRead(text)};
  return last.second ? text : QString();
}

}  // namespace tidewarden
