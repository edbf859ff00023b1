#include "manager/learn_mode.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <utility>

#include "base/text.h"
#include "game/game_result.h"

namespace velmora {

namespace {

constexpr int hint_white = 1;
constexpr int hint_black = 2;

constexpr ArrowColor good_move = ArrowColor::green;
constexpr ArrowColor bad_move = ArrowColor::red;
constexpr ArrowColor hint = ArrowColor::blue;

}  // namespace

void LearnMode::learn_openings(int hint_mask) {
    m_hint_mask = hint_mask;
    if (hint_mask == 0) {
        m_state.clear_arrows();
        return;
    }
    if (m_book.path().empty()) {
        m_state.send(to_window::ResetMode());
        m_state.send(
            to_window::TellUser{"No_Polyglot_book_found", " use menu 'File' to load a Polyglot book"});
        return;
    }
    try {
        m_book.open();
    } catch (const std::exception& error) {
        m_state.send(to_window::ResetMode());
        report_no_book(error.what());
        return;
    }
    m_state.enter(ManagerMode::learn);
    m_state.turn = MoveTurn::none;
    m_seats.stop_all();
}

/// A book that isn't open stays so: it is opened by the drill, where a fault is told to somebody who waits
/// for it.
void LearnMode::set_book(const std::string& path) {
    m_book.set_path(path);
    if (!m_book.is_open()) return;
    m_book.close();
    try {
        m_book.open();
    } catch (const std::exception& error) {
        report_no_book(error.what());
    }
}

void LearnMode::report_no_book(const std::string& reason) {
    std::cerr << reason << std::endl;
    m_state.send(to_window::TellUser{"No_Polyglot_book_found", " " + text::one_line(reason)});
}

void LearnMode::post_hints() {
    if ((m_hint_mask & (m_state.white_to_move() ? hint_white : hint_black)) == 0) return;
    for (const auto& move : m_book.moves(m_state.position.key()))
        send_arrow(move.from().value(), move.to().value(), hint);
}

void LearnMode::step() {
    if (m_state.turn != MoveTurn::user || m_state.pending.empty()) return;
    const Move move = std::exchange(m_state.pending, Move());
    const int from = move.from().value();
    const int to = move.to().value();
    const auto book_moves = m_book.moves(m_state.position.key());
    const bool good = std::ranges::any_of(book_moves, [&move](BookMove book_move) {
        return book_move.from() == move.from() && book_move.to() == move.to();
    });
    m_state.send(to_window::ClearArrows());
    send_arrow(from, to, good ? good_move : bad_move);
    if (good) {
        if (play_if_legal(m_state.position, move)) post_hints();
    } else if (!book_moves.empty()) {
        m_state.send(to_window::TakeBack());
    } else {
        // The window keeps the move and our copy doesn't: they differ until the next "setboard".
        m_state.clear_arrows();
        m_state.send(to_window::TellUser{"Polyglotbook:", " no more moves"});
    }
}

void LearnMode::send_arrow(int from, int to, ArrowColor color) {
    m_state.has_arrows = true;
    m_state.send(to_window::SetArrow{Square(from), Square(to), color});
}

}  // namespace velmora
