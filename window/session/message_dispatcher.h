#pragma once

#include <string>
#include <string_view>

#include "base/text.h"
#include "chess/board/side.h"
#include "window/session/comment_keeper.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/manager_link.h"
#include "window/session/screen.h"
#include "window/session/seated_engine.h"

namespace velmora {

/// Carries out the referee's lines on the desk and the screen: the table from first word to handler.
///
/// The board changes only where the mode lets the referee move it.
class MessageDispatcher {
public:
    MessageDispatcher(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments,
                      ManagerLink& manager, SeatedEngine& engine)
        : m_desk(desk),
          m_screen(screen),
          m_dialogs(dialogs),
          m_comments(comments),
          m_manager(manager),
          m_engine(engine) {}

    /// Handles one line; a line whose first word is in no table is ignored.
    /// @throws whatever a handler throws; the caller's loop contains it
    void process(const std::string& line);

    /// Whether a line with this first word is handled at all.
    static bool knows(std::string_view word);

private:
    using Rest = text::WordReader;
    struct Command;

    // A game as it is played
    void play_move(Rest& rest);
    void append_move_time(Rest& rest);
    void take_back(Rest& rest);
    void set_board(Rest& rest);
    void start_new_game(Rest& rest);
    void end_game(std::string_view result, Rest& rest);
    template <Side side>
    void search_output(Rest& rest);

    // What is shown around the board
    void set_event(Rest& rest);
    void set_site(Rest& rest);
    void set_round(Rest& rest);
    void set_level(Rest& rest);
    template <Side side>
    void set_clock(Rest& rest);
    template <Side side>
    void set_name(Rest& rest);
    template <Side side>
    void set_elo(Rest& rest);
    void set_engine1_name(Rest& rest);
    void set_engine2_name(Rest& rest);
    void set_arrow(Rest& rest);
    void clear_arrows(Rest& rest);

    // The program
    void tell_user(Rest& rest);
    void reset_mode(Rest& rest);
    void finish_tournament(Rest& rest);
    void close(Rest& rest);
    void ignore(Rest&) {}

    // Lines cross on their way: one that the referee wrote before it heard of the person's last step would
    // set the board back, while the referee goes on to follow that step. Such lines are dropped.
    bool awaits_move() const;
    bool awaits_take_back() const { return m_screen.mode() == Mode::learn_openings; }
    bool awaits_start() const;

    void attach_annotation(Side side);
    std::string clean_name(Rest& rest);

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    CommentKeeper& m_comments;
    ManagerLink& m_manager;
    SeatedEngine& m_engine;

    static const Command* find(std::string_view word);
};

}  // namespace velmora
