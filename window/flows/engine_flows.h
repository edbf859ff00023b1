#pragma once

#include <functional>
#include <string>

#include "engine/store/engine_variables.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/mode_controller.h"
#include "window/session/seated_engine.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The Engine and Options menus: loading, installing, setting up an engine, and the time control.
///
/// Loading is asked for and not waited for: the referee may take fifteen seconds, and the window stays
/// alive. What is on the screen meanwhile is the matter of SeatedEngine.
class EngineFlows {
public:
    /// @param engine_variables  gives the referee's record of the engine in the first seat; throws
    ///                          std::logic_error when there is none
    EngineFlows(GameSession& session, WindowFrame& frame, Dialogs& dialogs, ManagerLink& manager,
                ModeController& modes, SeatedEngine& engine,
                std::function<EngineVariables()> engine_variables);

    void load();
    void load_installed();
    void install();
    /// Looks for engines on the machine and installs what the person ticks.
    void find();
    void choose_time_control();
    /// Has the engine play weaker or with full strength, by the options that it has for it.
    void choose_strength();
    /// The referee's record is copied, edited and compared, and only what differs is sent: the dialog
    /// writes into its copy while one types.
    void edit_options();

private:
    /// @param name  of the program, for the person
    void send_load(const to_referee::Load& command, const std::string& name, Protocol protocol);

    GameSession& m_session;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    ModeController& m_modes;
    SeatedEngine& m_engine;
    const std::function<EngineVariables()> m_engine_variables;
};

}  // namespace velmora
