// Starts window programs in turn and reports how long each takes from the start of its process
// until its window can be seen on the X server:
//   first_paint ROUNDS COMMAND ARGS... --- COMMAND ARGS... ...
// Prints a line for each command: the middle milliseconds of all rounds, the middle CPU
// milliseconds until then, and the most memory in KiB. A program is ended as soon as the middle of
// its window shows anything but black. There must be no window manager, and no other window.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Own(Reply* reply) {
  return {reply, &std::free};
}

[[noreturn]] void Fail(const char* what, const char* command) {
  std::fprintf(stderr, "first_paint: %s: %s\n", what, command);
  std::exit(1);
}

// The server, as one who watches the windows of all programs.
class Server {
 public:
  Server() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) Fail("no X server", "");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection_);
  }
  ~Server() { xcb_disconnect(connection_); }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Forgets what windows that are gone have left.
  void Forget() {
    while (Own(xcb_poll_for_event(connection_)) != nullptr) {
    }
  }

  xcb_window_t WaitForWindow() {
    while (const auto event = Own(xcb_wait_for_event(connection_))) {
      if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
      return reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
    }
    Fail("the X server is gone", "");
  }

  // Whether anything but black can be seen in the middle of a window.
  bool IsPainted(xcb_window_t window) {
    constexpr uint16_t kPart = 8;
    const auto size =
        Own(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    if (!size || size->width < 2 * kPart || size->height < 2 * kPart) return false;
    const auto x = static_cast<int16_t>(size->width / 2);
    const auto y = static_cast<int16_t>(size->height / 2);
    const auto image = Own(xcb_get_image_reply(
        connection_,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, x, y, kPart, kPart, 0xFFFFFF),
        nullptr));
    if (!image) return false;
    const uint8_t* const data = xcb_get_image_data(image.get());
    const int length = xcb_get_image_data_length(image.get());
    for (int i = 0; i < length; ++i) {
      if (i % 4 != 3 && data[i] != 0) return true;
    }
    return false;
  }

 private:
  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
};

struct Runs {
  std::vector<double> wall;
  std::vector<double> cpu;
  long memory = 0;
};

double InMilliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

void RunOnce(Server& server, std::vector<char*> command, Runs& runs) {
  command.push_back(nullptr);
  server.Forget();
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = vfork();
  if (child == 0) {
    execvp(command[0], command.data());
    _exit(127);
  }
  if (child < 0) Fail("cannot be started", command[0]);
  const xcb_window_t window = server.WaitForWindow();
  while (!server.IsPainted(window)) usleep(200);
  runs.wall.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
  kill(child, SIGKILL);
  rusage usage{};
  wait4(child, nullptr, 0, &usage);
  runs.cpu.push_back(InMilliseconds(usage.ru_utime) + InMilliseconds(usage.ru_stime));
  runs.memory = std::max(runs.memory, usage.ru_maxrss);
}

double Middle(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const int rounds = std::max(1, std::atoi(argv[1]));
  std::vector<std::vector<char*>> commands(1);
  for (int i = 2; i < argc; ++i) {
    if (std::string(argv[i]) == "---") {
      commands.emplace_back();
    } else {
      commands.back().push_back(argv[i]);
    }
  }
  Server server;
  std::vector<Runs> runs(commands.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < commands.size(); ++i) RunOnce(server, commands[i], runs[i]);
  }
  for (const Runs& all : runs) {
    std::printf("%.3f %.3f %ld\n", Middle(all.wall), Middle(all.cpu), all.memory);
  }
  return 0;
}
