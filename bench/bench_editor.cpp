// How long the events editor takes to open and to save one change, beside writing and flushing
// the same bytes to the same disk.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/events.h"
#include "editor/edit_session.h"
#include "platform/memory/memory_ports.h"
#include "platform/posix/posix_file_system.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;

// A folder of its own on the disk of TMPDIR.
class Folder {
 public:
  Folder() {
    std::string pattern = (fs::temp_directory_path() / "tidewarden-bench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { fs::remove_all(path_); }

  [[nodiscard]] std::string File() const { return path_ + "/dates.txt"; }
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

class Desk {
 public:
  explicit Desk(std::int64_t events)
      : session_({settings_, files_, clock_, messages_}, {}, test::MonthFirst(),
                 {folder_.File(), folder_.path() + "/rescue", 1, 0, 0}) {
    const std::string content = bench::MakeEvents(static_cast<std::size_t>(events)).events;
    if (!ReplaceFile(files_, folder_.File(), content).ok()) throw std::runtime_error("no file");
  }

  void Open() {
    static_cast<void>(session_.Load({{0, 0, 28800, 16200}}));
    session_.Shown();
  }

  // Gives the first event another title.
  void Change(const std::string& title) {
    session_.RowSelected(0);
    session_.Edit();
    session_.EventInputTyped(title);
    session_.Save();
    if (session_.isEntryUnderWay()) throw std::runtime_error("not saved");
  }

  [[nodiscard]] PosixFileSystem& files() { return files_; }
  [[nodiscard]] const Folder& folder() const { return folder_; }

 private:
  Folder folder_;
  MemorySettingsStore settings_;
  PosixFileSystem files_;
  MemoryClock clock_;
  MemoryMessageBox messages_;
  EditSession session_;
};

void OpenEditor(benchmark::State& state) {
  Desk desk(state.range(0));
  for (auto _ : state) desk.Open();
}
BENCHMARK(OpenEditor)->Arg(100)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void SaveOneChange(benchmark::State& state) {
  Desk desk(state.range(0));
  desk.Open();
  desk.Change("AAA");
  bool other = false;
  for (auto _ : state) desk.Change((other = !other) ? "AAB" : "AAA");
}
BENCHMARK(SaveOneChange)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void WriteAndFlush(benchmark::State& state) {
  Desk desk(state.range(0));
  std::string content;
  if (!ReadFile(desk.files(), desk.folder().File(), content).ok()) return;
  const std::string path = desk.folder().path() + "/plain";
  for (auto _ : state) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const auto written = ::write(fd, content.data(), content.size());
    benchmark::DoNotOptimize(written);
    ::fsync(fd);
    ::close(fd);
  }
}
BENCHMARK(WriteAndFlush)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace tidewarden

BENCHMARK_MAIN();
