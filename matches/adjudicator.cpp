#include "matches/adjudicator.h"

#include <cstdlib>

namespace velmora {

namespace {

/// Beyond any score in centipawns.
constexpr std::int32_t mate_score = 1'000'000;

/// The score of a side in centipawns.
std::int32_t score_of(const Evaluation& score, Side side) {
    std::int32_t white = score.value;
    if (score.is_mate()) white = score.kind == Evaluation::Kind::white_mates ? mate_score : -mate_score;
    return side == Side::white ? white : -white;
}

}  // namespace

void Adjudicator::add_move(Side side, std::uint32_t ply, const std::optional<Evaluation>& score) {
    m_ply = ply;
    const auto count = [](std::uint32_t& row, bool goes_on) { row = goes_on ? row + 1 : 0; };
    const std::int32_t own = score ? score_of(*score, side) : 0;
    const bool counts_for_draw = (ply + 1) / 2 >= m_settings.draw_move;
    count(m_quiet, score && counts_for_draw && std::abs(own) <= m_settings.draw_score);
    count(m_hopeless[side], score && own <= -m_settings.resign_score);
    count(m_winning[side], score && own >= m_settings.resign_score);
}

std::optional<GameOutcome> Adjudicator::outcome() const {
    for (const Side side : {Side::white, Side::black}) {
        const Side winner = opposite(side);
        const bool believed = !m_settings.resign_two_sided || m_winning[winner] >= m_settings.resign_count;
        if (m_settings.resign_count > 0 && m_hopeless[side] >= m_settings.resign_count && believed) {
            return GameOutcome{win_of(winner), winner == Side::white ? "White wins by adjudication"
                                                                     : "Black wins by adjudication"};
        }
    }
    const bool quiet = m_settings.draw_count > 0 && m_quiet >= 2 * m_settings.draw_count;
    const bool long_enough = m_settings.most_moves > 0 && m_ply >= 2 * m_settings.most_moves;
    if (quiet || long_enough) return GameOutcome{GameResult::draw, "Draw by adjudication"};
    return {};
}

}  // namespace velmora
