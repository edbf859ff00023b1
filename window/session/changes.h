#pragma once

#include <initializer_list>

namespace velmora {

/// What of the game that the window shows can change.
/// Named by what changed in the game and not by what is to be drawn: which widgets show it is known
/// elsewhere.
enum class Change : unsigned {
    position = 1U << 0U,   ///< the pieces, or what the board has to show anew
    turn = 1U << 1U,       ///< whose move it is
    record = 1U << 2U,     ///< the text of the game, or the place of the current move in it
    comment = 1U << 3U,    ///< the comment of the current move
    selection = 1U << 4U,  ///< the piece that is picked up
    seats = 1U << 5U,      ///< who plays which side
    clocks = 1U << 6U,     ///< the time control: the clocks begin anew
    game = 1U << 7U,       ///< another record has come in place of the one before
};

/// What one operation has changed.
///
/// A set, so that an operation that touches five things gives one notice, and nothing is shown half
/// changed.
class Changes {
public:
    constexpr Changes(std::initializer_list<Change> changes) {
        for (const Change change : changes) m_bits |= static_cast<unsigned>(change);
    }

    /// Whether at least one of these is among them.
    constexpr bool has(Changes any) const { return (m_bits & any.m_bits) != 0; }
    constexpr bool has(Change change) const { return has(Changes{change}); }

private:
    unsigned m_bits = 0;
};

}  // namespace velmora
