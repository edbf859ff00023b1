// The road of a move through the referee: from the window's "usermove" on the queue to the "go" in the
// engine's process, and from the engine's "bestmove" on the pipe to the "move" line at the window. The second
// benchmark is the same exchange of the same texts without a referee.
//
// The program is its own engine: started under the name "bench-engine" it plays one.

#include <atomic>
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
#include "bench/stamping_engine.h"
#include "manager/manager.h"

namespace {

using namespace velmora;
/// The window's end: notes when the engine had its "go" and when its move has come.
class TimedWindow : public CommandSink {
public:
    void put_command(const std::string& line) override {
        if (const auto arrival = arrival_at_engine(line)) m_at_engine = *arrival;
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
    const auto engine = link_to_stamping_engine();
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
        manager.put_command("0 setboard " + middle_game);
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
    BareEngine engine(play_stamping_engine);
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
    if (has_played_stamping_engine(argv[0])) return 0;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
