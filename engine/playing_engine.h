#pragma once

#include <string>

#include "chess/position.h"
#include "engine/base_engine.h"
#include "engine/stopped_searches.h"

namespace velmora {

/// What the drivers of both protocols share: the game as the driver knows it, and the road of the engine's
/// lines to the referee.
class PlayingEngine : public BaseEngine {
public:
    PlayingEngine();

    /// Posts every line, translated; runs on the reader thread.
    void process_lines() override;

protected:
    /// Takes one line of the engine and gives the one for the referee; an empty one ends the round.
    virtual std::string translate(std::string line) = 0;

    Move do_parse_move(const std::string& text) const override;

    /// Whether the engine was told to write castling as the king taking the rook.
    bool is_chess960() const;
    /// The move in the coordinate form that this engine reads.
    std::string coordinates(const Move& move) const;

    void start_search();

    ChessPosition m_position;
    StoppedSearches m_stopped;
};

/// Plays the move of a text, "e2e4", on the position; false when it cannot be read or is not legal there.
bool play_legal(ChessPosition& position, const std::string& text);

}  // namespace velmora
