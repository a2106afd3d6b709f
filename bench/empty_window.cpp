// What any Qt program has to do before it can be seen: shows an empty window, writes its picture
// and ends, as `tidewarden --grab` does. empty_window FILE.bmp
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2) return 2;
  QWidget window;
  window.resize(295, 135);
  window.show();
  QApplication::processEvents();
  return window.grab().save(arguments[1]) ? 0 : 1;
}
