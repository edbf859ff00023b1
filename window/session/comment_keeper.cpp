#include "window/session/comment_keeper.h"

#include "game/annotations.h"

namespace velmora {

void CommentKeeper::store() {
    const std::string text = m_screen.comment_text();
    if (text != m_desk.game.comment()) m_desk.game.set_comment(comment_from_user(text));
}

void CommentKeeper::show() { m_screen.show_comment(m_desk.game.comment()); }

}  // namespace velmora
