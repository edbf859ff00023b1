#pragma once

#include "tournament/tournament.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/manager_link.h"
#include "window/session/screen.h"

namespace velmora {

/// The Tournament menu: making, editing, choosing and deleting tournaments.
class TournamentFlows {
public:
    TournamentFlows(GameDesk& desk, Screen& screen, Dialogs& dialogs, ManagerLink& manager)
        : m_desk(desk), m_screen(screen), m_dialogs(dialogs), m_manager(manager) {}

    void edit();
    void load();

private:
    void load_named(const std::string& name);
    void leave();

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    Tournament m_tournament;  // the window's own copy; the referee loads its own from the file
};

}  // namespace velmora
