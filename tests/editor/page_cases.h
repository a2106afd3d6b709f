// The cases of tests/data/pages; README.md there tells how they are written.
#pragma once

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden::test {

struct PageCase {
  std::string name;
  std::string shortDate = "MM/dd/yyyy";
  std::vector<MemorySettingsStore::Entry> settings;
  std::string events;  // the events file
  std::string page;    // what it must give
};

// Throws when a file is not there or holds something unknown.
[[nodiscard]] std::vector<PageCase> PageCases();

// What is printed for a case. Its settings are read from `settings`, which may change.
[[nodiscard]] std::string PageOf(const PageCase& c, MemorySettingsStore& settings);
[[nodiscard]] std::string PageOf(const PageCase& c);

}  // namespace tidewarden::test
