#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "chess/board/side.h"

namespace velmora {

/// Who has won a game that is over.
///
/// A game that is still going on has none: "*" is a token of PGN and no result, and so is an empty
/// optional of this.
enum class GameResult { white_wins, black_wins, draw };

constexpr GameResult win_of(Side side) {
    return side == Side::white ? GameResult::white_wins : GameResult::black_wins;
}

/// The token of PGN for a finished game: "1-0", "0-1" or "1/2-1/2".
constexpr std::string_view result_token(GameResult result) {
    switch (result) {
        case GameResult::white_wins:
            return "1-0";
        case GameResult::black_wins:
            return "0-1";
        case GameResult::draw:
            break;
    }
    return "1/2-1/2";
}

/// The result that a token stands for; nothing for any other word, "*" among them.
constexpr std::optional<GameResult> result_of_token(std::string_view token) {
    for (const auto result : {GameResult::white_wins, GameResult::black_wins, GameResult::draw}) {
        if (token == result_token(result)) return result;
    }
    return std::nullopt;
}

/// How a game ended: the result, and why in a few words without braces, such as "White mates".
///
/// Without braces, because the reason becomes a comment of PGN, which the first closing brace would end.
struct GameOutcome {
    GameResult result = GameResult::draw;
    std::string reason;

    bool operator==(const GameOutcome&) const = default;
};

}  // namespace velmora
