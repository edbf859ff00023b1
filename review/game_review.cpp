#include "review/game_review.h"

#include <algorithm>

#include "analysis/san_line.h"

namespace velmora {

namespace {

/// Moves of the engine's line that are shown beside a marked move.
constexpr std::size_t shown_moves = 10;

}  // namespace

GameReview::GameReview(const Game& game, const ReviewSettings& settings, std::string_view engine)
    : m_settings(settings),
      m_engine(review_name(engine)),
      m_line(game),
      m_covered(m_line.plies() + 1, false),
      m_marked(m_line.plies() + 1, Verdict::none) {
    const auto note = find_review_note(game.tree().node(0).comment);
    const bool serves = note && note->serves(m_engine, m_settings.level);
    for (std::size_t ply = m_line.plies() + 1; ply-- > 0;) {
        const auto& position = m_line.at(ply);
        const bool starts = ply == 0 && m_line.starts_normally();
        const bool known = serves && ply >= note->first_ply && ply <= note->last_ply && position.evaluation &&
                           position.depth > 0;
        m_covered[ply] = starts || position.over || known;
        if (!m_covered[ply]) m_wanted.push_back(ply);
        if (ply > 0 && verdict_of_glyph(game.tree().node(position.node).nag) == verdict_on(ply)) {
            m_marked[ply] = verdict_on(ply);
        }
    }
}

/// Whether the move that leads to a position can be a mistake.
bool GameReview::is_judged(std::size_t ply) const {
    return !m_line.at(ply - 1).single_move && !m_line.at(ply).named && !m_line.at(ply).over &&
           m_settings.judges(m_line.mover(ply));
}

Verdict GameReview::verdict_on(std::size_t ply) const {
    const auto& before = m_line.at(ply - 1).evaluation;
    const auto& after = m_line.at(ply).evaluation;
    if (!before || !after || !is_judged(ply)) return Verdict::none;
    return judge(*before, *after, m_line.mover(ply));
}

void GameReview::take(Game& game, std::size_t ply, const SearchInfo& info, std::string_view choice) {
    if (!info.score || info.score->bound != Bound::exact) return;
    ++m_taken;
    auto& position = m_line.at(ply);
    position.evaluation = info.score;
    position.depth = info.depth.value_or(0);
    m_covered[ply] = true;
    game.set_comment(position.node, with_evaluation(game.tree().node(position.node).comment,
                                                    annotation_of(*info.score), position.depth));
    if (ply < m_line.plies() && m_covered[ply + 1]) mark(game, ply + 1, info, choice);
}

/// @param info, choice  what the engine says of the position ahead of the move
void GameReview::mark(Game& game, std::size_t ply, const SearchInfo& info, std::string_view choice) {
    const auto& position = m_line.at(ply);
    const bool its_choice =
        position.move.to_string(true) == choice || position.move.to_string(false) == choice;
    const Verdict verdict = its_choice ? Verdict::none : verdict_on(ply);
    if (verdict != Verdict::none) {
        game.set_symbol(position.node, glyph_of(verdict));
        add_line(game, ply, info, choice);
    } else if (m_marked[ply] != Verdict::none) {
        game.set_symbol(position.node, "");
    }
}

/// The engine's line becomes a variation beside the move. A search that was cut off may name another move
/// than its last line does: then the move alone.
void GameReview::add_line(Game& game, std::size_t ply, const SearchInfo& info,
                          std::string_view choice) const {
    const ChessPosition before = m_line.position(ply - 1);
    const std::string chosen(choice);
    std::vector<LineMove> line = read_line(before, info.moves, shown_moves);
    const auto first = read_line(before, std::span(&chosen, 1), 1);
    if (first.empty()) return;
    if (line.empty() || line.front().san != first.front().san) line = first;
    std::vector<Move> moves;
    moves.reserve(line.size());
    for (const LineMove& each : line) moves.push_back(each.move);
    const auto stood = game.current();
    game.go_to(m_line.at(ply - 1).node);
    game.add_line(moves);
    game.go_to(stood);
}

SideSummary GameReview::summary(const Game& game, Side side) const {
    SideSummary summary;
    std::vector<std::optional<Evaluation>> covered = m_line.evaluations();
    for (std::size_t ply = 0; ply <= m_line.plies(); ++ply) {
        if (!m_covered[ply]) covered[ply].reset();
        if (ply == 0 || m_line.mover(ply) != side || !m_covered[ply] || !m_covered[ply - 1]) continue;
        const Verdict marked = verdict_of_glyph(game.tree().node(m_line.at(ply).node).nag);
        if (marked != verdict_on(ply)) continue;
        summary.inaccuracies += marked == Verdict::inaccuracy;
        summary.mistakes += marked == Verdict::mistake;
        summary.blunders += marked == Verdict::blunder;
    }
    summary.accuracy = accuracy_of(covered, m_line.at(0).to_move, side);
    return summary;
}

/// The longest row of positions behind one another, up to the last: a review goes from the end to the start,
/// so what is judged stands there. A position that was left out ends the row.
ReviewNote GameReview::note() const {
    std::size_t first = m_line.plies() + 1;
    while (first > 0 && m_covered[first - 1]) --first;
    return {std::min(first, m_line.plies()), m_line.plies(), m_settings.level, m_engine};
}

void GameReview::finish(Game& game) {
    if (m_taken == 0 && !m_wanted.empty()) return;
    ReviewSummary whole{m_engine + ", " + effort_text(m_settings.level), {}};
    for (const Side side : {Side::white, Side::black}) {
        if (m_settings.judges(side)) whole.of[side] = summary(game, side);
    }
    const std::string text = whole.text() + ' ' + note().text();
    game.set_comment(0, with_review_summary(game.tree().node(0).comment, text));
}

}  // namespace velmora
