// The road of a move through the referee: from the window's "usermove" on the queue to the "go" in the
// engine's process, and from the engine's "bestmove" on the pipe to the "move" line at the window. The second
// benchmark is the same exchange of the same texts without a referee.
//
// The program is its own engine: started under the name "bench-engine" it plays one.

#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "bench/bare_engine.h"
#include "manager/manager.h"

namespace {

using namespace velmora;
using Clock = std::chrono::steady_clock;

// A middle game: the person moves a bishop, the engine a knight.
const std::string board = "r1bq1rk1/pp2bppp/2n1pn2/3p4/3P4/2NBPN2/PP3PPP/R1BQ1RK1 w - - 0 9";
const std::string user_move = "d3c2";
const std::string engine_move = "f6e4";
const std::string position_text = "position fen " + board + " moves " + user_move;
const std::string go_text = "go depth 1";

std::int64_t now_ns() { return Clock::now().time_since_epoch().count(); }

/// Answers "go" at once by the time of its arrival and the move.
void play_engine() {
    answer_lines([](std::string_view line) {
        if (line == "uci") write_all(STDOUT_FILENO, "id name Bench\nuciok\n");
        if (line == "isready") write_all(STDOUT_FILENO, "readyok\n");
        if (line.starts_with("go ")) {
            write_all(STDOUT_FILENO,
                      "info string " + std::to_string(now_ns()) + "\nbestmove " + engine_move + "\n");
        }
        return line != "quit";
    });
}

/// The window's end: notes when the engine had its "go" and when its move has come.
class TimedWindow : public CommandSink {
public:
    void put_command(const std::string& line) override {
        constexpr std::string_view arrival = "black_info string ";
        if (line.starts_with(arrival)) {
            std::from_chars(line.data() + arrival.size(), line.data() + line.size(), m_at_engine);
        }
        if (line.starts_with("move ")) m_shown = now_ns();
        if (line != "shout" && !line.starts_with("engine1name")) return;  // the last line of each exchange
        m_count.fetch_add(1);
        m_count.notify_one();
    }

    void wait() { m_count.wait(m_seen++); }

    std::int64_t at_engine() const { return m_at_engine; }
    std::int64_t shown() const { return m_shown; }

private:
    // Published by m_count.
    std::int64_t m_at_engine = 0;
    std::int64_t m_shown = 0;
    std::atomic<int> m_count = 0;
    int m_seen = 0;
};

void through_the_referee(benchmark::State& state) {
    const auto engine = std::filesystem::temp_directory_path() / "bench-engine";
    std::filesystem::remove(engine);
    std::filesystem::create_symlink("/proc/" + std::to_string(::getpid()) + "/exe", engine);
    TimedWindow window;
    Manager manager(window, "bench");
    std::thread referee(std::ref(manager));
    manager.put_command("0 level fixed_depth 1");
    manager.put_command("0 load 1 filename " + engine.string());
    window.wait();
    manager.put_command("0 playother");
    double there = 0;
    double back = 0;
    for (auto _ : state) {
        manager.put_command("0 setboard " + board);
        std::this_thread::sleep_for(std::chrono::microseconds(200));  // as a person, not in the same moment
        const auto start = now_ns();
        manager.put_command("0 usermove " + user_move);
        window.wait();
        there += static_cast<double>(window.at_engine() - start);
        back += static_cast<double>(window.shown() - window.at_engine());
        state.SetIterationTime(static_cast<double>(window.shown() - start) * 1e-9);
    }
    state.counters["usermove_to_engine_us"] =
        benchmark::Counter(there * 1e-3, benchmark::Counter::kAvgIterations);
    state.counters["bestmove_to_window_us"] =
        benchmark::Counter(back * 1e-3, benchmark::Counter::kAvgIterations);
    manager.put_command("0 quit");
    referee.join();
    std::filesystem::remove(engine);
}
BENCHMARK(through_the_referee)->UseManualTime()->Unit(benchmark::kMicrosecond);

void bare_exchange(benchmark::State& state) {
    BareEngine engine(play_engine);
    const std::string request = position_text + "\n" + go_text + "\n";
    for (auto _ : state) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        const auto start = now_ns();
        engine.send(request);
        engine.wait_for("bestmove");
        state.SetIterationTime(static_cast<double>(now_ns() - start) * 1e-9);
    }
}
BENCHMARK(bare_exchange)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    if (std::string_view(argv[0]).ends_with("bench-engine")) {
        play_engine();
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
