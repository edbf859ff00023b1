#pragma once

#include "window/session/game_desk.h"
#include "window/session/screen.h"

namespace velmora {

/// Keeps the comment box and the record's comments in step.
///
/// Whatever changes the record's current node calls store() before and show() after; so no typed text is lost
/// and no stale text overwrites an annotation.
class CommentKeeper {
public:
    CommentKeeper(GameDesk& desk, Screen& screen) : m_desk(desk), m_screen(screen) {}

    /// The box's text becomes the current node's comment if it differs.
    void store();
    /// The current node's comment goes into the box.
    void show();

private:
    GameDesk& m_desk;
    Screen& m_screen;
};

}  // namespace velmora
