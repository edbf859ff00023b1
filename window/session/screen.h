#pragma once

#include <string>

#include "chess/board/side.h"
#include "engine/time/level.h"
#include "window/session/mode.h"

namespace velmora {

/// All that the window's logic asks of the widgets, in its own words.
///
/// The rooms of the window (moves, modes, navigation, the referee's lines) work on the GameDesk and reach the
/// screen through this, so that they run and are tested without a display.
class Screen {
public:
    virtual ~Screen() = default;

    /// Shows the desk's position: board with its marks, FEN entry, EPD code, navigation buttons.
    virtual void show_position() = 0;
    /// Marks the targets of a piece that hangs on the pointer, until show_position().
    virtual void show_targets(int square) = 0;
    /// Shows the desk's game: PGN text and the highlight of the current move.
    virtual void show_game() = 0;
    virtual void set_title(const std::string& title) = 0;
    virtual void close() = 0;

    virtual Mode mode() const = 0;
    /// Selects a radio action; what it brings about happens before this returns, unless it is selected
    /// already.
    virtual void select_mode(Mode mode) = 0;
    virtual void set_sensitive(const char* action, bool sensitive) = 0;

    /// Colours: 0 red, 1 green, 2 blue. Squares from 0, a1, to 63.
    virtual void set_arrow(int from, int to, int color) = 0;
    virtual void clear_arrows() = 0;

    virtual void set_clock_level(const Level& level) = 0;
    virtual void reset_clocks() = 0;
    virtual void stop_clocks() = 0;
    /// Starts the clock of `side`; the other one stops and receives its increment.
    virtual void start_clock(Side side) = 0;
    virtual void set_clock(Side side, int centiseconds) = 0;
    /// Marks whose move it is, without running a clock.
    virtual void mark_clock(Side side) = 0;

    virtual void add_analysis(Side side, const std::string& line) = 0;
    virtual void clear_analysis() = 0;

    virtual std::string comment_text() const = 0;
    virtual void show_comment(const std::string& comment) = 0;
};

}  // namespace velmora
