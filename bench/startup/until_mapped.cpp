// Measures the time from starting a program to its first window being mapped, in milliseconds:
//
//   until_mapped PROGRAM [ARGUMENT...]
//
// Needs a display without a window manager (which would wrap the window in a frame of its own). The program
// is ended by SIGTERM afterwards.
#include <X11/Xlib.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Toolkits map small helper windows first; a real one is larger.
constexpr int least_width = 50;

bool is_real_window(Display* display, Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) != 0 && attributes.width > least_width;
}

}  // namespace

int main(int argc, char** argv) {
    Display* const display = XOpenDisplay(nullptr);
    if (argc < 2 || !display) {
        std::fprintf(stderr, "usage: until_mapped PROGRAM [ARGUMENT...], on a display\n");
        return 2;
    }
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);

    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[1], argv + 1);
        _exit(127);
    }
    for (;;) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == MapNotify && is_real_window(display, event.xmap.window)) break;
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    std::printf("%.1f\n", elapsed.count());
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    XCloseDisplay(display);
    return 0;
}
