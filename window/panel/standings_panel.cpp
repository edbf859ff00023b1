#include "window/panel/standings_panel.h"

#include <utility>

namespace velmora {

StandingsPanel::StandingsPanel(const StandingsRoom& room, SidePanel& panel, StandingsWindow& window,
                               std::function<void()> open)
    : m_room(room),
      m_window(window),
      m_open(std::move(open)),
      m_section(panel.add_section("Standings", m_view, "Load a tournament to see who leads.")) {
    m_view.signal_all().connect([this] { m_open(); });
}

void StandingsPanel::refresh() {
    if (std::exchange(m_shown, m_room.version()) != m_room.version()) {
        m_section.set_has_content(!m_room.sheet().lines.empty());
        m_view.show_sheet(m_room.sheet());
        m_window.show_sheet(m_room.sheet());
    }
    if (std::exchange(m_ended_runs, m_room.ended_runs()) != m_room.ended_runs()) m_open();
}

}  // namespace velmora
