#pragma once

#include <cstddef>
#include <functional>

#include "views/panel/side_panel.h"
#include "views/tournament/standings_summary.h"
#include "views/tournament/standings_window.h"
#include "window/standings/standings_room.h"

namespace velmora {

/// Shows the standings in the side panel and in their window. The window opens by itself when a run has
/// ended: who has won is what the person waited for.
class StandingsPanel {
public:
    /// @param open  opens the window
    StandingsPanel(const StandingsRoom& room, SidePanel& panel, StandingsWindow& window,
                   std::function<void()> open);
    StandingsPanel(const StandingsPanel&) = delete;  // the view knows where it is
    StandingsPanel& operator=(const StandingsPanel&) = delete;

    /// Brings both up to date.
    void refresh();

private:
    const StandingsRoom& m_room;
    StandingsWindow& m_window;
    const std::function<void()> m_open;
    StandingsSummary m_view;
    PanelSection& m_section;
    std::size_t m_shown = 0;       // the sheet's version
    std::size_t m_ended_runs = 0;  // at the last refresh()
};

}  // namespace velmora
