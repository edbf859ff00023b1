// The road of a move in the window: from the click on the board to the "go" in the engine's process, and from
// the engine's answer to the drawn board. Run it under a display:
//   tests/support/with-display.sh build/release/bench/window_moves [MOVES]
// It works in a directory of its own; the board's images are found from VELMORA_SOURCE_DIR.
//
// The program is its own engine: started under the name "bench-engine" it plays one.

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>

#include "bench/stamping_engine.h"
#include "tests/support/gui_driver.h"
#include "views/board/board.h"
#include "window/interface.h"

namespace {

using namespace velmora;

/// The window, noting what the referee says and when.
class TimedWindow : public Interface {
public:
    using Interface::Interface;

    void put_command(const std::string& line) override {
        if (const auto arrival = arrival_at_engine(line)) at_engine = *arrival;
        if (line.starts_with("engine1name")) engine_loaded = true;
        Interface::put_command(line);
    }

    // Written on the referee's thread.
    std::atomic<std::int64_t> at_engine = 0;
    std::atomic<bool> engine_loaded = false;
};

/// Notes when the last frame was finished.
void note_frame(GdkFrameClock*, gpointer data) { *static_cast<std::int64_t*>(data) = now_ns(); }

void print_row(const char* what, std::vector<double> ms) {
    std::sort(ms.begin(), ms.end());
    std::printf("%-48s median %6.2f ms, 99 of 100 below %6.2f ms, worst %6.2f ms\n", what, ms[ms.size() / 2],
                ms[ms.size() * 99 / 100], ms.back());
}

/// The middle of a square on a board that isn't turned.
gui::Point centre(const Board& board, const std::string& square) {
    const int cell = board.get_allocated_width() / 8;
    return {(square[0] - 'a' + 0.5) * cell, ('8' - square[1] + 0.5) * cell};
}

int measure(int moves) {
    const auto home = std::filesystem::temp_directory_path() / ("bench-window-" + std::to_string(::getpid()));
    std::filesystem::create_directories(home);
    const char* const source = std::getenv("VELMORA_SOURCE_DIR");
    std::filesystem::create_directory_symlink(
        std::filesystem::absolute(source != nullptr ? source : ".") / "velmora.files",
        home / "velmora.files");
    const auto engine = link_to_stamping_engine();
    std::filesystem::current_path(home);

    bool drawn_in_time = true;
    {
        TimedWindow window("window_moves", 560);
        drawn_in_time = gui::show_and_wait(window);
        window.send_to_manager("level fixed_depth 1");
        window.send_to_manager("load 1 filename " + engine.string());
        gui::pump_until([&] { return window.engine_loaded && window.actions().mode() == Mode::human_human; });
        window.actions().select_mode(Mode::human_computer);
        auto& board_widget = *gui::find_widget<Board>(window);
        auto& entry = *gui::find_widget<FenEntry>(window);
        std::int64_t frame = 0;
        g_signal_connect(gdk_window_get_frame_clock(window.get_window()->gobj()), "after-paint",
                         G_CALLBACK(note_frame), &frame);

        std::minstd_rand random(1);
        std::vector<double> there;
        std::vector<double> back;
        std::vector<double> drawing;
        const auto wait_ms = [](unsigned ms) {
            const auto end = now_ns() + std::int64_t(ms) * 1000000;
            gui::pump_until([end] { return now_ns() >= end; });
        };
        const auto press_and_move = [&](const std::string& move) {
            gui::press_button(board_widget, centre(board_widget, move.substr(0, 2)));
            gui::move_pointer(board_widget, centre(board_widget, move.substr(2, 2)));
        };
        const auto drop = [&](const std::string& move) {
            gui::release_button(board_widget, centre(board_widget, move.substr(2, 2)));
        };
        wait_ms(600);  // no click counts in the first half second
        for (int i = 0; i < moves && drawn_in_time; ++i) {
            gui::find_widget<Gtk::Entry>(entry)->set_text(middle_game);
            gui::find_widget<Gtk::Button>(entry)->clicked();
            press_and_move(user_move);
            drop(user_move);
            drawn_in_time = gui::pump_until([&] { return window.session().position().moves().size() == 2; });
            // The first move wakes the navigation buttons, which takes the toolkit some frames; any time
            // after that will do.
            wait_ms(400 + unsigned(random() % 100));
            press_and_move(user_move_back);
            const auto start = now_ns();
            drop(user_move_back);
            drawn_in_time = drawn_in_time &&
                            gui::pump_until([&] { return window.session().position().moves().size() == 4; });
            const auto played = now_ns();
            drawn_in_time = drawn_in_time && gui::pump_until([&] { return frame >= played; });
            there.push_back(double(window.at_engine - start) * 1e-6);
            back.push_back(double(frame - window.at_engine) * 1e-6);
            drawing.push_back(double(frame - played) * 1e-6);
        }
        if (drawn_in_time) {
            print_row("click to the engine's process", there);
            print_row("engine's answer to the drawn board", back);
            print_row("of this, from the tick's end on", drawing);
        }
        window.send_to_manager("quit");
        gui::pump_until([&] { return !window.get_visible(); });
    }
    std::filesystem::current_path("/");
    std::filesystem::remove_all(home);
    std::filesystem::remove(engine);
    return drawn_in_time ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    if (has_played_stamping_engine(argv[0])) return 0;
    Gtk::Main toolkit(argc, argv);
    return measure(argc > 1 ? std::max(1, std::atoi(argv[1])) : 100);
}
