#include "manager/play_mode.h"

#include <cstdint>
#include <utility>

namespace velmora {

namespace {

/// Above the last start position: a random one.
constexpr std::uint32_t any_chess960 = 960;

}  // namespace

void PlayMode::go() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return;
    const bool on_its_turn = m_state.mode == ManagerMode::play && m_state.turn == MoveTurn::engine1;
    if (on_its_turn && engine->state().status == EngineStatus::thinking) return;

    m_state.enter(ManagerMode::play);
    m_state.turn = MoveTurn::engine1;
    m_state.pending = Move();
    engine->set_white(m_state.white_to_move());
    prepare_to_move(*engine, m_state.position);
    engine->go();
    send_names(*engine);
}

void PlayMode::play_other() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return;
    engine->stop();
    m_state.enter(ManagerMode::play);
    m_state.turn = MoveTurn::user;
    m_state.pending = Move();
    // Provisional: the person's next move decides.
    engine->set_white(m_state.white_to_move());
}

void PlayMode::fix_colours() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return;
    engine->set_white(!m_state.white_to_move());
    send_names(*engine);
}

/// A random start of Chess960 is made here and told to the window, for both must have the same.
void PlayMode::new_game() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return;
    engine->stop();
    m_state.turn = MoveTurn::user;
    m_state.send(to_window::NewGame());
    engine->set_level(m_state.level);
    // The second time that the engine is told, after the reset of both seats.
    engine->new_game();
    const auto options = engine->get_enginevariables().options;
    const auto chess960 = options.find("UCI_Chess960");
    if (chess960 != options.end() && chess960->second.value == "true") {
        m_state.position.new_chess960(any_chess960);
        m_state.send(to_window::SetBoard{m_state.position.fen()});
    }
}

GameEnd PlayMode::step() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return {};
    if (!engine->is_alive()) return replace_crashed();
    if (m_state.pending.empty()) return {};
    if (m_state.turn == MoveTurn::user) return user_moved();
    if (m_state.turn == MoveTurn::engine1) return engine_moved();
    return {};
}

GameEnd PlayMode::replace_crashed() {
    m_seats.replace_crashed(Seat::first);
    // The window shows the person's move already, so it belongs to the game; what the dead engine sent
    // doesn't.
    const Move move = std::exchange(m_state.pending, Move());
    const bool played = m_state.turn == MoveTurn::user && play_if_legal(m_state.position, move);
    return played ? result(m_state.position) : GameEnd();
}

GameEnd PlayMode::user_moved() {
    const Move move = std::exchange(m_state.pending, Move());
    if (!play_if_legal(m_state.position, move)) return {};
    if (auto end = result(m_state.position)) return end;

    auto& engine = *m_seats.engine(Seat::first);
    prepare_to_move(engine, m_state.position);
    if (m_state.log.is_on()) m_state.log.write(" engine1 <- position " + m_state.position.fen());
    engine.go();
    m_state.turn = MoveTurn::engine1;
    return {};
}

/// The move is told before it is played: the window must have it when the end of the game follows.
GameEnd PlayMode::engine_moved() {
    const Move move = std::exchange(m_state.pending, Move());
    m_seats.note_move(Seat::first);
    m_state.send(to_window::PlayMove{move.to_string(false)});
    m_state.send(clock_of(*m_seats.engine(Seat::first)));
    m_state.send(to_window::Shout());
    play_if_legal(m_state.position, move);
    if (auto end = result(m_state.position)) return end;
    m_offers.engine_moved();
    m_state.turn = MoveTurn::user;
    return {};
}

void PlayMode::send_names(const GuiEngine& engine) {
    const Side side = side_of(engine);
    m_state.send(to_window::PlayerName{side, engine.get_enginevariables().playing_name()});
    m_state.send(to_window::PlayerName{opposite(side), "Human"});
}

}  // namespace velmora
