#include "window/review/review_room.h"

#include "review/mistakes.h"

namespace velmora {

ReviewRoom::ReviewRoom(GameSession& session, WindowFrame& frame, Dialogs& dialogs, const SeatedEngine& engine,
                       ManagerLink& manager, MessageDispatcher& dispatcher, Navigation& navigation,
                       UserMoves& moves)
    : m_session(session),
      m_navigation(navigation),
      m_link(manager, dispatcher),
      m_run(session, frame, dialogs, engine, m_link, dispatcher),
      m_better_move(session, frame, navigation, moves, engine, m_run, m_link, dispatcher) {}

bool ReviewRoom::has_mistakes() const { return mistake_after(m_session.record().tree(), 0).has_value(); }

void ReviewRoom::to_next_mistake() {
    go_to(mistake_after(m_session.record().tree(), m_session.record().current()));
}

void ReviewRoom::to_previous_mistake() {
    go_to(mistake_before(m_session.record().tree(), m_session.record().current()));
}

void ReviewRoom::go_to(std::optional<std::int32_t> node) {
    if (node && !m_session.seats().only_looks_on()) m_navigation.to_node(*node);
}

}  // namespace velmora
