// What any Qt program has to do before it can be seen: shows an empty window.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QWidget window;
  window.resize(295, 135);
  window.show();
  return QApplication::exec();
}
