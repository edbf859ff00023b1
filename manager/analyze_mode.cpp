#include "manager/analyze_mode.h"

#include <chrono>
#include <thread>
#include <utility>

#include "game/game_result.h"

namespace velmora {

namespace {

/// What an engine is given to settle after a stop. The referee's thread stands still meanwhile.
constexpr std::chrono::milliseconds settling_time{500};

}  // namespace

void AnalyzeMode::analyze_position() {
    if (!is_ready()) return;
    auto& engine = *m_seats.engine(Seat::first);
    m_state.enter(ManagerMode::analyze);
    m_state.turn = MoveTurn::none;
    m_state.pending = Move();
    engine.set_white(m_state.white_to_move());
    engine.stop();
    engine.set_position(m_state.position);
    engine.go_infinite();
}

void AnalyzeMode::step() {
    if (!is_ready() || m_state.pending.empty()) return;
    auto& engine = *m_seats.engine(Seat::first);
    const Move move = std::exchange(m_state.pending, Move());
    if (!play_if_legal(m_state.position, move)) return;
    engine.stop();
    m_state.flush();
    std::this_thread::sleep_for(settling_time);
    engine.set_position(m_state.position);
    engine.go_infinite();
    // Last of all: search lines that came in between belong to the side that has just moved.
    engine.set_white(m_state.white_to_move());
}

/// Whether there is an engine. One that has died is replaced, and waits for the next move or command: to
/// start it at once would never end with a position on which it dies.
bool AnalyzeMode::is_ready() {
    if (m_seats.engine(Seat::first) == nullptr) return false;
    if (!m_seats.is_alive(Seat::first)) m_seats.replace_crashed(Seat::first);
    return m_seats.engine(Seat::first) != nullptr;
}

}  // namespace velmora
