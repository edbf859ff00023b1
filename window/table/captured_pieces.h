#pragma once

#include <array>
#include <string>

#include "chess/board/side.h"
#include "chess/moves/position.h"

namespace velmora {

/// The pieces that are gone from the board since the game began, and who is ahead.
///
/// A pawn that has been promoted isn't taken: what there is too much of another kind stands for it.
class CapturedPieces {
public:
    static constexpr std::size_t kinds = 5;  ///< pawn, knight, bishop, rook, queen

    explicit CapturedPieces(const ChessPosition& position);

    /// What White has taken of Black's and the other way round, with figurines: "White ♟♟♞ +2   Black ♙";
    /// empty while nobody has taken anything and nobody is ahead.
    std::string text() const;
    /// The same in words, for who doesn't see it: "White has taken 2 pawns. White is 2 ahead.".
    std::string words() const;

private:
    BySide<std::array<int, kinds>> m_gone{};  // by the side that has lost them
    int m_balance = 0;                        // pawns by which White is ahead: 1, 3, 3, 5, 9
};

}  // namespace velmora
