#pragma once

#include <functional>
#include <string>

#include "engine/store/engine_variables.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/manager_link.h"
#include "window/session/mode_controller.h"
#include "window/session/screen.h"
#include "window/session/seated_engine.h"

namespace velmora {

/// The Engine and Options menus: loading, installing, setting up an engine, and the time control.
class EngineFlows {
public:
    /// @param engine_variables  gives the referee's record of the engine in the first seat; throws
    ///                          std::logic_error when there is none
    EngineFlows(GameDesk& desk, Screen& screen, Dialogs& dialogs, ManagerLink& manager, ModeController& modes,
                SeatedEngine& engine, std::function<EngineVariables()> engine_variables);

    void load();
    void load_installed();
    void install();
    void choose_time_control();
    void edit_options();

private:
    /// @param name  of the program, for the person
    void send_load(const to_referee::Load& command, const std::string& name, Protocol protocol);

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    ModeController& m_modes;
    SeatedEngine& m_engine;
    const std::function<EngineVariables()> m_engine_variables;
};

}  // namespace velmora
