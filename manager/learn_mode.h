#pragma once

#include <string>

#include "chess/board/arrow_color.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"
#include "openings/polyglot_book.h"

namespace velmora {

/// A drill against an opening book: the person plays both sides, each move is judged by the book's moves, and
/// the book's moves can be shown ahead. No engine takes part.
///
/// The window plays the person's move at once and the referee judges it afterwards; a bad one is taken back
/// by "takeback". A move is judged by its squares alone: a book has one entry for each promotion, and which
/// piece the person takes isn't what is drilled.
class LearnMode {
public:
    LearnMode(RefereeState& state, EngineSeats& seats) : m_state(state), m_seats(seats) {}

    /// Keeps the mask of hints (bit 0 White's moves, bit 1 Black's) and enters the mode unless it is 0.
    void learn_openings(int hint_mask);

    /// Takes another book; one that is open is exchanged at once.
    void set_book(const std::string& path);

    /// Shows the book's moves of the position, in any mode, as far as the mask allows.
    void post_hints();

    void step();

private:
    void report_no_book(const std::string& reason);
    void send_arrow(int from, int to, ArrowColor color);

    RefereeState& m_state;
    EngineSeats& m_seats;
    PolyglotBook m_book;
    int m_hint_mask = 3;
};

}  // namespace velmora
