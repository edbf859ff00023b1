// Writes a PGN file for the measurements of game records: game_corpus <path> [<games> [<opening lines>]].
//
// Random legal games, the same in every run. Two thirds are bare, with the seven tags alone; the others have
// more tags, a comment at every move, glyphs and variations. 100,000 games make about 125 MB. With a file of
// opening lines (openings/eco_lines.txt) each game begins with one of them, so that games share positions as
// those of people do: for the measurements of collections, a million of them.

#include <cstdint>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"

namespace {

using namespace velmora;

constexpr std::size_t columns = 79;

class Dice {
public:
    /// 0 to bound - 1.
    std::size_t roll(std::size_t bound) { return m_engine() % bound; }
    bool one_in(std::size_t bound) { return roll(bound) == 0; }

private:
    std::mt19937 m_engine{1};  // the standard fixes its numbers
};

/// Collects words into lines.
class Lines {
public:
    void add(std::string_view word) {
        if (m_column + 1 + word.size() > columns) {
            m_text += '\n';
            m_column = 0;
        } else if (m_column > 0) {
            m_text += ' ';
            ++m_column;
        }
        m_text += word;
        m_column += word.size();
    }
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
    std::size_t m_column = 0;
};

class GameMaker {
public:
    /// `openings` are the moves of opening lines, without numbers; empty for none.
    GameMaker(std::ostream& out, std::vector<std::string> openings)
        : m_out(out), m_openings(std::move(openings)) {}

    void write_game(std::size_t number) {
        m_annotated = number % 3 == 2;
        m_lines = Lines();
        ChessPosition position;
        position.new_game();
        const auto plies = m_annotated ? 46 + m_dice.roll(64) : 40 + m_dice.roll(90);
        const auto opening = m_openings.empty() ? std::string() : m_openings[m_dice.roll(m_openings.size())];
        write_line(position, plies, true, text::words(opening));
        const auto* result = results[m_dice.roll(std::size(results))];
        m_lines.add(result);
        write_tags(number, result);
        m_out << m_lines.text() << "\n\n";
    }

private:
    static constexpr const char* results[] = {"1-0", "0-1", "1/2-1/2"};

    void write_tag(std::string_view name, std::string_view value) {
        m_out << '[' << name << " \"" << value << "\"]\n";
    }

    std::string player() {
        static constexpr const char* family[] = {"Aalbers",  "Brandt",  "Castellanos", "Dimitrov",
                                                 "Eriksson", "Ferrari", "Grigorian",   "Hoffmann"};
        static constexpr const char* given[] = {"Anna", "Boris", "Chiara", "David", "Elena", "Farid"};
        return std::string(family[m_dice.roll(std::size(family))]) + ", " +
               given[m_dice.roll(std::size(given))];
    }

    void write_tags(std::size_t number, std::string_view result) {
        static constexpr const char* sites[] = {"London", "Wijk aan Zee", "Buenos Aires", "Reykjavik"};
        const auto year = std::to_string(1970 + m_dice.roll(50));
        write_tag("Event", "Open championship " + year);
        write_tag("Site", sites[m_dice.roll(std::size(sites))]);
        write_tag("Date",
                  year + ".0" + std::to_string(1 + m_dice.roll(9)) + ".1" + std::to_string(m_dice.roll(10)));
        write_tag("Round", std::to_string(number % 11 + 1));
        write_tag("White", player());
        write_tag("Black", player());
        write_tag("Result", result);
        if (m_annotated) {
            write_tag("WhiteElo", std::to_string(1800 + m_dice.roll(1000)));
            write_tag("BlackElo", std::to_string(1800 + m_dice.roll(1000)));
            write_tag("ECO", "C" + std::to_string(10 + m_dice.roll(90)));
            write_tag("Annotator", player());
            write_tag("TimeControl", "40/7200:3600");
            write_tag("Source", "Games of a measurement, " + year);
        }
        m_out << '\n';
    }

    /// Moves from a position, with their numbers: those of the opening first.
    void write_line(ChessPosition& position, std::size_t plies, bool is_main,
                    const std::vector<std::string_view>& opening = {}) {
        bool needs_number = true;
        for (std::size_t ply = 0; ply < plies; ++ply) {
            const auto moves = legal_moves(position);
            if (moves.size() == 0 || position.is_fifty()) return;
            const auto move = ply < opening.size() ? *find_legal(position, SanMove(position, opening[ply]))
                                                   : moves[m_dice.roll(moves.size())];
            if (position.side() == 1) {
                m_lines.add(std::to_string(position.fullmove()) + ".");
            } else if (needs_number) {
                m_lines.add(std::to_string(position.fullmove()) + "...");
            }
            m_lines.add(SanMove(position, move).san());
            needs_number = m_annotated && is_main && annotate(position);
            position.do_move(move);
        }
    }

    /// A comment, and now and then a glyph and a variation. True when the next move needs its number.
    bool annotate(const ChessPosition& position) {
        if (m_dice.one_in(8)) m_lines.add("$" + std::to_string(1 + m_dice.roll(6)));
        write_comment();
        if (!m_dice.one_in(12)) return true;
        ChessPosition other = position;
        m_lines.add("(");
        write_line(other, 1 + m_dice.roll(6), false);
        m_lines.add(")");
        return true;
    }

    void write_comment() {
        static constexpr const char* words[] = {"better", "was",   "the",    "plan",     "Knight",
                                                "on",     "d5",    "strong", "Exchange", "with",
                                                "a",      "small", "edge",   "for",      "White"};
        if (m_dice.one_in(3)) {
            m_lines.add("{[%eval " + std::to_string(m_dice.roll(3)) + "." +
                        std::to_string(10 + m_dice.roll(90)) + "]}");
            return;
        }
        std::string word = "{";
        for (auto count = 1 + m_dice.roll(5); count > 0; --count) {
            word += words[m_dice.roll(std::size(words))];
            m_lines.add(count == 1 ? word + "}" : word);
            word.clear();
        }
    }

    std::ostream& m_out;
    const std::vector<std::string> m_openings;
    Dice m_dice;
    Lines m_lines;
    bool m_annotated = false;
};

/// The moves of lines "code | opening | variation | 1.e4 e5", without their numbers.
std::vector<std::string> read_openings(const char* path) {
    std::vector<std::string> openings;
    std::ifstream lines(path);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::string moves;
        for (auto word : text::words(std::string_view(line).substr(line.rfind('|') + 1))) {
            word.remove_prefix(word.rfind('.') + 1);
            moves.append(word).append(" ");
        }
        openings.push_back(moves);
    }
    return openings;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: game_corpus <path> [<games> [<opening lines>]]\n";
        return 2;
    }
    const auto games = argc > 2 ? text::strict_integer<std::size_t>(argv[2]).value_or(0) : 100000;
    std::ofstream out(argv[1], std::ios::binary);
    const auto openings = argc > 3 ? read_openings(argv[3]) : std::vector<std::string>();
    if (argc > 3 && openings.empty()) {
        std::cerr << argv[3] << ": no openings\n";
        return 1;
    }
    GameMaker maker(out, openings);
    for (std::size_t number = 0; number < games; ++number) maker.write_game(number);
    out.close();
    if (!out) std::cerr << argv[1] << ": can't be written\n";
    return out ? 0 : 1;
}
