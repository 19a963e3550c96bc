// Starts programs one after another in the display and tells when their windows can be used, seen from outside: the
// last time that the picture changed by more than a caret, or, where that is later, the last time that the thread of
// the window was at work and so couldn't answer. Rounds are interleaved; the medians are printed, and the ratios to the
// first program.
//
//   startup_watch ROUNDS NAME COMMAND [ARG ...] [-- NAME COMMAND [ARG ...]] ...

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kCaretPixels = 500;      // less than this is a blinking caret
constexpr double kQuietSeconds = 2.0;  // without a change for so long, the window is as it will be
constexpr double kWorkSeconds = 0.05;  // two ticks (10 ms each) within it are work
constexpr double kLimitSeconds = 45.0;

struct Program {
  std::string name;
  std::vector<std::string> command;
};

struct Outcome {
  double seconds = -1;  // -1: no window in time
  double megabytes = 0;
};

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
      std::fprintf(stderr, "startup_watch: there is no display\n");
      std::exit(2);
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    clients_ = Atom("_NET_CLIENT_LIST");
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  /// The windows that the window manager manages.
  std::vector<xcb_window_t> Windows() const {
    std::vector<xcb_window_t> windows;
    auto* reply = xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, screen_->root, clients_, XCB_ATOM_WINDOW, 0, 1024), nullptr);
    if (reply == nullptr) return windows;
    const auto* first = static_cast<const xcb_window_t*>(xcb_get_property_value(reply));
    windows.assign(first, first + xcb_get_property_value_length(reply) / 4);
    std::free(reply);
    return windows;
  }

  std::vector<std::uint32_t> Picture() const {
    auto* reply = xcb_get_image_reply(connection_,
                                      xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, 0, 0,
                                                    screen_->width_in_pixels, screen_->height_in_pixels, ~0U),
                                      nullptr);
    std::vector<std::uint32_t> pixels;
    if (reply == nullptr) return pixels;
    pixels.resize(static_cast<std::size_t>(xcb_get_image_data_length(reply)) / 4);
    std::memcpy(pixels.data(), xcb_get_image_data(reply), pixels.size() * 4);
    std::free(reply);
    return pixels;
  }

 private:
  xcb_atom_t Atom(const char* name) const {
    auto* reply = xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
  }

  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
  xcb_atom_t clients_ = 0;
};

int Differing(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  if (a.size() != b.size()) return kCaretPixels + 1;
  int count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
  return count;
}

/// Resident memory in MiB of a process and all below it, shared pages counted once in each.
double Resident(pid_t top) {
  std::map<pid_t, pid_t> parents;
  DIR* proc = opendir("/proc");
  while (const dirent* entry = readdir(proc)) {
    const pid_t id = std::atoi(entry->d_name);
    if (id <= 0) continue;
    std::ifstream stat("/proc/" + std::to_string(id) + "/stat");
    std::string line;
    std::getline(stat, line);
    const std::size_t behind = line.rfind(')');
    if (behind != std::string::npos) parents[id] = std::atoi(line.c_str() + behind + 4);
  }
  closedir(proc);
  double kilobytes = 0;
  for (const auto& [id, parent] : parents) {
    pid_t at = id;
    while (at != top && parents.contains(at)) at = parents[at];
    if (at != top) continue;
    std::ifstream status("/proc/" + std::to_string(id) + "/status");
    std::string line;
    while (std::getline(status, line)) {
      if (line.rfind("VmRSS:", 0) == 0) kilobytes += std::atof(line.c_str() + 6);
    }
  }
  return kilobytes / 1024;
}

pid_t Start(const Program& program) {
  const pid_t id = fork();
  if (id != 0) return id;
  setpgid(0, 0);
  const int quiet = open("/dev/null", O_RDWR);
  dup2(quiet, 0);
  dup2(quiet, 1);
  dup2(quiet, 2);
  std::vector<char*> arguments;
  for (const std::string& part : program.command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

void End(pid_t id, const Display& display) {
  kill(-id, SIGTERM);
  const auto asked = Clock::now();
  while (waitpid(id, nullptr, WNOHANG) == 0) {
    if (Since(asked) > 3) kill(-id, SIGKILL);
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  kill(-id, SIGKILL);  // what it had started itself
  while (!display.Windows().empty() && Since(asked) < 10) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

/// Processor time in ticks that the first thread of a process has used.
long Ticks(pid_t id) {
  const std::string process = std::to_string(id);
  std::ifstream stat("/proc/" + process + "/task/" + process + "/stat");
  std::string line;
  std::getline(stat, line);
  const std::size_t behind = line.rfind(')');
  long user = 0, system = 0;
  if (behind != std::string::npos) {
    std::sscanf(line.c_str() + behind + 2, "%*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %ld %ld", &user, &system);
  }
  return user + system;
}

Outcome Measure(const Program& program, Display& display) {
  std::vector<std::uint32_t> picture = display.Picture();
  const auto start = Clock::now();
  const pid_t id = Start(program);
  Outcome outcome;
  double changed = 0;
  double busy = 0;
  double tickAt = 0;
  long ticks = 0;
  while (Since(start) < kLimitSeconds) {
    std::vector<std::uint32_t> next = display.Picture();
    const double now = Since(start);
    if (Differing(picture, next) > kCaretPixels) changed = now;
    picture = std::move(next);
    if (const long used = Ticks(id); used != ticks) {
      // One tick now and then is a timer or a caret; ticks behind each other are work.
      if (now - tickAt < kWorkSeconds) busy = now;
      ticks = used;
      tickAt = now;
    }
    if (!display.Windows().empty() && now - std::max(changed, busy) > kQuietSeconds) {
      outcome = {std::max(changed, busy), Resident(id)};
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  End(id, display);
  return outcome;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.empty() ? -1 : values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: startup_watch ROUNDS NAME COMMAND [ARG ...] [-- NAME COMMAND [ARG ...]] ...\n");
    return 2;
  }
  const int rounds = std::atoi(argv[1]);
  std::vector<Program> programs(1);
  for (int i = 2; i < argc; ++i) {
    if (std::strcmp(argv[i], "--") == 0) {
      programs.emplace_back();
    } else if (programs.back().name.empty()) {
      programs.back().name = argv[i];
    } else {
      programs.back().command.emplace_back(argv[i]);
    }
  }
  Display display;
  std::vector<std::vector<double>> seconds(programs.size()), memory(programs.size());
  // The first round only warms the caches and lets each program make its settings.
  for (int round = 0; round <= rounds; ++round) {
    for (std::size_t i = 0; i < programs.size(); ++i) {
      const Outcome outcome = Measure(programs[i], display);
      if (round == 0 || outcome.seconds < 0) continue;
      seconds[i].push_back(outcome.seconds);
      memory[i].push_back(outcome.megabytes);
    }
  }
  std::printf("%-28s %10s %10s %8s\n", "program", "seconds", "MiB", "ratio");
  const double first = Median(seconds[0]);
  for (std::size_t i = 0; i < programs.size(); ++i) {
    if (seconds[i].empty()) {
      std::printf("%-28s %10s\n", programs[i].name.c_str(), "no window");
      continue;
    }
    std::printf("%-28s %10.3f %10.1f %8.2f\n", programs[i].name.c_str(), Median(seconds[i]), Median(memory[i]),
                Median(seconds[i]) / first);
  }
  return 0;
}
