#pragma once

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "tournament/standings_sheet.h"

namespace velmora {

/// Standings in small, for the side panel: place, name, points of games and Elo of the first players, and a
/// button for the rest.
class StandingsSummary : public Gtk::Box {
public:
    StandingsSummary();

    void show_sheet(const StandingsSheet& sheet);

    sigc::signal<void>& signal_all() { return m_all; }

private:
    Gtk::Label m_progress;
    Gtk::Grid m_table;
    Gtk::Button m_open{"Standings"};
    sigc::signal<void> m_all;
};

}  // namespace velmora
