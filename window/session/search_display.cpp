#include "window/session/search_display.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <variant>

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::int64_t most_lines = 5;

std::string in_thousands(std::int64_t number) {
    if (number < 10'000) return std::to_string(number);
    if (number < 10'000'000) return std::to_string(number / 1000) + " k";
    return std::to_string(number / 1'000'000) + " M";
}

/// "0:12", "1:02:03"
std::string in_minutes(std::int64_t milliseconds) {
    const std::int64_t seconds = milliseconds / 1000;
    const auto two_digits = [](std::int64_t number) {
        return (number < 10 ? ":0" : ":") + std::to_string(number);
    };
    const std::int64_t hours = seconds / 3600;
    const std::string minutes =
        hours > 0 ? std::to_string(hours) + two_digits(seconds / 60 % 60) : std::to_string(seconds / 60);
    return minutes + two_digits(seconds % 60);
}

std::string head_of(const SearchInfo& figures) {
    std::string head;
    const auto add = [&head](const std::string& text) { head += (head.empty() ? "" : ", ") + text; };
    if (figures.depth) add("depth " + std::to_string(*figures.depth));
    if (figures.nodes_per_second) add(in_thousands(*figures.nodes_per_second) + " nodes/s");
    if (figures.time) add(in_minutes(*figures.time));
    return head;
}

std::string number_of_move(const ChessPosition& start, std::size_t ply) {
    const std::size_t half_moves = ply + (start.side_to_move() == Side::white ? 0 : 1);
    return std::to_string(start.fullmove() + half_moves / 2);
}

}  // namespace

SearchDisplay::SearchDisplay(GameSession& session, const WindowFrame& frame, const SeatedEngine& engine,
                             MessageDispatcher& dispatcher, ManagerLink& manager,
                             std::function<EngineVariables()> engine_variables)
    : m_session(session),
      m_frame(frame),
      m_engine(engine),
      m_manager(manager),
      m_engine_variables(std::move(engine_variables)) {
    m_session.on_change([this](Changes changes) {
        if (changes.has(Change::game)) m_uncovered = false;
        if (changes.has({Change::position, Change::game})) {
            begin_anew(changes.has(Change::game) || m_frame.mode() == Mode::analyze_position);
        }
        if (changes.has(Change::seats)) m_news = true;
    });
    dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const output = std::get_if<to_window::SearchOutput>(&line)) take(*output);
        if (std::holds_alternative<to_window::EngineName>(line)) begin_anew(true);
    });
}

/// @param clear  the lines of before are of no use to anybody; else they stay to be read until others come
void SearchDisplay::begin_anew(bool clear) {
    for (Search& search : m_searches) {
        search.outdated = true;
        if (clear) search.lines.clear();
    }
    m_news = true;
}

void SearchDisplay::take(const to_window::SearchOutput& output) {
    SearchInfo info = read_search_info(output.text, output.side);
    Search& search = m_searches[search_of(output.side)];
    if (search.outdated) {
        // Only a line that fits begins a search: those of the search before may still be on their way.
        if (info.moves.empty() || read_line(m_session.position(), std::span(info.moves).first(1)).empty()) {
            return;
        }
        search.position = m_session.position();
        search.node = m_session.record().current();
        search.lines.clear();
        search.outdated = false;
    }
    search.lines.take(std::move(info));
    m_news = true;
}

std::vector<LineMove> SearchDisplay::read(const Search& search, std::size_t line) const {
    const auto& lines = search.lines.lines();
    if (line >= lines.size()) return {};
    return read_line(search.position, lines[line].moves);
}

std::vector<ShownSearch> SearchDisplay::shown() {
    m_news = false;
    std::vector<ShownSearch> shown;
    if (in_match()) {
        for (std::size_t i = 0; i < m_searches.size(); ++i) shown.push_back(show(i));
    } else if (m_engine.is_there()) {
        shown.push_back(show(0));
    }
    return shown;
}

ShownSearch SearchDisplay::show(std::size_t index) {
    const Search& search = m_searches[index];
    ShownSearch shown;
    shown.engine =
        in_match() ? m_session.players()[index == 0 ? Side::white : Side::black].name : m_engine.name();
    shown.covered = m_frame.mode() == Mode::human_computer && !m_uncovered;
    if (const auto option = in_match() ? std::nullopt : lines_option()) {
        const auto wanted = text::strict_integer<std::int64_t>(option->value).value_or(1);
        const auto most = text::strict_integer<std::int64_t>(option->max).value_or(1);
        shown.fewer = wanted > 1;
        shown.more = wanted < std::min(most, most_lines);
        shown.places = static_cast<std::size_t>(std::clamp<std::int64_t>(wanted, 1, most_lines));
    }
    if (shown.covered) return shown;
    shown.head = head_of(search.lines.figures());
    for (std::size_t i = 0; i < search.lines.lines().size(); ++i) {
        const SearchInfo& info = search.lines.lines()[i];
        ShownLine line;
        if (info.score) line.evaluation = info.score->text();
        if (info.depth) line.depth = std::to_string(*info.depth);
        const auto moves = read(search, i);
        if (moves.empty()) continue;
        if (search.position.side_to_move() == Side::black)
            line.start = number_of_move(search.position, 0) + "...";
        for (std::size_t ply = 0; ply < moves.size(); ++ply) {
            const bool white = (ply % 2 == 0) == (search.position.side_to_move() == Side::white);
            line.moves.push_back((white ? number_of_move(search.position, ply) + ". " : "") + moves[ply].san);
        }
        shown.lines.push_back(std::move(line));
    }
    return shown;
}

std::optional<Evaluation> SearchDisplay::evaluation() const {
    if (m_frame.mode() != Mode::analyze_position || m_searches[0].outdated) return std::nullopt;
    return m_searches[0].lines.evaluation();
}

std::vector<SearchDisplay::Hint> SearchDisplay::best_moves() const {
    std::vector<Hint> hints;
    if (m_frame.mode() != Mode::analyze_position || m_searches[0].outdated) return hints;
    for (const SearchInfo& info : m_searches[0].lines.lines()) {
        const auto first = read_line(m_searches[0].position, std::span(info.moves).first(1));
        if (!first.empty()) hints.push_back({first[0].move.from(), first[0].move.to()});
    }
    return hints;
}

std::vector<Move> SearchDisplay::moves_up_to(std::size_t search, std::size_t line, std::size_t move) const {
    std::vector<Move> moves;
    if (search >= m_searches.size()) return moves;
    const auto steps = read(m_searches[search], line);
    if (move >= steps.size()) return moves;
    for (std::size_t i = 0; i <= move; ++i) moves.push_back(steps[i].move);
    return moves;
}

std::int32_t SearchDisplay::node_of(std::size_t search) const { return m_searches.at(search).node; }

std::string SearchDisplay::position_behind_move(std::size_t search, std::size_t line,
                                                std::size_t move) const {
    if (search >= m_searches.size()) return {};
    const auto steps = read(m_searches[search], line);
    if (move >= steps.size()) return {};
    return position_behind(m_searches[search].position, steps, move + 1).fen();
}

/// An engine that has no such option has one line.
std::optional<Option> SearchDisplay::lines_option() const {
    try {
        const EngineVariables engine = m_engine_variables();
        const auto option = engine.options.find("MultiPV");
        if (option != engine.options.end()) return option->second;
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
    return std::nullopt;
}

/// The referee interrupts an analysis for the option and goes on with it.
void SearchDisplay::ask_for_lines(int change) {
    const auto option = lines_option();
    if (!option) return;
    const auto wanted = text::strict_integer<std::int64_t>(option->value).value_or(1) + change;
    const auto most = text::strict_integer<std::int64_t>(option->max).value_or(1);
    if (wanted < 1 || wanted > std::min(most, most_lines)) return;
    m_manager.send(to_referee::SetOption{option->name, std::to_string(wanted)});
    begin_anew(true);
}

void SearchDisplay::uncover() {
    m_uncovered = true;
    m_news = true;
}

}  // namespace velmora
