// The floor under a match: two processes of a UCI engine play against each other at "go depth 1" on bare
// pipes, with the pause of 10 ms ahead of each move and without any of the referee's work.
//
//   bare_match ENGINE GAMES        prints ms a ply in all and ms of own CPU a ply
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <thread>

#include "bench/bare_engine.h"

namespace {

using namespace velmora;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds move_pause{10};
/// About as long as the games that the referee ends by its rules.
constexpr int plies_a_game = 116;

double own_cpu_seconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](timeval time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::optional<std::string> answered_move(const std::string& answer) {
    const auto start = answer.find("bestmove ") + 9;
    const std::string move = answer.substr(start, answer.find_first_of(" \r\n", start) - start);
    if (move == "(none)") return std::nullopt;
    return move;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: bare_match ENGINE GAMES\n");
        return 2;
    }
    std::signal(SIGPIPE, SIG_IGN);
    const char* const path = argv[1];
    const auto play = [path] { execl(path, path, nullptr); };
    BareEngine engines[2]{BareEngine(play), BareEngine(play)};
    for (auto& engine : engines) {
        engine.send("uci\n");
        engine.wait_for("uciok");
    }
    int plies = 0;
    const auto start = Clock::now();
    const double cpu = own_cpu_seconds();
    for (int game = std::atoi(argv[2]); game > 0; --game) {
        std::string moves;
        for (int ply = 0; ply < plies_a_game; ++ply) {
            std::this_thread::sleep_for(move_pause);
            auto& engine = engines[ply % 2];
            engine.send("position startpos moves" + moves + "\nisready\ngo depth 1\n");
            const auto move = answered_move(engine.wait_for("bestmove"));
            if (!move) break;
            moves += ' ' + *move;
            ++plies;
        }
        for (auto& engine : engines) engine.send("ucinewgame\n");
    }
    const std::chrono::duration<double, std::milli> elapsed = Clock::now() - start;
    std::printf("bare exchange: %d plies: %.2f ms a ply, %.3f ms of own CPU a ply\n", plies,
                elapsed.count() / plies, (own_cpu_seconds() - cpu) * 1e3 / plies);
    for (auto& engine : engines) engine.send("quit\n");
    return 0;
}
