#include <clocale>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <glibmm/exceptionhandler.h>
#include <glibmm/main.h>
#include <gtkmm/main.h>
#include <gtkmm/window.h>

#include "window/command_line.h"
#include "window/interface.h"

namespace {

/// What leaves a handler of the toolkit is reported; the program goes on.
/// Without it the toolkit would end the program at the first exception out of a signal.
void report_exception() {
    try {
        throw;
    } catch (const std::exception& error) {
        std::cerr << "Unexpected: " << error.what() << '\n';
    } catch (const Glib::Exception& error) {
        std::cerr << "Unexpected: " << error.what().raw() << '\n';
    } catch (...) {
        std::cerr << "Unexpected fault of an unknown kind\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    const velmora::CommandLine command_line = velmora::parse_command_line(arguments);
    if (!command_line.answer.empty()) {
        std::cout << command_line.answer;
        return 0;
    }
    if (command_line.has_board_size) std::cerr << "boardsize=" << command_line.board_size << '\n';

    // Writing to an engine that has died is an error of that write, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    // Likewise a file that has grown to the system's limit.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        Gtk::Main toolkit(argc, argv);
        // Read again: the toolkit has taken its own options out, whose values are no files.
        const auto files = velmora::parse_command_line({argv, argv + argc}).files;
        // The toolkit takes the locale from the environment; numbers in protocols and files have a decimal
        // point.
        std::setlocale(LC_NUMERIC, "C");
        // Finding the icon takes a good part of the start: the window is shown first.
        Glib::signal_idle().connect_once([] { Gtk::Window::set_default_icon_name("velmora"); });
        Glib::add_exception_handler(sigc::ptr_fun(&report_exception));
        velmora::Interface window(arguments.empty() ? "" : arguments.front(), command_line.board_size);
        if (!files.empty()) {
            // Behind the first events, so that the file's dialog opens over a window that is there.
            Glib::signal_idle().connect_once([&] { window.open_files(files); });
        }
        Gtk::Main::run(window);
    } catch (...) {
        report_exception();
        return 1;
    }
    return 0;
}
