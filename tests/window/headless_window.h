#pragma once

#include <optional>

#include "tests/support/recording_sink.h"
#include "tests/window/recording_screen.h"
#include "window/review/review_room.h"
#include "window/session/game_presenter.h"
#include "window/session/message_dispatcher.h"
#include "window/session/mode_controller.h"
#include "window/session/navigation.h"
#include "window/session/user_moves.h"
#include "window/table/game_keeper.h"
#include "window/table/premove.h"
#include "window/table/table_room.h"

namespace velmora::test {

/// The window without a display: the session and the rooms, put together as the real one does it, between a
/// screen and a referee that write down what they are told.
struct HeadlessWindow {
    explicit HeadlessWindow(Mode mode) {
        screen.on_switched = [this](Mode which, bool on) { modes.on_switched(which, on); };
        screen.select_mode(mode);
        referee.take();
        constexpr std::uint64_t all_sent = 10;
        link.receive("", all_sent);
        screen.calls.clear();
    }
    HeadlessWindow(const HeadlessWindow&) = delete;
    HeadlessWindow& operator=(const HeadlessWindow&) = delete;

    RecordingScreen screen;
    RecordingSink referee;
    std::optional<Protocol> seat;  // what the engine speaks that sits there

    GameSession session{[this] { return screen.comment; }};
    GamePresenter presenter{session, screen.all()};
    ManagerLink link{referee};
    SeatedEngine engine{screen, screen, link, [this] { return seat; }};
    MessageDispatcher dispatcher{session, screen.all(), screen, link, engine};
    ModeController modes{session, screen, screen, screen, screen, link, engine};
    UserMoves moves{session, screen, screen, screen, screen, link, 0.0};
    Navigation navigation{session, screen, screen, screen, modes};
    ReviewRoom review{session, screen, screen, engine, link, dispatcher, navigation, moves};
    TableRoom table{session, screen, screen, screen, modes, link, engine, dispatcher, moves};
    GameKeeper keeper{session, screen, screen,     screen,         modes,
                      link,    engine, dispatcher, table.notice(), "earlier_games/"};
    Premove premove{session, screen, screen, moves};
};

}  // namespace velmora::test
