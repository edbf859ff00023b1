#include "manager/review_mode.h"

#include <algorithm>
#include <stdexcept>

#include "base/text.h"
#include "manager/game_line.h"

namespace velmora {

namespace {

/// An answer that takes so many times what the engine was given isn't waited for.
constexpr int patience = 10;
/// Where the engine was given a depth or nodes, no time is too long, but it has to say something.
constexpr std::chrono::minutes longest_silence{1};

bool is_effort(const Level& level) {
    return (level.level_t() == LevelType::fixed_depth && level.depth() > 0) ||
           (level.level_t() == LevelType::fixed_nodes && level.nodes() > 0) ||
           (level.level_t() == LevelType::fixed_movetime && level.movetime() > 0);
}

/// "80,79,3".
std::vector<std::size_t> read_plies(std::string_view text) {
    std::vector<std::size_t> plies;
    while (!text.empty()) {
        const auto comma = std::min(text.find(','), text.size());
        const auto ply = text::strict_integer<std::size_t>(text.substr(0, comma));
        if (!ply) throw std::logic_error("review: no ply: " + std::string(text.substr(0, comma)));
        plies.push_back(*ply);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return plies;
}

}  // namespace

void ReviewMode::start(const to_referee::Review& command) {
    m_run = command.run;
    auto* const engine = m_seats.engine(Seat::first);
    m_state.enter(ManagerMode::review);
    m_state.turn = MoveTurn::none;
    m_state.pending = Move();
    if (engine == nullptr || !read(command)) return finish(to_window::ReviewFinished::Reason::failed);
    engine->stop();
    // What it remembers of another game would change what it finds here: the same run gives the same words.
    engine->new_game();
    m_deaths = 0;
    search();
}

/// False for a command that is none.
bool ReviewMode::read(const to_referee::Review& command) {
    try {
        m_level = Level(command.mode + ' ' + command.amount);
        m_plies = read_plies(command.plies == "-" ? std::string() : command.plies);
        std::reverse(m_plies.begin(), m_plies.end());
        const ChessPosition end = read_game_line(command.position);
        m_start.set_fen(end.start_fen());
        m_moves = end.moves();
    } catch (const std::logic_error&) {
        return false;
    }
    return is_effort(m_level) &&
           std::ranges::all_of(m_plies, [this](std::size_t ply) { return ply <= m_moves.size(); });
}

void ReviewMode::stop() {
    if (!is_running()) return;
    finish(to_window::ReviewFinished::Reason::stopped);
}

/// Begins with the next position, or ends the run.
void ReviewMode::search() {
    auto* const engine = m_seats.engine(Seat::first);
    if (engine == nullptr) return finish(to_window::ReviewFinished::Reason::failed);
    if (m_plies.empty()) return finish(to_window::ReviewFinished::Reason::done);
    ChessPosition position = m_start;
    for (std::size_t ply = 0; ply < m_plies.back(); ++ply) position.do_move(m_moves[ply]);
    m_found.clear();
    engine->set_level(m_level);
    // It would think about the position that follows, and take the one before it for a hit.
    engine->set_ponder(false);
    engine->set_white(position.side_to_move() == Side::white);
    prepare_to_move(*engine, position);
    m_heard = Clock::now();
    engine->go();
}

void ReviewMode::note_search(std::string_view text) {
    if (m_level.level_t() != LevelType::fixed_movetime) m_heard = Clock::now();
    const SearchInfo info = read_search_info(text, side_of(*m_seats.engine(Seat::first)));
    if (info.line == 1 && info.score && info.score->bound == Bound::exact && !info.moves.empty()) {
        m_found = text;
    }
}

void ReviewMode::take_answer(const EngineLine& line) {
    if (line.stopped || m_plies.empty()) return;
    m_seats.note_move(Seat::first);
    const auto ply = static_cast<std::int32_t>(m_plies.back());
    const std::string choice(line.move());
    if (m_found.empty() || choice.empty()) {
        m_state.send(to_window::ReviewLeftOut{m_run, ply});
    } else {
        m_state.send(to_window::Reviewed{m_run, ply, choice, std::string(text::trim_blanks(m_found))});
    }
    go_on();
}

void ReviewMode::go_on() {
    m_plies.pop_back();
    m_deaths = 0;
    search();
}

void ReviewMode::watch(const std::function<bool()>& has_waiting_lines) {
    if (!is_running() || m_state.leaving.stop_requested()) return;
    if (!m_seats.is_alive(Seat::first)) {
        if (has_waiting_lines()) return;
        m_seats.replace_crashed(Seat::first);
        if (++m_deaths < 2) return search();
        m_state.send(to_window::ReviewLeftOut{m_run, static_cast<std::int32_t>(m_plies.back())});
        return go_on();
    }
    if (!is_overdue()) return;
    m_state.send(to_window::TellUser{"The_review_was_stopped", " the engine doesn't answer"});
    finish(to_window::ReviewFinished::Reason::failed);
}

bool ReviewMode::is_overdue() const {
    const auto waited = Clock::now() - m_heard;
    if (m_level.level_t() != LevelType::fixed_movetime) return waited > longest_silence;
    return waited > patience * std::chrono::milliseconds(m_level.movetime());
}

/// The engine gets back what the run has taken from it.
void ReviewMode::finish(to_window::ReviewFinished::Reason reason) {
    m_state.enter(ManagerMode::human_human);
    m_state.turn = MoveTurn::user;
    m_plies.clear();
    if (auto* const engine = m_seats.engine(Seat::first)) {
        engine->stop();
        engine->set_level(m_state.level);
        engine->set_ponder(m_seats.ponders());
    }
    m_state.send(to_window::ReviewFinished{m_run, reason});
}

}  // namespace velmora
