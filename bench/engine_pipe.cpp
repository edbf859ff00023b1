// What the engine layer adds to a bare pipe between two processes: from an engine's line on the pipe to the
// line on the referee's queue, from go() to the bytes in the child, and how many lines one reader passes on.
//
// The program is its own child: started with VELMORA_BENCH_CHILD set it plays the engine.

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "bench/bare_engine.h"
#include "channel/line_queue.h"
#include "chess/moves/position.h"
#include "engine/drivers/uci_engine.h"
#include "engine/process/engio.h"

namespace {

using namespace velmora;
using Clock = std::chrono::steady_clock;

constexpr int burst = 1000000;

void write_burst() {
    std::string block;
    for (int i = 0; i < burst; ++i) {
        block += "info depth 12 seldepth 20 score cp 31 nodes " + std::to_string(i) +
                 " nps 1000000 pv e2e4 e7e5\n";
        if (block.size() < 32000 && i + 1 < burst) continue;
        write_all(STDOUT_FILENO, block);
        block.clear();
    }
    write_all(STDOUT_FILENO, "done\n");
}

/// The child: answers "ping" by "pong", a "go" by a move and "burst" by a flood.
void play_engine() {
    answer_lines([](std::string_view line) {
        if (line == "ping") write_all(STDOUT_FILENO, "pong\n");
        if (line.starts_with("go ")) write_all(STDOUT_FILENO, "bestmove e2e4\n");
        if (line == "burst") write_burst();
        return line != "quit";
    });
}

/// The referee's queue, which notes when a line has been put.
class TimedQueue : public CommandSink {
public:
    void put_command(const std::string& line) override {
        m_queue.put(line);
        if (line.find(" info ") != std::string::npos) return;
        m_put_at = Clock::now();
        m_count.fetch_add(1);
        m_count.notify_one();
    }

    /// Waits for the next line that is no thinking output; gives when it was put.
    Clock::time_point wait_for_next() {
        m_count.wait(m_seen);
        m_seen = m_count;
        return m_put_at;
    }

private:
    LineQueue m_queue{[](const std::string& line) {
        return LineQueue::Class{.expendable = line.find(" info ") != std::string::npos};
    }};
    std::atomic<int> m_count = 0;
    Clock::time_point m_put_at;  // published by m_count
    int m_seen = 0;
};

/// A UCI driver on a child, without the handshake.
class Engine {
public:
    Engine() {
        engio.spawn_engine("/proc/self/exe");
        driver.attach(1, &record, &engio);
        driver.set_manager(&queue);
        engio.set_engine(&driver);
        m_reader = std::thread(std::ref(engio));
    }
    ~Engine() {
        engio.quit();
        m_reader.join();
    }

    TimedQueue queue;
    EngineRecord record;
    Engio engio;
    UciEngine driver;

private:
    std::thread m_reader;
};

double seconds_since(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double>(end - start).count();
}

void bare_pipe_round_trip(benchmark::State& state) {
    BareEngine engine(play_engine);
    for (auto _ : state) {
        const auto start = Clock::now();
        engine.send("ping\n");
        engine.wait_for("pong");
        state.SetIterationTime(seconds_since(start, Clock::now()));
    }
}
BENCHMARK(bare_pipe_round_trip)->UseManualTime();

/// A round trip through the engine layer, up to the line on the queue.
void line_to_queue(benchmark::State& state) {
    Engine engine;
    for (auto _ : state) {
        const auto start = Clock::now();
        engine.engio.send("ping");
        state.SetIterationTime(seconds_since(start, engine.queue.wait_for_next()));
    }
}
BENCHMARK(line_to_queue)->UseManualTime();

/// A whole go(), with a position 80 plies into a game, up to the answered move on the queue.
void go_to_answer(benchmark::State& state) {
    Engine engine;
    ChessPosition position;
    position.new_game();
    for (int i = 0; i < 20; ++i) {
        for (const char* move : {"g1f3", "g8f6", "f3g1", "f6g8"}) play_legal(position, move);
    }
    for (auto _ : state) {
        engine.driver.set_position(position);
        const auto start = Clock::now();
        engine.driver.go();
        state.SetIterationTime(seconds_since(start, engine.queue.wait_for_next()));
    }
}
BENCHMARK(go_to_answer)->UseManualTime();

/// A million "info" lines that nobody takes off the queue.
void burst_of_lines(benchmark::State& state) {
    Engine engine;
    for (auto _ : state) {
        const auto start = Clock::now();
        engine.engio.send("burst");
        state.SetIterationTime(seconds_since(start, engine.queue.wait_for_next()));
    }
    state.SetItemsProcessed(state.iterations() * burst);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["max_rss_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}
BENCHMARK(burst_of_lines)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    if (std::getenv("VELMORA_BENCH_CHILD") != nullptr) {
        play_engine();
        return 0;
    }
    setenv("VELMORA_BENCH_CHILD", "1", 1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
