#pragma once

#include <functional>
#include <string>
#include <utility>

#include "tournament/tournament.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The Tournament menu: making, editing, choosing and deleting tournaments.
///
/// The file on the disk is what window and referee have in common: the window saves it and sends the name,
/// the referee reads it. So the format is tried with each tournament, and no object crosses the threads.
class TournamentFlows {
public:
    TournamentFlows(GameSession& session, WindowFrame& frame, Dialogs& dialogs, ManagerLink& manager)
        : m_session(session), m_frame(frame), m_dialogs(dialogs), m_manager(manager) {}

    void edit();
    void load();

    /// Tells of the name of each tournament that is loaded, once the referee has been told.
    void on_loaded(std::function<void(const std::string& name)> listener) { m_loaded = std::move(listener); }

private:
    void load_named(const std::string& name);
    void leave();

    GameSession& m_session;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    std::function<void(const std::string& name)> m_loaded = [](const std::string&) {};
    Tournament m_tournament;  // the window's own copy; the referee loads its own from the file
};

}  // namespace velmora
