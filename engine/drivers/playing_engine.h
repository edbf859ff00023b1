#pragma once

#include <set>
#include <string>

#include "chess/moves/position.h"
#include "engine/drivers/base_engine.h"
#include "engine/drivers/stopped_searches.h"

namespace velmora {

/// What the drivers of both protocols share: the game as the driver knows it, and the road of the engine's
/// lines to the referee.
class PlayingEngine : public BaseEngine {
public:
    PlayingEngine();

    /// What of a line goes on to the referee, the display and the record.
    static constexpr std::size_t longest_posted = 8192;
    std::size_t longest_line() const override { return longest_posted; }

    /// Posts the lines, translated; runs on the reader thread.
    void process_lines() override;

protected:
    /// Takes one line of the engine and gives the one for the referee; an empty one ends the round.
    virtual std::string translate(std::string line) = 0;

    /// An engine at rest takes the changed option with all others, at once. Engines need not understand an
    /// option while they search: then it waits for the end of the search, and goes out alone.
    void do_set_option(const std::string& name) override;
    /// Ends a search that serves nobody's clock, so that the options need not wait for its end.
    virtual void make_way_for_options() {}
    /// What is to be done as soon as the engine rests.
    virtual void come_to_rest() { send_waiting_options(); }
    /// Sends what waits. A new search must not begin without it.
    void send_waiting_options();

    Move do_parse_move(const std::string& text) const override;

    /// Whether the engine was told to write castling as the king taking the rook.
    bool is_chess960() const;
    /// The move in the coordinate form that this engine reads.
    std::string coordinates(const Move& move) const;

    void start_search();

    ChessPosition m_position;
    StoppedSearches m_stopped;

private:
    bool is_at_rest();

    std::set<std::string> m_waiting_options;  // names
};

/// Plays the move of a text, "e2e4", on the position; false when it cannot be read or is not legal there.
bool play_legal(ChessPosition& position, const std::string& text);

}  // namespace velmora
