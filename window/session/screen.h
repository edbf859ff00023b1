#pragma once

#include "window/session/board_view.h"
#include "window/session/clock_view.h"
#include "window/session/notes_view.h"
#include "window/session/window_frame.h"

namespace velmora {

/// All of the screen, for the two that need all: who carries out the referee's lines, and who shows the game.
/// Whatever is behind outlives them.
/// Not an interface of its own: whoever needs a part takes that part, and a test brings only what is asked
/// for.
struct Screen {
    BoardView& board;
    ClockView& clocks;
    NotesView& notes;
    WindowFrame& frame;
};

}  // namespace velmora
