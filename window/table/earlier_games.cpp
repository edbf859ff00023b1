#include "window/table/earlier_games.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

#include "base/regular_file.h"
#include "base/text.h"
#include "game/game_tags.h"

namespace velmora {

namespace {

constexpr std::string_view extension = ".pgn";
constexpr std::string_view tag_begin = "[VelmoraLeft \"";
constexpr std::string_view tag_end = "\"]\n";
constexpr std::size_t longest_way = 10'000;

std::string_view word_of(std::optional<Side> engine) {
    if (!engine) return "none";
    return *engine == Side::white ? "white" : "black";
}

std::optional<Side> engine_of(std::string_view word) {
    if (word == "white") return Side::white;
    return word == "black" ? std::optional(Side::black) : std::nullopt;
}

/// "black 2900 1 2751 1 40 12:1,30:2 sudden_death 0 5 0": the engine's side, the clocks and moves of White
/// and Black, the length of the way and where it isn't the first child
/// ("-" for nowhere), the level, and behind a bar the players.
std::string describe(const LeftGame& left) {
    std::ostringstream text;
    text << word_of(left.engine);
    for (const Side side : {Side::white, Side::black}) {
        text << ' ' << left.clocks[side].centiseconds << ' ' << left.clocks[side].moves;
    }
    text << ' ' << left.way.size() << ' ';
    std::string turns;
    for (std::size_t ply = 0; ply < left.way.size(); ++ply) {
        if (left.way[ply] == 0) continue;
        if (!turns.empty()) turns += ',';
        turns += std::to_string(ply) + ":" + std::to_string(left.way[ply]);
    }
    text << (turns.empty() ? "-" : turns) << ' ' << left.level << '|' << tag_safe(left.players);
    return text.str();
}

std::vector<std::uint32_t> read_way(std::size_t length, std::string_view turns) {
    std::vector<std::uint32_t> way(std::min(length, longest_way), 0);
    while (!turns.empty()) {
        const auto comma = std::min(turns.find(','), turns.size());
        const auto turn = turns.substr(0, comma);
        const auto colon = std::min(turn.find(':'), turn.size());
        const auto ply = text::strict_integer<std::size_t>(turn.substr(0, colon));
        const auto child = text::strict_integer<std::uint32_t>(turn.substr(std::min(colon + 1, turn.size())));
        if (ply && child && *ply < way.size()) way[*ply] = *child;
        turns.remove_prefix(std::min(comma + 1, turns.size()));
    }
    return way;
}

LeftGame read_left(std::string_view description) {
    text::WordReader reader(description);
    LeftGame left;
    left.engine = engine_of(reader.word());
    for (const Side side : {Side::white, Side::black}) {
        left.clocks[side].centiseconds = reader.integer<std::int32_t>().value_or(0);
        left.clocks[side].moves = reader.integer<std::int32_t>().value_or(0);
    }
    const auto length = reader.integer<std::size_t>().value_or(0);
    left.way = read_way(length, reader.word());
    const auto rest = reader.rest();
    const auto bar = std::min(rest.find('|'), rest.size());
    left.level = text::trim_blanks(rest.substr(0, bar));
    left.players = rest.substr(std::min(bar + 1, rest.size()));
    return left;
}

std::size_t plies_of_main_line(const Game& game) {
    std::size_t plies = 0;
    const auto& tree = game.tree();
    for (auto id = tree.node(0).child_at(0); id > 0; id = tree.node(id).child_at(0)) {
        if (tree.node(id).type == ElementType::move) ++plies;
    }
    return plies;
}

}  // namespace

/// By time, and where two fall into one second by the number behind it.
std::string EarlierGames::new_path() const {
    const auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    std::string path;
    for (auto ms = now.time_since_epoch().count(); path.empty() || std::filesystem::exists(path); ++ms) {
        path = m_directory + std::to_string(ms) + "-" + std::to_string(::getpid()) + std::string(extension);
    }
    return path;
}

std::vector<std::string> EarlierGames::paths() const {
    std::vector<std::string> found;
    std::error_code unreadable;
    for (const auto& entry : std::filesystem::directory_iterator(m_directory, unreadable)) {
        if (entry.path().extension() == extension) found.push_back(entry.path().string());
    }
    std::ranges::sort(found, std::greater());
    return found;
}

std::optional<std::string> EarlierGames::keep(const std::string& pgn, const LeftGame& left) {
    std::error_code fault;
    std::filesystem::create_directories(m_directory, fault);
    const bool is_new = m_current.empty();
    if (is_new) m_current = new_path();
    const std::string next = m_current + "~";
    std::ofstream file(next, std::ios::trunc);
    file << tag_begin << describe(left) << tag_end << pgn << std::flush;
    if (!file) fault = std::make_error_code(std::errc::io_error);
    file.close();
    if (!fault) std::filesystem::rename(next, m_current, fault);
    if (fault) {
        std::error_code gone;
        std::filesystem::remove(next, gone);
        return m_current + ": " + fault.message();
    }
    if (!is_new) return std::nullopt;
    const auto kept = paths();
    for (std::size_t place = most_kept; place < kept.size(); ++place) {
        std::filesystem::remove(kept[place], fault);
    }
    return std::nullopt;
}

void EarlierGames::drop() {
    if (m_current.empty()) return;
    std::error_code fault;
    std::filesystem::remove(m_current, fault);
    m_current.clear();
}

std::vector<EarlierGame> EarlierGames::list() const {
    std::vector<EarlierGame> games;
    for (const auto& path : paths()) {
        if (path == m_current) continue;
        const auto loaded = load(path);
        if (!loaded) continue;
        const auto& [game, left] = *loaded;
        games.push_back({path, game.tag("Date"), left.players, plies_of_main_line(game)});
    }
    return games;
}

std::optional<std::pair<Game, LeftGame>> EarlierGames::load(const std::string& path) {
    if (reading_fault(path)) return std::nullopt;
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string_view all(text);
    const auto end = all.find(tag_end);
    if (!all.starts_with(tag_begin) || end == std::string_view::npos) return std::nullopt;
    try {
        Game game;
        game.parse_pgn(all.substr(end + tag_end.size()));
        return std::pair(std::move(game), read_left(all.substr(tag_begin.size(), end - tag_begin.size())));
    } catch (const std::exception&) {
        return std::nullopt;  // nobody's game any more: a line of the list less
    }
}

}  // namespace velmora
