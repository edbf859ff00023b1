#pragma once

#include <functional>

#include "window/comment_keeper.h"
#include "window/game_desk.h"
#include "window/manager_link.h"
#include "window/screen.h"

namespace velmora {

/// What the six radio actions, "Start thinking" and "New game" bring about.
class ModeController {
public:
    /// @param engine_loaded  asks the referee whether an engine sits in the first seat
    ModeController(GameDesk& desk, Screen& screen, CommentKeeper& comments, ManagerLink& manager,
                   std::function<bool()> engine_loaded);

    /// A radio action has been switched on or off. The one switched off is told first.
    void on_switched(Mode mode, bool on);
    /// Tells the referee once more of a mode that needs an engine: with nobody in the first seat it didn't
    /// take it.
    void repeat();

    void start_thinking();
    void new_game();

    /// Whether an engine searches or owes a move, as far as the window knows.
    bool awaits_engine() const;

private:
    using Handler = void (ModeController::*)(bool on);

    void setup(bool on);
    void human_human(bool on);
    void human_computer(bool on);
    void analyze_position(bool on);
    void learn_openings(bool on);
    void tournament(bool on);

    void send_position();

    GameDesk& m_desk;
    Screen& m_screen;
    CommentKeeper& m_comments;
    ManagerLink& m_manager;
    const std::function<bool()> m_engine_loaded;
};

}  // namespace velmora
