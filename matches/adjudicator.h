#pragma once

#include <cstdint>
#include <optional>

#include "analysis/evaluation.h"
#include "chess/board/game_outcome.h"
#include "chess/board/side.h"
#include "matches/match_settings.h"

namespace velmora {

/// Ends games whose result both engines' scores tell already: a drawn one where the scores stay near 0, a
/// lost one where an engine stays hopeless.
///
/// One game long. A move without a score breaks a row, since nothing is known of it.
class Adjudicator {
public:
    explicit Adjudicator(const AdjudicationSettings& settings) : m_settings(settings) {}

    /// Counts a move, the `ply`-th of the game from 1, that `side` has made with a score from White's view.
    void add_move(Side side, std::uint32_t ply, const std::optional<Evaluation>& score);

    std::optional<GameOutcome> outcome() const;

private:
    const AdjudicationSettings m_settings;
    std::uint32_t m_ply = 0;
    std::uint32_t m_quiet = 0;           // plies in a row with a score near 0
    BySide<std::uint32_t> m_hopeless{};  // moves in a row of that side's own bad score
    BySide<std::uint32_t> m_winning{};
};

}  // namespace velmora
