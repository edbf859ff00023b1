#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "window/session/board_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/mode_controller.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The File menu: games and positions from and to files, and the Polyglot book.
///
/// Whatever brings a game or a position ends in follow_loaded(): the record and the board have changed
/// without a move, and the referee has to be told. Files from outside go the same way as chosen ones, so
/// that there is one set of words for what can be wrong with a file.
class FileFlows {
public:
    FileFlows(GameSession& session, BoardView& board, WindowFrame& frame, Dialogs& dialogs,
              ManagerLink& manager, ModeController& modes)
        : m_session(session),
          m_board(board),
          m_frame(frame),
          m_dialogs(dialogs),
          m_manager(manager),
          m_modes(modes) {}

    void load_game();
    void save_game();
    /// Has `saved` told when the game has been written to a file.
    void on_saved(std::function<void()> saved) { m_saved = std::move(saved); }
    void load_position();
    void load_next_position();
    void load_previous_position();
    void save_position();
    void choose_polyglot_book();

    /// Sets up the FEN that the person typed; one that can't be read is reported and changes nothing.
    void enter_fen(const std::string& fen);

    /// Sets up the position that a FEN or EPD line begins with; its operations become tags.
    void enter_position(const std::string& line);
    /// Lets the person choose a game of a PGN file and loads it.
    void choose_game_of(const std::string& path);
    /// Loads a game that has come from elsewhere.
    void open_game(Game game);

    /// Opens the first of some files from outside by the flow of its kind, told by its extension, as if it
    /// had been chosen. One that is missing or of another kind, and the further ones, are told to the person.
    void open(const std::vector<std::string>& paths);

private:
    void open_one(const std::string& path);
    /// False, and a word to the person, for a file that is there and can't be read, such as a pipe.
    bool is_readable(const std::string& path);
    void load_position_from(const std::string& path);
    void use_polyglot_book(const std::string& path);
    void step_to_position(std::size_t index);
    /// The FEN of the position that a line begins with; nothing, and a word to the person, when it can't be
    /// read.
    std::optional<std::string> readable_fen(const std::string& line);
    void set_up(const std::string& line);
    void follow_loaded();

    GameSession& m_session;
    BoardView& m_board;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    ModeController& m_modes;
    std::function<void()> m_saved = [] {};
    /// The file is read anew at each step: it may have been edited meanwhile.
    std::string m_position_file;       // loaded last
    std::size_t m_position_index = 0;  // of its line, from 1
};

}  // namespace velmora
