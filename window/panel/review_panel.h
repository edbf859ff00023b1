#pragma once

#include <functional>
#include <optional>

#include "views/panel/side_panel.h"
#include "views/review/review_view.h"
#include "window/review/review_room.h"
#include "window/session/game_session.h"

namespace velmora {

/// The side panel's section about the review of the game.
class ReviewPanel {
public:
    /// Adds its section at the lower end of `panel`.
    /// @param open  brings the panel onto the screen
    ReviewPanel(GameSession& session, ReviewRoom& room, SidePanel& panel, std::function<void()> open);
    ReviewPanel(const ReviewPanel&) = delete;  // the view knows where it is
    ReviewPanel& operator=(const ReviewPanel&) = delete;

    /// Brings the section up to date; opens the panel when a review or a question has begun.
    void refresh();

private:
    ShownReview shown() const;

    GameSession& m_session;
    ReviewRoom& m_room;
    SidePanel& m_panel;
    const std::function<void()> m_open;
    ReviewView m_view;
    PanelSection& m_section;
    std::size_t m_begun = 0;  // reviews, at the last refresh()
    bool m_asking = false;    // likewise
};

}  // namespace velmora
