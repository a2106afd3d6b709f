// How long the events editor takes to open and to save one change, beside writing and flushing
// the same bytes to the same disk.
//
//   bench_editor                 all of it
//   bench_editor --check-ratio   only whether a save costs less than four times the plain writing;
//                                fails when it does not
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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

  // Gives the event in the middle another title.
  void Change(const std::string& title) {
    session_.RowSelected(static_cast<int>(session_.List1().size() / 2));
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

void WriteAndFlushOnce(const std::string& path, std::string_view content) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (fd < 0) throw std::runtime_error("cannot open " + path);
  while (!content.empty()) {
    const ssize_t written = ::write(fd, content.data(), content.size());
    if (written <= 0) throw std::runtime_error("cannot write " + path);
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  if (::fsync(fd) != 0) throw std::runtime_error("cannot flush " + path);
  if (::close(fd) != 0) throw std::runtime_error("cannot close " + path);
}

std::string ContentOf(Desk& desk) {
  std::string content;
  if (!ReadFile(desk.files(), desk.folder().File(), content).ok() || content.empty()) {
    throw std::runtime_error("no content");
  }
  return content;
}

void WriteAndFlush(benchmark::State& state) {
  Desk desk(state.range(0));
  const std::string content = ContentOf(desk);
  const std::string path = desk.folder().path() + "/plain";
  for (auto _ : state) WriteAndFlushOnce(path, content);
}
BENCHMARK(WriteAndFlush)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

double Milliseconds(const std::function<void()>& what) {
  const auto start = std::chrono::steady_clock::now();
  what();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.at(values.size() / 2);
}

// A busy machine slows both sides down: they take turns, and each is judged by its middle run. Few
// short ones would all fall into one busy moment of the disk.
bool IsSaveCheap(std::int64_t events, int runs) {
  constexpr double kMostTimes = 4;
  Desk desk(events);
  desk.Open();
  desk.Change("AAA");
  const std::string content = ContentOf(desk);
  const std::string path = desk.folder().path() + "/plain";
  WriteAndFlushOnce(path, content);
  std::vector<double> saves;
  std::vector<double> writes;
  for (int i = 0; i < runs; ++i) {
    const char* const title = i % 2 == 0 ? "AAB" : "AAA";
    saves.push_back(Milliseconds([&] { desk.Change(title); }));
    writes.push_back(Milliseconds([&] { WriteAndFlushOnce(path, content); }));
  }
  const double ratio = Median(saves) / Median(writes);
  const bool cheap = ratio < kMostTimes;
  std::printf("%lld events: a save %.2f ms, writing and flushing %.2f ms, %.2f times as long%s\n",
              static_cast<long long>(events), Median(saves), Median(writes), ratio,
              cheap ? "" : ": TOO SLOW");
  return cheap;
}

}  // namespace
}  // namespace tidewarden

int main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--check-ratio") {
    const bool small = tidewarden::IsSaveCheap(100, 201);
    const bool large = tidewarden::IsSaveCheap(100'000, 41);
    return small && large ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
