#include "manager/table_talk.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "game/pgn_limits.h"
#include "manager/overstep.h"

namespace velmora {

namespace {

constexpr const char* normal = "normal";
constexpr const char* time_forfeit = "time forfeit";

bool has_clock(const Level& level) {
    return level.level_t() == LevelType::sudden_death || level.level_t() == LevelType::sessions;
}

}  // namespace

bool TableTalk::is_going_on() const {
    return m_state.mode == ManagerMode::play && m_seats.engine(Seat::first) != nullptr &&
           (m_state.turn == MoveTurn::user || m_state.turn == MoveTurn::engine1);
}

Side TableTalk::person() const {
    const Side to_move = m_state.position.side_to_move();
    return m_state.turn == MoveTurn::user ? to_move : opposite(to_move);
}

GameEnd TableTalk::end(const GameOutcome& outcome, const char* termination) {
    if (auto* const engine = m_seats.engine(Seat::first)) engine->stop();
    m_state.pending = Move();
    m_state.send(to_window::Termination{termination});
    return outcome;
}

GameEnd TableTalk::resign() {
    if (!is_going_on()) return {};
    return end(loss_of(person(), person() == Side::white ? "white resigns" : "black resigns"), normal);
}

GameEnd TableTalk::offer_draw() { return is_going_on() ? m_offers.offered_by_person(person()) : GameEnd(); }

GameEnd TableTalk::claim_draw() {
    if (!is_going_on()) return {};
    const auto claimed = draw_to_claim(m_state.position);
    return claimed ? end(*claimed, normal) : GameEnd();
}

GameEnd TableTalk::flag() {
    if (!m_lose_on_time || !is_going_on()) return {};
    return end(loss_on_time(m_state.position, person()), time_forfeit);
}

GameEnd TableTalk::note_result(const to_referee::NoteResult& command) {
    if (m_state.mode != ManagerMode::human_human) return {};
    std::string termination = text::underscores_to_blanks(command.termination);
    m_state.send(to_window::Termination{text::record_text(termination, pgn_limits::own_comment)});
    return GameOutcome{command.result, text::record_text(command.reason, pgn_limits::own_comment)};
}

void TableTalk::take_back() {
    const std::size_t wanted = m_state.turn == MoveTurn::engine1 ? 1 : 2;
    const bool can = is_going_on() && m_state.position.moves().size() >= wanted;
    if (can) {
        m_seats.engine(Seat::first)->stop();
        m_offers.begin();
        m_state.pending = Move();
        for (std::size_t ply = 0; ply < wanted; ++ply) m_state.position.undo_move();
        m_state.turn = MoveTurn::user;
    }
    m_state.send(to_window::TakenBack{can ? static_cast<int>(wanted) : 0});
}

void TableTalk::move_now() {
    if (is_going_on() && m_state.turn == MoveTurn::engine1) m_seats.engine(Seat::first)->move_now();
}

void TableTalk::set_clock(const to_referee::SetClock& command) {
    if (!is_going_on() || m_state.turn != MoveTurn::user) return;
    auto& engine = *m_seats.engine(Seat::first);
    const auto moves = m_state.level.moves();
    engine.set_moves_done(moves > 0 ? command.moves % moves : command.moves);
    engine.set_time_left(command.ms);
}

GameEnd TableTalk::watch_clock() {
    if (!m_lose_on_time || !is_going_on() || m_state.turn != MoveTurn::engine1) return {};
    if (!has_clock(m_state.level)) return {};
    const auto& engine = *m_seats.engine(Seat::first);
    if (!engine.is_alive() || engine.state().clock.time_left() >= -forgiven_overstep) return {};
    return end(loss_on_time(m_state.position, opposite(person())), time_forfeit);
}

}  // namespace velmora
