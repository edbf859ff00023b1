#pragma once

#include <charconv>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

#include "bench/bare_engine.h"

/// The engine of the move benchmarks: the benchmark program itself, started by another name. It answers "go"
/// at once, and says when it came.
namespace velmora {

// A middle game: the person moves a bishop, the engine a knight, and both go back.
inline const std::string middle_game = "r1bq1rk1/pp2bppp/2n1pn2/3p4/3P4/2NBPN2/PP3PPP/R1BQ1RK1 w - - 0 9";
inline const std::string user_move = "d3c2";
inline const std::string engine_move = "f6e4";
inline const std::string user_move_back = "c2d3";
inline const std::string engine_move_back = "e4f6";
inline const std::string position_text = "position fen " + middle_game + " moves " + user_move;
inline const std::string go_text = "go depth 1";

inline std::int64_t now_ns() { return std::chrono::steady_clock::now().time_since_epoch().count(); }

inline constexpr std::string_view stamping_engine_name = "bench-engine";

/// A link by the engine's name to the running program.
inline std::filesystem::path link_to_stamping_engine() {
    auto link = std::filesystem::temp_directory_path() / stamping_engine_name;
    std::filesystem::remove(link);
    std::filesystem::create_symlink("/proc/" + std::to_string(::getpid()) + "/exe", link);
    return link;
}

/// Answers "go" at once by the time of its arrival and the move.
inline void play_stamping_engine() {
    bool goes_back = false;
    answer_lines([&goes_back](std::string_view line) {
        if (line == "uci") write_all(STDOUT_FILENO, "id name Bench\nuciok\n");
        if (line == "isready") write_all(STDOUT_FILENO, "readyok\n");
        if (line.starts_with("position")) goes_back = line.ends_with(user_move_back);
        if (line.starts_with("go ")) {
            write_all(STDOUT_FILENO, "info string " + std::to_string(now_ns()) + "\nbestmove " +
                                         (goes_back ? engine_move_back : engine_move) + "\n");
        }
        return line != "quit";
    });
}

/// In a process that was started under the engine's name, plays the engine to its end; else gives false at
/// once.
inline bool has_played_stamping_engine(std::string_view program) {
    if (!program.ends_with(stamping_engine_name)) return false;
    play_stamping_engine();
    return true;
}

/// When the engine had its "go", from the line that tells the window so.
inline std::optional<std::int64_t> arrival_at_engine(std::string_view line) {
    constexpr std::string_view head = "black_info string ";
    std::int64_t time = 0;
    if (!line.starts_with(head)) return std::nullopt;
    std::from_chars(line.data() + head.size(), line.data() + line.size(), time);
    return time;
}

}  // namespace velmora
