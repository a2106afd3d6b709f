// System calls that fail, do half of their work or are the last thing that the process does. The
// linker puts wrappers in front of the real calls (tidewarden_add_faults_test in
// tests/CMakeLists.txt); they pass everything on while no fault is in force.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tidewarden::test {

struct Fault {
  int killBefore = 0;  // SIGKILL before this call, from 1; 0 for never
  int failAt = 0;      // this call fails, from 1; 0 for none
  int error = 0;
  bool lasting = false;                                          // the calls after it fail, too
  int many = 1;                                                  // so many calls fail in a row
  std::size_t atMost = std::numeric_limits<std::size_t>::max();  // bytes of one read or write
};

// Puts a fault in force for the rest of the process.
void Inject(const Fault& fault);

// The calls that have been made since.
[[nodiscard]] int CallsMade();

// The names of all calls that are wrapped.
[[nodiscard]] const std::vector<std::string>& WrappedCalls();

}  // namespace tidewarden::test
