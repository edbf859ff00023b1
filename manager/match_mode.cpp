#include "manager/match_mode.h"

#include <chrono>
#include <exception>
#include <iostream>
#include <thread>
#include <utility>

#include "base/regular_file.h"
#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "manager/match_opening.h"
#include "manager/overstep.h"
#include "tournament/score.h"

namespace velmora {

namespace {

/// What an engine may overstep before any line ends the game, whatever the tournament says of time losses,
/// ms.
constexpr std::int32_t hopeless_overstep = 20000;

/// How long after "go" the engine's lines may come at any moment, ms. A wait that begins later leaves its
/// threads free to run where there is room.
constexpr std::int32_t young_search = 20;

/// From a move's arrival to the next search; the queue waits, and the window can show the position meanwhile.
constexpr std::chrono::milliseconds move_pause{10};

std::string log_name(Seat seat) { return seat == Seat::first ? "engine1" : "engine2"; }

/// Where a game begins unless its opening says otherwise.
bool begins_from_standard_start(const ChessPosition& position) {
    ChessPosition standard;
    standard.new_game();
    return position.start_fen() == standard.start_fen();
}

}  // namespace

MatchMode::MatchMode(RefereeState& state, EngineSeats& seats)
    : m_state(state), m_seats(seats), m_book(state.leaving) {
    m_tournament.set_event("");
}

void MatchMode::load_tournament(const std::string& name) {
    cancel();
    // A fresh book: one without a file of its own would keep the openings of the tournament before.
    m_book = GuiBook(m_state.leaving);
    try {
        m_tournament.load(name);
    } catch (const std::exception& error) {
        m_tournament.set_event("");
        std::cerr << error.what() << std::endl;
        const std::string& fault = m_tournament.load_fault();
        m_state.send(fault.empty()
                         ? to_window::TellUser{"Tournament_doesn't_exist"}
                         : to_window::TellUser{"Tournament_can't_be_read", " " + text::one_line(fault)});
        return;
    }
    set_book(m_tournament.opening_book());
}

void MatchMode::set_book(const std::string& path) {
    m_book.set_path(path);
    const auto fault = reading_fault(path);
    if (fault) m_state.send(to_window::TellUser{"Opening_book_can't_be_read", " " + text::one_line(*fault)});
}

void MatchMode::start_tournament() {
    if (m_tournament.event().empty()) {
        m_state.send(to_window::TellUser{"No_tournament_loaded"});
        m_state.send(to_window::TournamentFinished());
        return;
    }
    m_state.enter(ManagerMode::match);
    m_state.turn = MoveTurn::none;
    // The level's bare text is no line of the language; the window gets the level of each game with its
    // start.
    m_state.window.put_command(m_tournament.level().text());
    m_state.level = m_tournament.level();
    m_state.send(to_window::NewGame());
    start_game();
}

/// A game whose program can't be started ends the run, and its result stays open in the file.
void MatchMode::start_game() {
    m_state.pending = Move();
    m_over_at_start = false;
    for (const auto seat : both_seats) m_seats.unload(seat);
    const TournamentGame game = m_tournament.next_game();
    m_game_number = game.number;
    if (game.white.name.empty()) {
        m_state.enter(ManagerMode::human_human);
        finish_run();
        return;
    }
    if (!seat_engine(Seat::first, game.white.name) || !seat_engine(Seat::second, game.black.name)) return;
    engine(Seat::first).set_white(true);
    engine(Seat::second).set_white(false);
    announce(game);
    m_seats.new_game_for_all();
    m_state.position.new_game();
    play_opening(m_book, m_state.position, m_tournament, m_game_number);
    show_opening();
    m_over_at_start = !has_legal_move(m_state.position);
    if (!m_over_at_start) start_first_mover();
}

bool MatchMode::seat_engine(Seat seat, const std::string& name) {
    m_seats.load_installed_engine(seat, name);
    if (m_seats.is_alive(seat)) return true;
    m_state.enter(ManagerMode::human_human);
    m_state.send(to_window::TellUser{"Oops...", " loading " + name + " failed"});
    m_state.send(to_window::TournamentFinished());
    return false;
}

void MatchMode::announce(const TournamentGame& game) {
    for (const auto seat : both_seats) {
        const std::string name = engine(seat).get_enginevariables().playing_name();
        m_state.send(to_window::PlayerName{side_of(engine(seat)), name});
    }
    for (const auto seat : both_seats) {
        const std::string elo = engine(seat).get_enginevariables().elo;
        if (!elo.empty()) m_state.send(to_window::PlayerElo{side_of(engine(seat)), elo});
    }
    m_state.send(to_window::SetRound{game.round_label()});
    m_state.send(to_window::SetEvent{m_tournament.event()});
    m_state.send(to_window::SetSite{m_tournament.site()});
    m_state.send(to_window::SetLevel{m_tournament.level().text()});
    m_state.send(
        to_window::MatchProgress{game.number, m_tournament.game_count(),
                                 score_of_two(m_tournament.participants_list(), m_tournament.games())});
}

void MatchMode::show_opening() {
    const auto moves = m_state.position.moves();
    // A game of the book may begin from a position of its own; its moves fit nowhere else.
    if (moves.empty()) {
        m_state.send(to_window::SetBoard{m_state.position.fen()});
    } else if (!begins_from_standard_start(m_state.position)) {
        m_state.send(to_window::SetBoard{m_state.position.start_fen()});
    }
    for (const auto& move : moves) m_state.send(to_window::PlayMove{move.to_string(false)});
}

void MatchMode::start_first_mover() {
    const bool white = m_state.white_to_move();
    const int full_moves = m_state.position.fullmove();
    // What has been played of the opening counts in the engines' sessions.
    engine(Seat::first).set_moves_done(white ? full_moves - 1 : full_moves);
    engine(Seat::second).set_moves_done(full_moves - 1);
    const Seat mover = white ? Seat::first : Seat::second;
    prepare_to_move(engine(mover), m_state.position);
    engine(mover).go();
    m_state.turn = turn_of(mover);
}

bool MatchMode::is_game_running() const {
    return is_running() && is_engine_turn(m_state.turn) && m_seats.engine(Seat::first) != nullptr &&
           m_seats.engine(Seat::second) != nullptr;
}

std::optional<pthread_t> MatchMode::answering_thread() const {
    if (!is_game_running()) return std::nullopt;
    auto& mover = engine(seat_of(m_state.turn));
    return mover.state().clock.move_time() < young_search ? mover.reader() : std::nullopt;
}

GameEnd MatchMode::step() {
    // Whatever waits and isn't the move of the engine on turn is thrown away here, the user's clicks
    // included.
    const Move move = std::exchange(m_state.pending, Move());
    if (is_over_at_start()) {
        m_over_at_start = false;
        return result(m_state.position);
    }
    if (move.empty() || !is_game_running()) return {};
    return engine_moved(seat_of(m_state.turn), move);
}

GameEnd MatchMode::engine_moved(Seat seat, Move move) {
    const to_window::PlayMove line{move.to_string(false)};
    m_state.send(line);
    if (m_state.log.is_on()) m_state.log.write(" interface <- " + to_window::encode(line));
    m_state.send(to_window::MoveTime{std::to_string(engine(seat).state().clock.move_time())});
    if (oversteps(engine(seat))) {
        m_state.log.write(" Manager:   TIME LOSS");
        engine(seat).stop();
        return loss_of(side_of(engine(seat)), "time");
    }
    const auto white_time = engine(Seat::first).state().clock.time_left();
    const auto black_time = engine(Seat::second).state().clock.time_left();
    m_state.send(to_window::SetClock{Side::white, white_time});
    m_state.send(to_window::SetClock{Side::black, black_time});
    if (seat == Seat::first) {
        // Only here: after a move of the second engine nobody is told.
        engine(Seat::first).set_opponent_time(black_time);
        engine(Seat::second).set_opponent_time(white_time);
    }
    play(seat, move);
    if (is_adjudicated_draw(m_state.position)) return GameOutcome{GameResult::draw, "adjudicated"};
    if (auto end = result(m_state.position)) return end;
    start_search(other(seat), engine(seat).state().clock.moved_at() + move_pause);
    return {};
}

/// The clock runs from our "go" to our reading of the move; what pipes and a busy machine add to that must
/// not cost the game.
bool MatchMode::oversteps(const GuiEngine& engine) const {
    return engine.state().clock.time_left() < -forgiven_overstep && !m_tournament.ignore_time_loss();
}

void MatchMode::play(Seat seat, Move move) {
    try {
        m_state.position.do_move(move);
    } catch (...) {
        std::cerr << "Manager:  ManagerMode::match   " << log_name(seat) << " to move" << std::endl;
        throw;
    }
}

/// The window is given its lines ahead of the pause, so that the board moves while the engines rest.
void MatchMode::start_search(Seat seat, std::chrono::steady_clock::time_point start) {
    auto& mover = engine(seat);
    prepare_to_move(mover, m_state.position);
    m_state.flush();
    std::this_thread::sleep_until(start);
    const bool logs = m_state.log.is_on();
    if (logs) m_state.log.write(" " + log_name(seat) + " <- position " + m_state.position.fen());
    mover.go();
    if (logs) m_state.log.write(" " + log_name(seat) + " <- go");
    m_state.turn = turn_of(seat);
}

/// No engine loses by a crash while its last line still waits, for that may be the move that mates.
GameEnd MatchMode::watch(Seat seat, const std::function<bool()>& has_waiting_lines) const {
    if (!is_game_running()) return {};
    const bool crashed = engine(seat).has_crashed();
    // A write that was given up because the program ends makes it look so, too.
    if (m_state.leaving.stop_requested()) return {};
    if (crashed && !has_waiting_lines()) return loss_of(side_of(engine(seat)), "engine failure");
    if (engine(seat).state().clock.time_left() >= -hopeless_overstep) return {};
    return loss_of(side_of(engine(seat)), crashed ? "engine failure" : "time");
}

void MatchMode::game_over(GameResult ended) {
    m_tournament.set_result(std::string(result_token(ended)));
    save_tournament();
    if (m_game_number < m_tournament.game_count()) {
        m_state.log.write(" manager -> newgame " + std::to_string(m_game_number));
        m_state.send(to_window::NewGame());
        start_game();
    } else {
        finish_run();
    }
}

void MatchMode::save_tournament() {
    m_state.flush();  // no result stands in the file that hasn't been told
    try {
        m_tournament.save();
    } catch (const std::exception& error) {
        // The games go on: their results are in memory, and the next save may succeed.
        std::cerr << error.what() << std::endl;
        m_state.send(to_window::TellUser{"Tournament_not_saved"});
    }
}

void MatchMode::finish_run() {
    m_state.send(to_window::TellUser{"tournament_finished"});
    m_state.send(to_window::TournamentFinished());
}

/// The game that is broken off leaves no result; the next start plays it from its beginning.
void MatchMode::leave() {
    if (!is_running()) return;
    m_state.enter(ManagerMode::human_human);
    m_state.turn = MoveTurn::none;
    m_seats.stop_all();
}

void MatchMode::cancel() {
    if (!is_running()) return;
    leave();
    m_state.send(to_window::TournamentFinished());
}

}  // namespace velmora
