#pragma once

#include <cstddef>
#include <functional>

#include "window/session/comment_keeper.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/mode_controller.h"
#include "window/session/screen.h"

namespace velmora {

/// Steps through the record: the four buttons under the board and clicks into the PGN text.
class Navigation {
public:
    Navigation(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments,
               ModeController& modes)
        : m_desk(desk), m_screen(screen), m_dialogs(dialogs), m_comments(comments), m_modes(modes) {}

    void to_start();
    void back();
    void forward();
    void to_end();

    /// @param offset  of a character in the text that the PGN view shows
    void to_text_offset(std::size_t offset);

private:
    /// Moves the record's current node and gives the FEN there, empty when there is no such move.
    using Step = std::function<std::string(Game&)>;

    void press(const Step& step);
    void go(const Step& step);

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    CommentKeeper& m_comments;
    ModeController& m_modes;
};

}  // namespace velmora
