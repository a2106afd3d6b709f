// How long building the reminder list takes, and how it grows, beside only reading the bytes.
#include <benchmark/benchmark.h>

#include "bench/events.h"
#include "core/events_file.h"
#include "platform/memory/memory_ports.h"
#include "reminder/list_builder.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

constexpr char kPath[] = "dates.txt";

const std::string& Events(std::int64_t count) {
  static std::map<std::int64_t, std::string> texts;
  std::string& text = texts[count];
  if (text.empty()) text = bench::MakeEvents(static_cast<std::size_t>(count)).events;
  return text;
}

void CountLines(benchmark::State& state) {
  state.counters["per_line"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BuildList(benchmark::State& state) {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  files.piece = std::size_t{128} * 1024;
  files.files[kPath] = Events(state.range(0));
  MemoryClock clock;
  clock.now = {MakeDate(2026, 11, 20), 14, 25, 0};
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  ListBuilder builder({settings, files, clock, messages, shiftKey, {}}, test::MonthFirst(), kPath,
                      ReadTodayPreface(settings));
  for (auto _ : state) {
    benchmark::DoNotOptimize(builder.BuildReminderList(FileAccess::kReadOnly));
    files.calls.clear();
  }
  CountLines(state);
}
BENCHMARK(BuildList)->Arg(100)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(
    benchmark::kMicrosecond);

void ReadBytes(benchmark::State& state) {
  MemoryFileSystem files;
  files.piece = std::size_t{128} * 1024;
  files.files[kPath] = Events(state.range(0));
  for (auto _ : state) {
    std::uint64_t sum = 0;
    const Status status = files.Read(kPath, [&](std::string_view piece) {
      for (const char c : piece) sum += static_cast<unsigned char>(c);
      return true;
    });
    benchmark::DoNotOptimize(status.ok());
    benchmark::DoNotOptimize(sum);
    files.calls.clear();
  }
  CountLines(state);
}
BENCHMARK(ReadBytes)->Arg(100)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(
    benchmark::kMicrosecond);

}  // namespace
}  // namespace tidewarden

BENCHMARK_MAIN();
