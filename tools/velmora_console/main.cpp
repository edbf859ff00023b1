// The referee without a window: commands on standard input, its lines on standard output. With words behind
// its name it reviews the games of a file instead.
//
// The main loop takes the input, and the referee runs on a thread of its own, as in the program: so reading
// never waits for the referee, which may take its time over a command that seats an engine.

#include <array>
#include <csignal>
#include <functional>
#include <iostream>
#include <memory>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <utility>

#include <glib-unix.h>
#include <glib.h>

#include "manager/manager.h"
#include "tools/velmora_console/console.h"
#include "tools/velmora_console/file_review.h"

namespace {

using Loop = std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)>;

/// Hands what stands on standard input to the console; at its end the source goes.
gboolean read_input(gint descriptor, GIOCondition, gpointer data) {
    auto& console = *static_cast<velmora::Console*>(data);
    std::array<char, 65536> buffer;
    const auto count = read(descriptor, buffer.data(), buffer.size());
    if (count <= 0) {
        console.end_input();
        return G_SOURCE_REMOVE;
    }
    console.take_input(std::string_view(buffer.data(), static_cast<std::size_t>(count)));
    return G_SOURCE_CONTINUE;
}

gboolean wake_up(gpointer data) {
    static_cast<velmora::Console*>(data)->wake_up();
    return G_SOURCE_CONTINUE;
}

gboolean wake_review(gpointer data) {
    static_cast<velmora::FileReview*>(data)->wake_up();
    return G_SOURCE_CONTINUE;
}

/// The first one ends with what has been done, the second one at once.
gboolean interrupt(gpointer data) {
    static_cast<velmora::FileReview*>(data)->interrupt();
    std::signal(SIGINT, SIG_DFL);
    return G_SOURCE_REMOVE;
}

/// Exit status: 0 done, 1 not all of it, 2 the command line.
int review(int argc, char** argv) {
    velmora::ReviewArguments arguments;
    try {
        arguments = velmora::ReviewArguments::parse({argv + 1, argv + argc});
    } catch (const velmora::UsageError& error) {
        std::cerr << argv[0] << ": " << error.what() << "\nusage:\n" << velmora::ReviewArguments::help_text();
        return 2;
    }
    const Loop loop(g_main_loop_new(nullptr, FALSE), g_main_loop_unref);
    velmora::FileReview review(std::move(arguments), stdout, stderr,
                               [&loop] { g_main_loop_quit(loop.get()); });
    velmora::Manager manager(review, argv[0]);
    review.set_referee(manager);
    if (!review.begin()) return 1;
    std::thread referee(std::ref(manager));
    g_timeout_add_seconds(1, wake_review, &review);
    g_unix_signal_add(SIGINT, interrupt, &review);
    g_main_loop_run(loop.get());
    referee.join();
    return review.is_complete() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);  // a dead engine must not end the program
    std::signal(SIGXFSZ, SIG_IGN);  // nor a file that has grown to the system's limit
    if (argc > 1) return review(argc, argv);

    const Loop loop(g_main_loop_new(nullptr, FALSE), g_main_loop_unref);
    velmora::Console console(stdout, [&loop] { g_main_loop_quit(loop.get()); });
    velmora::Manager manager(console, argv[0]);
    console.set_referee(manager);
    std::thread referee(std::ref(manager));

    // The loop also reaps the engines' processes, whose child watches are in the default context.
    g_unix_fd_add(STDIN_FILENO, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR), read_input,
                  &console);
    g_timeout_add_seconds(1, wake_up, &console);
    g_main_loop_run(loop.get());
    referee.join();
    return 0;
}
