#include "manager/manager.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <sys/prctl.h>
#include <utility>

#include "base/text.h"
#include "channel/engine_line.h"
#include "channel/to_referee.h"
#include "engine/process/shared_core.h"
#include "game/pgn_error.h"

namespace velmora {

namespace {

/// The window's lines are all kept. Of an engine's, its moves and its resignation are: it never owes more
/// than a few of them, and more aren't waited for.
LineQueue::Class classify(const std::string& line) {
    if (sender_of(line) == window_sender) return {};
    const auto said = decode_engine_line(line);
    if (!said || !is_decisive(said->word())) return {.expendable = true};
    return {.account = std::max<std::uint64_t>(said->instance_id, 1)};
}

bool is_quit(std::string_view line) {
    text::WordReader reader(line);
    return reader.integer<int>() == window_sender && to_referee::effects_of(reader.rest()).quits;
}

}  // namespace

Manager::Manager(CommandSink& window, std::string program_path, std::chrono::milliseconds probe_interval)
    : m_program_path(std::move(program_path)),
      m_queue(classify),
      m_state(window, m_leaving.get_token()),
      m_seats(m_state, *this, probe_interval),
      m_analyze(m_state, m_seats),
      m_offers(m_state, m_seats),
      m_play(m_state, m_seats, m_offers),
      m_learn(m_state, m_seats),
      m_match(m_state, m_seats),
      m_review(m_state, m_seats),
      m_talk(m_state, m_seats, m_offers),
      m_commands(m_state, m_seats, m_analyze, m_play, m_learn, m_match, m_review, m_talk),
      m_engine_lines(m_state, m_seats, m_offers, m_review) {}

Manager::~Manager() = default;

void Manager::put_command(const std::string& line) {
    const int from = sender_of(line);
    if (is_seat(from)) {
        m_queue.put_quietly(line);
    } else if (is_quit(line)) {
        m_leaving.request_stop();
        m_queue.put_urgently(line);
    } else {
        m_queue.put(line);
    }
}

void Manager::operator()() {
    // The pauses of a match end when they should: by default the kernel may stretch a sleep by 50 us.
    prctl(PR_SET_TIMERSLACK, 1);
    while (!m_state.quit) take_turn(next_line());
    m_state.flush();
}

/// The window is given what was written for it when there is nothing left to do, and not line by line: one
/// turn often says five things, and each waking costs more than the lines do.
std::string Manager::next_line() {
    if (auto line = m_queue.try_pop()) return *std::move(line);
    m_state.flush();
    const auto answering = m_match.answering_thread();
    if (!answering) return m_queue.wait_and_pop();
    const SharedCore core(*answering);
    return m_queue.wait_and_pop();
}

void Manager::take_turn(const std::string& line) {
    // The boundary of the thread: whatever leaves a handler is told to the user, and the next line is taken.
    try {
        settle(dispatch(line));
        // Ahead of the step: a move that came behind the fall of the flag isn't played.
        settle(m_talk.watch_clock());
        settle(step());
        // One after the other: the end of a game seats new engines.
        for (const auto seat : both_seats)
            settle(m_match.watch(seat, [&] { return has_waiting_lines(seat); }));
        m_review.watch([&] { return has_waiting_lines(Seat::first); });
        // Games that begin at their end are ended one a line, so that none has to wait for all of them.
        if (m_match.is_over_at_start()) m_queue.put("");
    } catch (const pgn_error& error) {
        contain(error.text());
    } catch (const std::exception& error) {
        contain(error.what());
    } catch (...) {
        contain("unknown failure");
    }
}

void Manager::process_command_from_interface(const std::string& line) {
    const GameEnd end = m_commands.process(line);
    if (!end) return;
    end_game(*end);
    // Two people are told of the result that they have noted, and of no other.
    if (m_state.mode == ManagerMode::human_human) announce(*end);
}

GameEnd Manager::dispatch(const std::string& line) {
    switch (sender_of(line)) {
        case window_sender:
            m_state.window.acknowledge(++m_taken);
            process_command_from_interface(line);
            return {};
        case 1:
            return process_engine1_line(line);
        case 2:
            return process_engine2_line(line);
        default:
            return {};
    }
}

GameEnd Manager::step() {
    if (m_state.quit) return {};
    switch (m_state.mode) {
        case ManagerMode::analyze:
            m_analyze.step();
            return {};
        case ManagerMode::play:
            return m_play.step();
        case ManagerMode::human_human:
            return {};  // the window keeps the game alone; a pending move is left standing
        case ManagerMode::match:
            return m_match.step();
        case ManagerMode::learn:
            m_learn.step();
            return {};
        case ManagerMode::review:
            return {};  // goes on with the engine's answers
    }
    return {};
}

bool Manager::has_waiting_lines(Seat seat) const {
    const int number = static_cast<int>(seat);
    return m_queue.contains([number](const std::string& line) { return sender_of(line) == number; });
}

void Manager::settle(const GameEnd& end) {
    if (end) end_game(*end);
}

void Manager::end_game(const GameOutcome& outcome) {
    m_state.turn = MoveTurn::none;
    m_state.game_over = true;
    // What still waits belongs to the game that is over.
    forget_waiting_lines();
    m_state.send(to_window::GameOver{outcome});
    if (m_state.mode == ManagerMode::play) {
        announce(outcome);
    } else if (m_state.mode == ManagerMode::match) {
        m_match.game_over(outcome.result);
    }
}

void Manager::announce(const GameOutcome& outcome) {
    m_state.send(to_window::SetRound{"?"});
    m_state.send(to_window::TellUser{"result:", " " + std::string(result_token(outcome.result))});
}

/// The window's lines are counted as taken although nobody looked at them: the window waits for that number
/// before it believes the referee again.
void Manager::forget_waiting_lines() {
    m_queue.clear([this](const std::string& line) {
        if (sender_of(line) == window_sender) ++m_taken;
    });
    m_state.window.acknowledge(m_taken);
}

/// A match isn't continued behind a failure: whose fault it was can't be told, and its games would be
/// counted.
void Manager::contain(const std::string& failure) {
    std::cerr << failure << std::endl;
    m_state.send(to_window::TellUser{"Error:", " " + text::one_line(failure)});
    try {
        m_match.cancel();
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
    }
}

}  // namespace velmora
