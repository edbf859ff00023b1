// How long the chooser of games takes over a large file: from the call until its first rows are drawn, and
// until all rows are in, drawn, and nothing is left to do. Needs a display:
//     build/release/bench/game_corpus games.pgn 100000
//     tests/support/with-display.sh build/release/bench/dialogs_game_list games.pgn

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include <glibmm/main.h>
#include <gtkmm/dialog.h>
#include <gtkmm/main.h>
#include <gtkmm/progressbar.h>

#include "dialogs/files/game_list.h"

namespace velmora {
namespace {

using Clock = std::chrono::steady_clock;

double ms_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

template <class W>
W* find(Gtk::Container& root) {
    for (Gtk::Widget* child : root.get_children()) {
        if (auto* found = dynamic_cast<W*>(child)) return found;
        if (auto* container = dynamic_cast<Gtk::Container*>(child)) {
            if (W* found = find<W>(*container)) return found;
        }
    }
    return nullptr;
}

struct Times {
    double first_rows_ms = 0;   ///< until the dialog has been drawn for the first time
    double complete_ms = 0;     ///< until all rows are in and have been drawn
    double longest_gap_ms = 0;  ///< in which the window could not have answered the user
};

Times measure(Gtk::Window& parent, const std::string& path) {
    Times times;
    GameList list;
    const auto* bar = find<Gtk::ProgressBar>(list);
    const auto start = Clock::now();
    list.signal_draw().connect(
        [&](const Cairo::RefPtr<Cairo::Context>&) {
            if (times.first_rows_ms == 0) times.first_rows_ms = ms_since(start);
            // The bar is made invisible with the last row, and that is drawn too.
            if (times.complete_ms == 0 && bar->get_opacity() == 0) times.complete_ms = ms_since(start);
            return false;
        },
        true);
    // A user's event has the rank of this timer: it comes as late as the event would.
    auto last_seen = start;
    sigc::connection pulse = Glib::signal_timeout().connect(
        [&] {
            if (times.first_rows_ms > 0)
                times.longest_gap_ms = std::max(times.longest_gap_ms, ms_since(last_seen));
            last_seen = Clock::now();
            return true;
        },
        1);
    // The lowest rank of all: nothing else is left to do when it is called.
    sigc::connection idle = Glib::signal_timeout().connect(
        [&] {
            auto* dialog = dynamic_cast<Gtk::Dialog*>(list.get_toplevel());
            if (!dialog || times.complete_ms == 0) return true;
            times.complete_ms = ms_since(start);
            dialog->response(Gtk::RESPONSE_CANCEL);
            return false;
        },
        1, Glib::PRIORITY_LOW);
    list.choose_game(parent, path);
    idle.disconnect();
    pulse.disconnect();
    return times;
}

void print(const char* name, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::cout << name << ": median " << values[values.size() / 2] << " ms, worst " << values.back()
              << " ms\n";
}

void run(const std::string& path) {
    constexpr int runs = 15;
    Gtk::Window parent;
    parent.set_default_size(640, 480);
    parent.show();
    std::vector<double> first, complete, gaps;
    for (int i = 0; i < runs; ++i) {
        const Times times = measure(parent, path);
        first.push_back(times.first_rows_ms);
        complete.push_back(times.complete_ms);
        gaps.push_back(times.longest_gap_ms);
    }
    std::cout << std::filesystem::file_size(path) / 1'000'000 << " MB, " << runs << " runs\n";
    print("first rows drawn", first);
    print("all rows drawn and idle", complete);
    print("longest time without a look at the user", gaps);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    Gtk::Main toolkit(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: dialogs_game_list PGN-FILE\n";
        return 2;
    }
    velmora::run(argv[1]);
}
