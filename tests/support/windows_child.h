// A second process for tests of what two programs do to each other.
#pragma once

#include <string>
#include <vector>

#include "platform/windows/windows_handles.h"

namespace tidewarden::test {

// Runs a program with arguments that need no quotation marks of their own. Its standard output is
// read here; it ends when the object does, at the latest.
class Child {
 public:
  Child(const std::string& program, const std::vector<std::string>& arguments,
        const std::string& folder = ".");
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  // The next line of its output, without its end; empty when there is none any more.
  std::string ReadLine();

  // Everything up to its end.
  std::string ReadRest();

  // Ends it without giving it time for anything.
  void Kill();

 private:
  FileHandle process_;
  FileHandle output_;
};

}  // namespace tidewarden::test
