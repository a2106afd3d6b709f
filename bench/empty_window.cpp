// What any Qt program has to do before it can be seen: shows an empty window, or, with an argument,
// one with nothing but that word in it.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QWidget window;
  window.resize(295, 135);
  if (argc > 1) (new QLabel(QString::fromLocal8Bit(argv[1]), &window))->resize(295, 135);
  window.show();
  return QApplication::exec();
}
