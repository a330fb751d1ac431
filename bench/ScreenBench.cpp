// A stop-watch that looks at the screen of an X server from outside, the same for every program.
//
// bench_screen start PROGRAM ARGUMENT…        from the start of the program to its text on the screen, and to its
// colours bench_screen keys COUNT PROGRAM ARGUMENT…   from a key to the changed pixels of the line that it is typed
// into
//
// The program is started, measured and killed. The screen should show nothing else, and its root window be white.
// Times are milliseconds. Writes one JSON object; ends with 1 and a message when there was nothing to measure.

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>
#include <poll.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;
using Pixels = std::vector<std::uint32_t>;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

[[noreturn]] void Fail(const char* why);

/// The program that is measured; there is one at a time.
pid_t theProgram = 0;

void Start(char** command) {
  theProgram = fork();
  if (theProgram < 0) Fail("no process could be started");
  if (theProgram > 0) return;
  execvp(command[0], command);
  std::perror(command[0]);
  _exit(127);
}

void Stop() {
  if (theProgram <= 0) return;
  kill(theProgram, SIGKILL);
  waitpid(theProgram, nullptr, 0);
}

void Fail(const char* why) {
  std::fprintf(stderr, "bench_screen: %s\n", why);
  Stop();
  std::exit(EXIT_FAILURE);
}

/// The root window and what is drawn in it.
class Screen {
 public:
  Screen() : m_display(XOpenDisplay(nullptr)) {
    if (m_display == nullptr) Fail("no display");
    m_root = DefaultRootWindow(m_display);
    Width = DisplayWidth(m_display, DefaultScreen(m_display));
    Height = DisplayHeight(m_display, DefaultScreen(m_display));
    if (DefaultDepth(m_display, DefaultScreen(m_display)) != 24) Fail("the screen must have 24 bits a pixel");
    m_segment.shmid =
        shmget(IPC_PRIVATE, static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height) * 4, 0600 | IPC_CREAT);
    m_segment.shmaddr = static_cast<char*>(shmat(m_segment.shmid, nullptr, 0));
    if (!XShmAttach(m_display, &m_segment)) Fail("the X server shares no memory");
    XSync(m_display, False);
    shmctl(m_segment.shmid, IPC_RMID, nullptr);
    int errors = 0;
    if (!XDamageQueryExtension(m_display, &m_damageEvents, &errors)) Fail("the X server tells no damage");
    XDamageCreate(m_display, m_root, XDamageReportRawRectangles);
  }

  /// The rows [top, bottom), without what lies outside the colours.
  Pixels Grab(int top, int bottom) {
    XImage* image =
        XShmCreateImage(m_display, DefaultVisual(m_display, DefaultScreen(m_display)), 24, ZPixmap, m_segment.shmaddr,
                        &m_segment, static_cast<unsigned>(Width), static_cast<unsigned>(bottom - top));
    XShmGetImage(m_display, m_root, image, 0, top, AllPlanes);
    Pixels pixels(static_cast<std::size_t>(Width) * static_cast<std::size_t>(bottom - top));
    std::memcpy(pixels.data(), m_segment.shmaddr, pixels.size() * 4);
    image->data = nullptr;
    XDestroyImage(image);
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFFU;
    return pixels;
  }
  Pixels GrabAll() { return Grab(0, Height); }

  void Key(KeySym symbol, bool withControl = false) {
    const KeyCode code = XKeysymToKeycode(m_display, symbol), control = XKeysymToKeycode(m_display, XK_Control_L);
    if (withControl) XTestFakeKeyEvent(m_display, control, True, 0);
    XTestFakeKeyEvent(m_display, code, True, 0);
    XTestFakeKeyEvent(m_display, code, False, 0);
    if (withControl) XTestFakeKeyEvent(m_display, control, False, 0);
    XFlush(m_display);
  }

  /// Waits until something is drawn, and forgets what else has been drawn. False after so many milliseconds.
  bool WaitForDrawing(double limit) {
    const Clock::time_point start = Clock::now();
    bool drawn = false;
    for (;;) {
      while (XPending(m_display) > 0) {
        XEvent event;
        XNextEvent(m_display, &event);
        drawn = drawn || event.type == m_damageEvents + XDamageNotify;
      }
      const double left = limit - MillisecondsSince(start);
      if (drawn || left <= 0) return drawn;
      pollfd file{ConnectionNumber(m_display), POLLIN, 0};
      poll(&file, 1, static_cast<int>(left) + 1);
    }
  }

  int Width = 0, Height = 0;

 private:
  Display* m_display;
  Window m_root = 0;
  XShmSegmentInfo m_segment{};
  int m_damageEvents = 0;
};

std::size_t Differences(const Pixels& a, const Pixels& b) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i] ? 1 : 0;
  return count;
}

constexpr std::size_t CaretPixels = 120;  // a blinking caret is no news

/// Waits until nothing but the caret has changed for so many milliseconds, and gives that picture.
Pixels Settled(Screen& screen, double quiet, double limit) {
  const Clock::time_point start = Clock::now();
  Clock::time_point changed = start;
  Pixels last = screen.GrabAll();
  while (MillisecondsSince(changed) < quiet) {
    if (MillisecondsSince(start) > limit) Fail("the screen does not come to rest");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Pixels now = screen.GrabAll();
    if (Differences(now, last) > CaretPixels) changed = Clock::now(), last = std::move(now);
  }
  return last;
}

// Starting.

/// A line of the program's /proc/…/status, in bytes.
std::size_t MemoryOf(const char* name) {
  const std::string path = "/proc/" + std::to_string(theProgram) + "/status";
  std::FILE* file = std::fopen(path.c_str(), "r");
  if (file == nullptr) Fail("the program is gone");
  std::size_t kilobytes = 0;
  char line[256];
  while (std::fgets(line, sizeof line, file) != nullptr)
    if (std::strncmp(line, name, std::strlen(name)) == 0)
      kilobytes = std::strtoull(line + std::strlen(name) + 1, nullptr, 10);
  std::fclose(file);
  return kilobytes * 1024;
}

bool IsInk(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
  return red * 3 + green * 6 + blue < 1600;  // of 2550
}

bool IsColoured(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
  return std::max({red, green, blue}) - std::min({red, green, blue}) > 90;
}

struct Frame {
  double Time;
  Pixels Picture;
};

/// When so many of a hundred of the pixels in question were as they should be, for good.
template <typename InQuestion, typename AsItShouldBe>
double FirstTime(const std::vector<Frame>& frames, std::size_t& count, InQuestion inQuestion,
                 AsItShouldBe asItShouldBe) {
  constexpr std::size_t PercentWanted = 95;
  const Pixels& last = frames.back().Picture;
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < last.size(); ++i)
    if (inQuestion(last[i])) places.push_back(i);
  count = places.size();
  double time = frames.back().Time;
  for (std::size_t k = frames.size(); k-- > 0;) {
    const auto right = std::count_if(places.begin(), places.end(),
                                     [&](std::size_t i) { return asItShouldBe(frames[k].Picture[i], last[i]); });
    if (static_cast<std::size_t>(right) * 100 < count * PercentWanted) break;
    time = frames[k].Time;
  }
  return time;
}

/// The processor time of the program so far, in milliseconds.
double ProcessorTime() {
  const std::string path = "/proc/" + std::to_string(theProgram) + "/stat";
  std::FILE* file = std::fopen(path.c_str(), "r");
  if (file == nullptr) Fail("the program is gone");
  char text[1024] = {};
  const std::size_t size = std::fread(text, 1, sizeof text - 1, file);
  std::fclose(file);
  const char* behindName = size > 0 ? std::strrchr(text, ')') : nullptr;
  unsigned long user = 0, system = 0;
  if (behindName == nullptr ||
      std::sscanf(behindName, ") %*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu", &user, &system) != 2)
    Fail("the program's state cannot be read");
  return 1000.0 * static_cast<double>(user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// Tells how long a program has had nothing to do but to let its caret blink.
class Idleness {
 public:
  double Milliseconds() {
    if (MillisecondsSince(m_checked) < 200) return MillisecondsSince(m_busy);
    const double used = ProcessorTime(), before = std::exchange(m_used, used);
    m_checked = Clock::now();
    if (used - before > 20) m_busy = m_checked;
    return MillisecondsSince(m_busy);
  }

 private:
  Clock::time_point m_busy = Clock::now(), m_checked = m_busy;
  double m_used = 0;
};

/// Looks at the screen every few milliseconds until it and the program have been quiet for a while.
void MeasureStart(Screen& screen, char** command) {
  constexpr double Quiet = 1500, Limit = 120'000;
  std::vector<Frame> frames = {{0, screen.GrabAll()}};
  const Clock::time_point start = Clock::now();
  Start(command);
  Idleness idleness;
  while (frames.size() == 1 || MillisecondsSince(start) - frames.back().Time < Quiet ||
         idleness.Milliseconds() < Quiet) {
    if (MillisecondsSince(start) > Limit) Fail("the program shows nothing that stays");
    Pixels now = screen.GrabAll();
    const double time = MillisecondsSince(start);
    if (Differences(now, frames.back().Picture) > CaretPixels) frames.push_back({time, std::move(now)});
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  std::size_t ink = 0, coloured = 0;
  const double text = FirstTime(frames, ink, IsInk, [](auto now, auto) { return IsInk(now); });
  const double colours = FirstTime(frames, coloured, IsColoured, [](auto now, auto last) { return now == last; });
  if (ink < 2000 || coloured < 1000) Fail("there is no coloured text on the screen");
  std::printf(
      "{\"text\": %.2f, \"coloured\": %.2f, \"processor\": %.0f, \"rss\": %zu, \"peak\": %zu, \"frames\": %zu}\n", text,
      colours, ProcessorTime(), MemoryOf("VmRSS"), MemoryOf("VmHWM"), frames.size());
}

// Keys.

struct Rows {
  int Top = -1, Bottom = -1;
};

/// The rows in which the widest change lies, neighbouring rows taken together.
Rows WidestChange(const Screen& screen, const Pixels& before, const Pixels& after) {
  const auto widthOf = [&](int row) {
    const std::size_t start = static_cast<std::size_t>(row) * static_cast<std::size_t>(screen.Width);
    int first = screen.Width, last = 0;
    for (int x = 0; x < screen.Width; ++x)
      if (before[start + static_cast<std::size_t>(x)] != after[start + static_cast<std::size_t>(x)])
        first = std::min(first, x), last = x + 1;
    return std::max(0, last - first);
  };
  Rows widest;
  int width = 0;
  for (int row = 0; row < screen.Height; ++row) {
    if (widthOf(row) == 0) continue;
    Rows rows{row, row};
    int widthHere = 0;
    for (; rows.Bottom < screen.Height && widthOf(rows.Bottom) > 0; ++rows.Bottom)
      widthHere = std::max(widthHere, widthOf(rows.Bottom));
    if (widthHere > width) width = widthHere, widest = rows;
    row = rows.Bottom;
  }
  constexpr int LeastWidth = 120;
  if (width < LeastWidth) Fail("typing changes no line on the screen");
  return widest;
}

double TimeOfKey(Screen& screen, KeySym symbol, Rows rows) {
  screen.WaitForDrawing(0);
  const Pixels before = screen.Grab(rows.Top, rows.Bottom);
  const Clock::time_point start = Clock::now();
  screen.Key(symbol);
  do {
    if (!screen.WaitForDrawing(5000) || MillisecondsSince(start) > 5000) Fail("a key drew nothing");
  } while (screen.Grab(rows.Top, rows.Bottom) == before);
  return MillisecondsSince(start);
}

/// Waits until the program has had nothing to do for a second.
void WaitUntilIdle() {
  constexpr double Quiet = 1000, Limit = 60'000;
  const Clock::time_point start = Clock::now();
  for (Idleness idleness; idleness.Milliseconds() < Quiet;) {
    if (MillisecondsSince(start) > Limit) Fail("the program does not come to rest");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

constexpr KeySym LetterKey = XK_x;

/// Types some letters; gives the rows in which most has changed.
Rows TypedRows(Screen& screen) {
  constexpr int Letters = 20;
  const Pixels before = Settled(screen, 400, 60'000);
  for (int i = 0; i < Letters; ++i) screen.Key(LetterKey);
  return WidestChange(screen, before, Settled(screen, 400, 60'000));
}

void MeasureKeys(Screen& screen, int count, bool atEnd, char** command) {
  const Pixels empty = screen.GrabAll();
  Start(command);
  const Clock::time_point start = Clock::now();
  while (Differences(screen.GrabAll(), empty) < 10'000)
    if (MillisecondsSince(start) > 60'000) Fail("the program shows no window");
  Settled(screen, 1000, 120'000);
  if (atEnd) screen.Key(XK_End, true);
  WaitUntilIdle();  // a program may first colour all that lies between
  // What comes once, such as a scroll bar that moves the text, may be wider: the same rows twice are the line.
  Rows rows = TypedRows(screen);
  for (Rows last; rows.Top != last.Top;) last = std::exchange(rows, TypedRows(screen));
  std::vector<double> samples;
  for (int i = 0; i < count; ++i) {
    samples.push_back(TimeOfKey(screen, LetterKey, rows));
    std::this_thread::sleep_for(std::chrono::milliseconds(40 + i * 7 % 30));  // in step with no blinking
    TimeOfKey(screen, XK_BackSpace, rows);
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
  }
  std::printf("{\"rows\": [%d, %d], \"samples\": [", rows.Top, rows.Bottom);
  for (std::size_t i = 0; i < samples.size(); ++i) std::printf("%s%.3f", i == 0 ? "" : ", ", samples[i]);
  std::printf("]}\n");
}

/// What main does.
int Run(int argc, char** argv) {
  const bool starts = argc > 2 && std::strcmp(argv[1], "start") == 0;
  const bool types = argc > 4 && std::strcmp(argv[1], "keys") == 0;
  if (!starts && !types) {
    std::fprintf(stderr, "Usage: %s start PROGRAM [ARGUMENT…] | keys COUNT end|here PROGRAM [ARGUMENT…]\n", argv[0]);
    return 2;
  }
  Screen screen;
  if (starts) MeasureStart(screen, argv + 2);
  if (types) MeasureKeys(screen, std::atoi(argv[2]), std::strcmp(argv[3], "end") == 0, argv + 4);
  Stop();
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  return bench::Run(argc, argv);
}
