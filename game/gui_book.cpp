#include "game/gui_book.h"

#include <algorithm>
#include <iostream>
#include <random>
#include <string_view>

#include "base/regular_file.h"
#include "base/text.h"
#include "game/block_reader.h"
#include "game/game.h"
#include "game/pgn_error.h"
#include "game/pgn_file.h"

namespace velmora {

namespace {

// The minimal standard generator.
constexpr std::uint64_t multiplier = 48271;
constexpr std::uint64_t modulus = 2147483647;

constexpr std::size_t ending_size = 4;

void report_faulty_game() { std::cerr << "GuiBook::setup()   error" << std::endl; }

/// The FEN of an EPD line: its operations go, clock and move number are 0 and 1.
std::string fen_of_line(std::string_view line) {
    text::WordReader words(line);
    std::string fen;
    for (int field = 0; field < 4; ++field) fen.append(words.word()).append(" ");
    return fen + "0 1";
}

}  // namespace

void GuiBook::set_path(const std::string& path) {
    if (path.size() <= ending_size) return;
    seed();
    m_path = path;
    count_entries();
}

void GuiBook::seed() {
    std::random_device device("default");
    m_seed = device() % modulus;
    if (m_seed == 0) m_seed = 1;
}

bool GuiBook::is_pgn() const { return m_path.ends_with(".pgn"); }
bool GuiBook::is_epd() const { return m_path.ends_with(".epd"); }

void GuiBook::count_entries() {
    m_offsets.clear();
    if (is_pgn()) {
        count_games();
    } else if (is_epd()) {
        count_lines();
    } else {
        m_path.clear();
    }
}

void GuiBook::count_games() {
    PgnFile file(m_leaving);
    if (file.open(m_path)) {
        while (!file.next_game().empty()) m_offsets.push_back(file.game_offset());
    }
    if (m_offsets.empty()) m_path.clear();
}

void GuiBook::count_lines() {
    BlockReader reader(m_leaving);
    if (!reader.open(m_path)) {
        std::cerr << "\nbook " << m_path << " error" << std::endl;
        m_path.clear();
        return;
    }
    while (!reader.window().empty()) {
        m_offsets.push_back(reader.offset());
        reader.skip_line();
    }
}

void GuiBook::play_entry(ChessPosition& position, std::int32_t n) {
    m_index = n;
    position.new_game();
    if (n < 1 || m_offsets.empty()) return;
    const auto entry = static_cast<std::size_t>(n - 1);
    if (is_epd()) {
        play_line(position, std::min(entry, m_offsets.size() - 1));
    } else if (entry < m_offsets.size()) {
        play_game(position, entry);
    }
}

void GuiBook::play_game(ChessPosition& position, std::size_t entry) const {
    PgnFile file(m_leaving);
    if (!file.open(m_path)) return;
    Game game;
    try {
        game.parse_pgn(file.read_game_at(m_offsets[entry]));
        // A game of its own start needs it ahead of its moves.
        if (game.tags().contains("FEN")) position.set_fen(game.to_start());
        game.to_end();
    } catch (const std::exception&) {
        report_faulty_game();
    } catch (const pgn_error&) {
        report_faulty_game();
    }
    for (const auto& move : game.moves()) position.do_move(move);
}

void GuiBook::play_line(ChessPosition& position, std::size_t entry) const {
    RegularFileStream file(m_path);
    file.seekg(static_cast<std::streamoff>(m_offsets[entry]));
    std::string line;
    std::getline(file, line);
    // A line without a readable position leaves the start.
    position.set_fen(fen_of_line(line));
}

void GuiBook::play_random(ChessPosition& position) { play_entry(position, random_entry()); }

void GuiBook::play_again(ChessPosition& position) {
    if (m_index < 1) {
        play_random(position);
    } else {
        play_entry(position, m_index);
    }
}

/// A number from 1 to count(), all equally likely; 0 without entries. Draws beyond the last whole share
/// are thrown away: a remainder by division would favour the entries at the front.
std::int32_t GuiBook::random_entry() {
    if (m_offsets.empty()) return 0;
    constexpr std::uint64_t draws = modulus - 2;
    const auto entries = static_cast<std::uint64_t>(count());
    const auto share = draws / entries;
    do {
        m_seed = m_seed * multiplier % modulus;
    } while (m_seed - 1 >= entries * share);
    return static_cast<std::int32_t>((m_seed - 1) / share + 1);
}

}  // namespace velmora
