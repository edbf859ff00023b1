#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/search_info.h"
#include "game/game.h"
#include "review/review_note.h"
#include "review/review_settings.h"
#include "review/review_summary.h"
#include "review/reviewed_line.h"
#include "review/verdict.h"

namespace velmora {

/// The review of one game: which positions an engine has to look at, and what becomes of the record when it
/// has.
///
/// An engine goes through the main line from its last position to the first, so that what it has learnt of
/// the end serves the beginning. Each position brings its evaluation into the record at once, and the verdict
/// on the move that follows it: what has been judged when a review is cut off, stays. It doesn't drive the
/// engine and asks nothing of the time, so the window, the console and a test review by the same code.
///
/// Never judged are the only legal move, a move into a position that the table of openings names, and the
/// move that ends the game; no move is marked that the engine would have made, too. The symbols of a person
/// stay, unless they are what evaluations of the record said before.
class GameReview {
public:
    GameReview(const Game& game, const ReviewSettings& settings, std::string_view engine);

    /// The plies whose positions are to be searched, the last one first. Left out is what needs no engine:
    /// ends of the game, the standard start, and what this engine has judged with that effort before.
    const std::vector<std::size_t>& wanted() const { return m_wanted; }

    const ReviewedLine& line() const { return m_line; }
    const ReviewSettings& settings() const { return m_settings; }

    /// Whether a game still is the one under review.
    bool fits(const Game& game) const { return m_line.fits(game); }

    /// Takes what the engine has found out about a position: evaluation, symbol and line go into the game.
    /// What has no exact score counts as left out. REQUIRES: fits(game), a ply of wanted().
    /// @param choice  the move that the engine would make, in coordinates
    void take(Game& game, std::size_t ply, const SearchInfo& info, std::string_view choice);

    /// So many of the wanted positions were taken.
    std::size_t taken() const { return m_taken; }

    /// Writes the summary of what has been judged into the comment ahead of the first move, in place of the
    /// one before. Nothing happens before a position has been taken, unless none had to be.
    void finish(Game& game);

    SideSummary summary(const Game& game, Side side) const;

private:
    bool is_judged(std::size_t ply) const;
    Verdict verdict_on(std::size_t ply) const;
    void mark(Game& game, std::size_t ply, const SearchInfo& info, std::string_view choice);
    void add_line(Game& game, std::size_t ply, const SearchInfo& info, std::string_view choice) const;
    ReviewNote note() const;

    const ReviewSettings m_settings;
    const std::string m_engine;
    ReviewedLine m_line;
    std::vector<std::size_t> m_wanted;
    std::vector<bool> m_covered;    // by ply: this engine's evaluation stands in the record
    std::vector<Verdict> m_marked;  // by ply: what the record's old evaluations said, and its symbol, too
    std::size_t m_taken = 0;
};

}  // namespace velmora
