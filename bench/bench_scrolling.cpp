// How long the events editor's window takes to open, to show another part of its list and to save
// one change. Without a screen, so that what is drawn is drawn by the processor.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <memory>
#include <stdexcept>

#include "bench/events.h"
#include "editor/frm_edit.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

constexpr char kPath[] = "/home/someone/dates.txt";

class Desk {
 public:
  explicit Desk(std::int64_t events)
      : session_({settings_, files_, clock_, messages_}, {}, test::MonthFirst(),
                 {kPath, "/home/someone/rescue", 1, 0, 0}),
        window_(session_) {
    files_.files[kPath] = bench::MakeEvents(static_cast<std::size_t>(events)).events;
  }

  void Open() {
    window_.Open(-1, {}, false);
    Draw();
  }
  void Close() { window_.Unload(); }

  // Draws what is to be drawn now.
  void Draw() {
    QApplication::processEvents();
    window_.repaint();
  }

  QListView& List() { return *window_.findChild<QListView*>(QStringLiteral("List1")); }

 private:
  MemorySettingsStore settings_;
  MemoryFileSystem files_;
  MemoryClock clock_;
  MemoryMessageBox messages_;
  EditSession session_;
  frmEdit window_;
};

void OpenWindow(benchmark::State& state) {
  Desk desk(state.range(0));
  for (auto _ : state) {
    desk.Open();
    desk.Close();
  }
}
BENCHMARK(OpenWindow)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The thumb of the scroll bar, dragged all over the list.
void DragThumb(benchmark::State& state) {
  Desk desk(state.range(0));
  desk.Open();
  QScrollBar& bar = *desk.List().verticalScrollBar();
  if (bar.maximum() <= 0) throw std::runtime_error("nothing to scroll");
  int place = 0;
  for (auto _ : state) {
    constexpr int kStep = 7919;  // a prime, so that every part of the list has its turn
    place = (place + kStep) % (bar.maximum() + 1);
    bar.setValue(place);
    desk.Draw();
  }
}
BENCHMARK(DragThumb)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void Press(benchmark::State& state, Qt::Key key, Qt::Key backAtTheEnd) {
  Desk desk(state.range(0));
  desk.Open();
  QListView& list = desk.List();
  list.setFocus();
  for (auto _ : state) {
    if (list.currentIndex().row() + 1 >= list.model()->rowCount()) {
      QTest::keyClick(&list, backAtTheEnd);
    }
    QTest::keyClick(&list, key);
    desk.Draw();
  }
}

void PressDown(benchmark::State& state) {
  Press(state, Qt::Key_Down, Qt::Key_Home);
}
BENCHMARK(PressDown)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void PressPageDown(benchmark::State& state) {
  Press(state, Qt::Key_PageDown, Qt::Key_Home);
}
BENCHMARK(PressPageDown)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tidewarden

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
