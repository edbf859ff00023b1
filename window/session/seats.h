#pragma once

#include "chess/board/side.h"

namespace velmora {

/// Whose moves the person at the board may make: each side is played by a person or by an engine.
///
/// One value and not two flags, so that a change of seats is one assignment, and nobody sees one side
/// changed and the other not.
class Seats {
public:
    static constexpr Seats of_people() { return {false, false}; }
    static constexpr Seats of_engines() { return {true, true}; }
    static constexpr Seats with_engine(Side side) { return {side == Side::white, side == Side::black}; }

    constexpr bool engine_plays(Side side) const { return m_engine_plays[side]; }
    /// Whether the person only looks on; then nothing steps through the game by button or key.
    constexpr bool only_looks_on() const { return *this == of_engines(); }

    friend constexpr bool operator==(const Seats&, const Seats&) = default;

private:
    constexpr Seats(bool white, bool black) : m_engine_plays{white, black} {}

    BySide<bool> m_engine_plays;
};

}  // namespace velmora
