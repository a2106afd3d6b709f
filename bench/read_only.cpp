// Reads a file through the file port and does nothing with it: the floor under every list.
#include <string>

#include "platform/posix/posix_file_system.h"

int main(int argc, char** argv) {
  tidewarden::PosixFileSystem files;
  std::size_t bytes = 0;
  const tidewarden::Status status =
      files.Read(argc > 1 ? argv[1] : "", [&](std::string_view piece) {
        bytes += piece.size();
        return true;
      });
  return status.ok() && bytes > 0 ? 0 : 1;
}
