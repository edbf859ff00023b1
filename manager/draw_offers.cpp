#include "manager/draw_offers.h"

#include <algorithm>
#include <cstdlib>

#include "analysis/search_info.h"

namespace velmora {

namespace {

/// Hundredths of a pawn: no side stands better.
constexpr int level_value = 20;
/// So many of the engine's moves in a row must have found nothing else.
constexpr std::size_t level_moves = 5;
/// Up to this move of the game nothing is decided yet.
constexpr int opening_moves = 30;
constexpr int value_of_mate = 1'000'000;

/// Whether search output tells a score of the best line, and no bound of it. Looked for in the text, since an
/// engine writes thousands of lines of which one is read.
bool tells_score(std::string_view text) {
    if (text.find("bound") != std::string_view::npos) return false;
    constexpr std::string_view line_word = " multipv ";
    const auto line = text.find(line_word);
    if (line != std::string_view::npos && !text.substr(line + line_word.size()).starts_with("1 "))
        return false;
    return text.find(" score ") != std::string_view::npos;
}

}  // namespace

void DrawOffers::begin() {
    m_by_person = m_by_engine = false;
    m_latest.clear();
    m_values.clear();
}

void DrawOffers::note_search(std::string_view text) {
    if (tells_score(text)) m_latest = text;
}

/// In hundredths of a pawn, in the engine's view; nothing when it has said nothing.
std::optional<int> DrawOffers::latest_value() const {
    const Side side = side_of(*m_seats.engine(Seat::first));
    const auto score = read_search_info(m_latest, side).score;
    if (!score) return std::nullopt;
    const int sign = side == Side::white ? 1 : -1;
    switch (score->kind) {
        case Evaluation::Kind::white_mates:
            return sign * value_of_mate;
        case Evaluation::Kind::black_mates:
            return -sign * value_of_mate;
        case Evaluation::Kind::centipawns:
            break;
    }
    return sign * score->value;
}

void DrawOffers::engine_moved() {
    m_values.push_back(latest_value());
    if (m_values.size() > level_moves) m_values.pop_front();
    m_latest.clear();
    if (!m_by_person) return;
    m_by_person = false;
    m_state.send(to_window::DrawDeclined{side_of(*m_seats.engine(Seat::first))});
}

GameEnd DrawOffers::offered_by_person(Side person) {
    auto& engine = *m_seats.engine(Seat::first);
    if (m_by_engine) return agree();
    if (engine_speaks_uci()) {
        if (engine_accepts()) return agree();
        m_state.send(to_window::DrawDeclined{opposite(person)});
    } else if (!m_by_person) {
        m_by_person = true;
        engine.offer_draw();
        m_state.send(to_window::DrawOffered{person});
    }
    return {};
}

GameEnd DrawOffers::offered_by_engine() {
    if (engine_speaks_uci()) return {};
    if (m_by_person) return agree();
    if (!m_by_engine) m_state.send(to_window::DrawOffered{side_of(*m_seats.engine(Seat::first))});
    m_by_engine = true;
    return {};
}

/// It stands worse, or has found the game level for a while. What it thinks at the moment counts ahead of
/// what it thought of its last move.
bool DrawOffers::engine_accepts() const {
    auto last = latest_value();
    if (!last && !m_values.empty()) last = m_values.back();
    if (last && *last < -level_value) return true;
    return m_state.position.fullmove() > opening_moves && m_values.size() == level_moves &&
           std::ranges::all_of(m_values,
                               [](const auto& value) { return value && std::abs(*value) <= level_value; });
}

GameEnd DrawOffers::agree() {
    m_by_person = m_by_engine = false;
    m_seats.engine(Seat::first)->stop();
    m_state.send(to_window::Termination{"normal"});
    return GameOutcome{GameResult::draw, "Draw by agreement"};
}

bool DrawOffers::engine_speaks_uci() const {
    return m_seats.engine(Seat::first)->get_enginevariables().protocol == Protocol::uci;
}

}  // namespace velmora
