// Writes the same events twice: make_events COUNT EVENTS_FILE REMINDERS_FILE
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/events.h"

namespace {

bool Write(const char* path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
  return out.flush().good();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make_events COUNT EVENTS_FILE REMINDERS_FILE\n", stderr);
    return 2;
  }
  const auto texts = tidewarden::bench::MakeEvents(std::strtoull(argv[1], nullptr, 10));
  return Write(argv[2], texts.events) && Write(argv[3], texts.reminders) ? 0 : 1;
}
