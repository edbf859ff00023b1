#include "window/flows/file_flows.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "base/atomic_file.h"
#include "base/regular_file.h"
#include "game/foreign/foreign_file.h"
#include "game/pgn_error.h"
#include "game/position_lines.h"
#include "window/flows/opened_file.h"
#include "window/session/game_archive.h"
#include "window/session/position_line.h"

namespace velmora {

namespace {

constexpr std::size_t first_position = 1;

}  // namespace

// ---------------------------------------------------------------------------------------------------------------
// Games

/// The mode goes first: behind the dialog an engine's move would be played into the game that is about to
/// go.
void FileFlows::load_game() {
    m_frame.select_mode(Mode::human_human);
    const std::string path = m_dialogs.choose_file(FileKind::load_game);
    if (!path.empty()) choose_game_of(path);
}

void FileFlows::open_game(Game game) {
    m_frame.select_mode(Mode::human_human);
    m_session.load(std::move(game));
    follow_loaded();
}

bool FileFlows::is_readable(const std::string& path) {
    const auto fault = reading_fault(path);
    if (fault) m_dialogs.tell_user("The file can't be read", *fault);
    return !fault;
}

void FileFlows::choose_game_of(const std::string& path) {
    if (!is_readable(path)) return;
    const auto offset = m_dialogs.choose_game(path);
    if (!offset) return;
    std::string game_text;
    // Parsed apart, so that a game that can't be read leaves the one on the board alone.
    Game game;
    try {
        game_text = read_any_game(path, *offset).text;
        game.parse_pgn(game_text);
    } catch (const pgn_error& error) {
        std::cerr << "# invalid game: \n" << error.text() << '\n';
        return;
    } catch (const std::logic_error& error) {
        std::cerr << "# invalid game: \n" << game_text << '\n' << error.what() << '\n';
        return;
    }
    open_game(std::move(game));
}

void FileFlows::save_game() {
    const std::string path = m_dialogs.choose_file(FileKind::save_game);
    if (path.empty()) return;
    const auto fault = GameArchive(path).append(m_session.text_to_save());
    if (fault) return m_dialogs.tell_user("The game was not saved", *fault);
    m_saved();
}

// ---------------------------------------------------------------------------------------------------------------
// Positions

void FileFlows::load_position() {
    if (m_frame.mode() == Mode::tournament) return;
    const std::string path = m_dialogs.choose_file(FileKind::load_position);
    if (!path.empty()) load_position_from(path);
}

void FileFlows::load_position_from(const std::string& path) {
    if (!is_readable(path)) return;
    const auto position = m_dialogs.choose_position(path);
    if (!position) return;
    m_position_file = path;
    m_position_index = position->number;
    set_up(position->line);
}

void FileFlows::load_next_position() { step_to_position(m_position_index + 1); }

void FileFlows::load_previous_position() {
    step_to_position(std::max(m_position_index, first_position + 1) - 1);
}

/// Lines are counted from the front each time: places kept of a file that may have been edited since would
/// go wrong unnoticed.
void FileFlows::step_to_position(std::size_t index) {
    if (m_position_file.empty() || m_frame.mode() == Mode::tournament) return;
    m_frame.select_mode(Mode::human_human);
    PositionLines lines(m_position_file);
    std::string line;
    for (std::size_t number = first_position; number <= index; ++number) {
        // The last line stays the current one.
        if (!lines.next(line)) return;
    }
    m_position_index = index;
    set_up(line);
}

/// Read by the rules' own reader and written anew, so that what is set up has one form wherever it came
/// from.
std::optional<std::string> FileFlows::readable_fen(const std::string& line) {
    ChessPosition position;
    try {
        position.fen(line);
    } catch (const std::logic_error& error) {
        m_dialogs.tell_user("The position can't be set up", error.what());
        return std::nullopt;
    }
    return position.fen();
}

void FileFlows::set_up(const std::string& line) {
    if (!is_position_line(line)) return;
    const auto fen = readable_fen(line);
    if (!fen) return;
    m_session.load_position(line, *fen);
    follow_loaded();
}

/// A game or a position has come from outside: hints of the old one go, and the referee follows.
void FileFlows::follow_loaded() {
    m_board.clear_arrows();
    m_modes.follow_position();
}

void FileFlows::enter_position(const std::string& line) {
    if (m_frame.mode() != Mode::tournament) set_up(line);
}

void FileFlows::enter_fen(const std::string& fen) {
    if (m_frame.mode() == Mode::tournament) return;
    if (const auto readable = readable_fen(fen)) set_up(*readable);
}

void FileFlows::save_position() {
    const std::string path = m_dialogs.choose_file(FileKind::save_position);
    if (path.empty()) return;
    try {
        write_file_atomically(path, m_session.position().fen() + "\n");
    } catch (const std::runtime_error& error) {
        m_dialogs.tell_user("The position was not saved", error.what());
    }
}

// ---------------------------------------------------------------------------------------------------------------
// Books, and files from outside

void FileFlows::choose_polyglot_book() {
    const std::string path = m_dialogs.choose_file(FileKind::polyglot_book);
    if (!path.empty()) use_polyglot_book(path);
}

void FileFlows::use_polyglot_book(const std::string& path) {
    if (is_readable(path)) m_manager.send(to_referee::PolyglotBook{path});
}

void FileFlows::open(const std::vector<std::string>& paths) {
    if (paths.empty()) return;
    open_one(paths.front());
    std::string others;
    for (auto path = paths.begin() + 1; path != paths.end(); ++path) others += *path + "\n";
    if (!others.empty()) m_dialogs.tell_user("Only one file is opened at a time, not these:", others);
}

void FileFlows::open_one(const std::string& path) {
    const auto refuse = [this](const std::string& reason) {
        m_dialogs.tell_user("The file can't be opened", reason);
    };
    if (RegularFile(path).is_missing()) return refuse("There is no file " + path);
    switch (kind_of_file(path)) {
        case OpenedFile::game:
            m_frame.select_mode(Mode::human_human);
            choose_game_of(path);
            break;
        case OpenedFile::position:
            if (m_frame.mode() != Mode::tournament) load_position_from(path);
            break;
        case OpenedFile::book:
            use_polyglot_book(path);
            break;
        case OpenedFile::none:
            refuse(path + " is no .pgn, .fen, .epd or .bin file");
            break;
    }
}

}  // namespace velmora
