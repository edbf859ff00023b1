// Runs a match through velmora-console and tells how long its plies and the gaps between its games take. A
// program of its own, since a shell that reads line by line would take the processor from the match.
//
//   match_watch CONSOLE        in a directory with "engines.cfg" and "tournaments/m.trn"
//
// Prints: plies, their elapsed ms (from a game's second move to its result: with its first move an engine may
// still be starting), gaps between games, the ms from results to the next game's first position, the longest
// of them.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

#include "bench/bare_engine.h"

namespace {

using namespace velmora;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

class Watch {
public:
    /// Takes a line of the console that came `now`; false after the last one.
    bool take(std::string_view line, Clock::time_point now) {
        if (line.starts_with("setboard ")) {
            if (m_result != Clock::time_point()) add_gap(now - m_result);
            m_moves = 0;
        } else if (line.starts_with("move ")) {
            ++m_moves;
            if (m_moves == 2) m_second_move = now;
            if (m_moves > 2) ++m_plies;
        } else if (line.starts_with("1-0") || line.starts_with("0-1") || line.starts_with("1/2-1/2")) {
            m_result = now;
            if (m_moves >= 2) m_elapsed += now - m_second_move;
        }
        return line != "tournament_finished";
    }

    void print() const {
        std::printf("%d %.0f %d %.0f %.0f\n", m_plies, m_elapsed.count(), m_gaps, m_gap_time.count(),
                    m_longest.count());
    }

private:
    void add_gap(Milliseconds gap) {
        ++m_gaps;
        m_gap_time += gap;
        m_longest = std::max(m_longest, gap);
    }

    int m_moves = 0;  // of the present game
    Clock::time_point m_second_move{};
    Clock::time_point m_result{};
    int m_plies = 0;
    int m_gaps = 0;
    Milliseconds m_elapsed{};
    Milliseconds m_gap_time{};
    Milliseconds m_longest{};
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: match_watch CONSOLE\n");
        return 2;
    }
    const char* const path = argv[1];
    BareEngine console([path] { execl(path, path, nullptr); });
    console.send("load_tournament m\nstart_tournament\n");
    Watch watch;
    std::string pending;
    for (bool goes_on = true; goes_on;) {
        pending += console.read_some();
        const auto now = Clock::now();
        for (std::size_t end = 0; (end = pending.find('\n')) != std::string::npos;
             pending.erase(0, end + 1)) {
            goes_on = goes_on && watch.take(std::string_view(pending).substr(0, end), now);
        }
    }
    watch.print();
    console.send("quit\n");
    return 0;
}
