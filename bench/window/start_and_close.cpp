// Measures, in milliseconds, the time from starting a program to its first window being mapped, and from
// asking that window to close to the end of the process:
//
//   start_and_close PROGRAM [ARGUMENT...]        prints e.g. "71.3 38.0"
//
// Needs a display without a window manager (which would wrap the window in a frame of its own). A program
// that doesn't end within five seconds is ended, and "-" stands for its second figure.
#include <X11/Xlib.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// Toolkits map small helper windows first; a real one is larger.
constexpr int least_width = 50;
/// The program is left alone for so long before it is closed.
constexpr std::chrono::milliseconds settling{700};
constexpr std::chrono::seconds patience{5};

bool is_real_window(Display* display, Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) != 0 && attributes.width > least_width;
}

Window next_mapped(Display* display) {
    for (;;) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == MapNotify && is_real_window(display, event.xmap.window)) return event.xmap.window;
    }
}

/// What a window manager sends when somebody clicks the cross.
void ask_to_close(Display* display, Window window) {
    XEvent event;
    std::memset(&event, 0, sizeof event);
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
}

bool ended(pid_t child, Clock::time_point limit) {
    while (waitpid(child, nullptr, WNOHANG) != child) {
        if (Clock::now() > limit) return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

double milliseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
    Display* const display = XOpenDisplay(nullptr);
    if (argc < 2 || !display) {
        std::fprintf(stderr, "usage: start_and_close PROGRAM [ARGUMENT...], on a display\n");
        return 2;
    }
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);

    auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[1], argv + 1);
        _exit(127);
    }
    const Window window = next_mapped(display);
    std::printf("%.1f ", milliseconds_since(start));

    std::this_thread::sleep_for(settling);
    start = Clock::now();
    ask_to_close(display, window);
    if (ended(child, start + patience)) {
        std::printf("%.1f\n", milliseconds_since(start));
    } else {
        std::printf("-\n");
        kill(child, SIGTERM);
        waitpid(child, nullptr, 0);
    }
    XCloseDisplay(display);
    return 0;
}
