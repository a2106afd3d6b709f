// Prints the folder that a program takes for its own.
#include <cstdio>

#include "platform/system.h"

int main() {
  std::puts(tidewarden::SystemFolders().program.c_str());
  return 0;
}
