#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "channel/command_sink.h"
#include "engine/drivers/engine_record.h"
#include "engine/process/engio.h"
#include "fuzz/chess_checks.h"

namespace velmora::fuzzing {

class Posted : public CommandSink {
public:
    void put_command(const std::string& line) override { lines.push_back(line); }
    std::vector<std::string> lines;
};

/// Drives a driver without a process: a line of the input is an order when it begins with "@" ("@go",
/// "@stop",
/// "@new", "@ponder", "@infinite", "@move <n>" for the n-th legal move), else a line of the engine. `check`
/// is called with each engine line and what was posted for it.
template <class Driver, class Check>
void drive(const std::uint8_t* data, std::size_t size, const XboardFeatures& features, Check check) {
    Posted posted;
    Engio engio;
    EngineRecord record;
    record.variables.features = features;
    Driver driver;
    driver.attach(1, &record, &engio);
    driver.set_manager(&posted);
    ChessPosition game;
    game.new_game();
    std::string_view input(reinterpret_cast<const char*>(data), size);
    while (!input.empty()) {
        const std::string line(take_line(input));
        if (line == "@go") {
            if (record.state.status != EngineStatus::thinking) driver.go();
        } else if (line == "@stop") {
            driver.stop();
        } else if (line == "@new") {
            driver.new_game();
            game.new_game();
        } else if (line == "@ponder") {
            driver.set_ponder(true);
        } else if (line == "@infinite") {
            driver.go_infinite();
        } else if (line.starts_with("@move")) {
            const MoveList moves = legal_moves(game);
            if (!moves.empty()) game.do_move(moves[static_cast<unsigned char>(line.back()) % moves.size()]);
            driver.set_position(game);
        } else {
            posted.lines.clear();
            driver.receive_line({line});
            for (const std::string& text : posted.lines) {
                if (!text.starts_with("1 0 ") || !check(line, std::string_view(text).substr(4))) {
                    std::fprintf(stderr, "\"%s\" was posted as \"%s\"\n", line.c_str(), text.c_str());
                    std::abort();
                }
            }
        }
    }
}

}  // namespace velmora::fuzzing
