#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "chess/board/move.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"
#include "engine/time/level.h"
#include "game/game.h"
#include "openings/eco.h"

namespace velmora {

inline constexpr const char* default_event = "Velmora battles";
inline constexpr const char* default_site = "the North Sea";
/// The title of a window without an engine, which also stands for the name of the engine that isn't there.
inline constexpr const char* no_engine_title = "Velmora (no engine loaded)";

/// Today in UTC as a PGN date, month and day without leading zeros.
std::string pgn_date(std::chrono::system_clock::time_point now);

/// A time control as the PGN tag has it: "40/10+0.1", "300", "300+2", "-" for the fixed modes.
std::string pgn_time_control(const Level& level);

/// Who sits on one side of the board.
struct Player {
    std::string name = "?";
    std::string elo;
};

/// The window's copy of the game: record, position and players, free of any widget.
///
/// The referee has its own copy; the lines of the channel keep the two in step.
struct GameDesk {
    Game game;
    ChessPosition position;
    Eco eco;

    BySide<Player> players;
    /// Whose moves the person at the board may not make.
    BySide<bool> engine_plays{false, false};
    /// What the engine playing that side will have said about its next move.
    BySide<std::string> annotation;

    std::string event = default_event;
    std::string site = default_site;
    std::string round = "?";
    std::string engine1_name = no_engine_title;
    std::string engine2_name;
    Level level;

    /// The board edits the position instead of playing on it.
    bool setup = false;
    /// A move on the board doesn't switch the clocks.
    bool clocks_held = false;
    /// The position line loaded last.
    std::string loaded_line;

    /// The piece picked up by a click, waiting for its destination.
    std::optional<int> selected;

    GameDesk();

    Side side_to_move() const { return position.side_to_move(); }
    bool engine_to_move() const { return engine_plays[side_to_move()]; }
    /// Whether the person at the board only looks on; then nothing steps through the game by button or key.
    bool only_looks_on() const { return engine_plays[Side::white] && engine_plays[Side::black]; }
    void set_engine_plays(bool white, bool black) {
        engine_plays[Side::white] = white;
        engine_plays[Side::black] = black;
    }

    /// Empties the record and gives it the default tags with the present players; the position isn't touched.
    void reset_record();
    void clear_annotations();

    /// Plays a legal move on the position and the record.
    void play(const Move& move);
    /// Sets the tags "ECO" and "Opening" when the position has a name.
    void tag_opening();
    /// Sets the same two tags from the last position of the main line that has a name.
    void tag_opening_of_main_line();
    /// Takes `fen` as the start of the record and as the position. REQUIRES: a readable FEN.
    void start_from(const std::string& fen);

    bool can_go_back() const;
    bool can_go_forward() const;
    /// The move that led to the position shown, if the record or the position knows it.
    Move last_move() const;
    /// The same in words, "White: Nf3"; empty at the start of the game.
    std::string last_move_text() const;

    /// The move of the record that comes next, "12. Nf3" or "12... Nf6"; "The move" where there is none.
    std::string next_move_text() const;

    /// The EPD code of the position, with the operations of the line it was loaded from.
    std::string epd_text() const;

private:
    /// The move of the record that comes next; null where there is none.
    const MoveSectionElement* next_move() const;
    void tag_opening(std::uint64_t key);
};

}  // namespace velmora
