#include <filesystem>
#include <fstream>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "base/text.h"
#include "channel/to_window.h"
#include "game/game_result.h"
#include "tests/referee_matches/archiving_window.h"
#include "tests/support/console_process.h"
#include "tests/support/workplace.h"
#include "tournament/tournament.h"

namespace velmora {
namespace {

using test::ConsoleProcess;
using Lines = std::vector<std::string>;

struct Peer {
    const char* name;
    const char* program;
    const char* protocol;
};
constexpr Peer stockfish{"Stockfish", "/usr/games/stockfish", "uci"};
constexpr Peer toga{"Toga", "/usr/games/toga2", "autodetect"};
constexpr Peer fairymax{"Fairy-Max", "/usr/games/fairymax", "xboard_v2"};
constexpr Peer phalanx{"Phalanx", "/usr/games/phalanx", "xboard_v2"};
constexpr Peer gnuchess{"GNU Chess", "/usr/games/gnuchess", "autodetect"};

struct Format {
    const char* name;
    TournamentType type;
    std::vector<Peer> peers;
    const char* book;
};

const std::string pgn_book =
    "[Event \"Spanish\"]\n\n1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 *\n\n[Event \"Queen's\"]\n\n1. d4 d5 2. c4 *\n";
const std::string epd_book =
    "rnbqkb1r/ppp1pppp/5n2/3p4/3P1B2/5N2/PPP1PPPP/RN1QKB1R b KQkq - id \"London\";\n"
    "r1bqkbnr/pp1ppppp/2n5/2p5/4P3/5N2/PPPP1PPP/RNBQKB1R w KQkq - id \"Sicilian\";\n";

/// The games in the lines of a console, each move of which must be legal, as "1-0 0-1 ". The window archives
/// them.
std::string replayed(const Lines& lines) {
    std::string results;
    ChessPosition position;
    test::ArchivingWindow window;
    for (const auto& line : lines) {
        window.process(line);
        const auto said = to_window::decode(line);
        if (!said) continue;
        if (std::holds_alternative<to_window::NewGame>(*said)) position.new_game();
        if (const auto* const start = std::get_if<to_window::SetBoard>(&*said)) position.fen(start->fen);
        if (const auto* const played = std::get_if<to_window::PlayMove>(&*said)) {
            EXPECT_TRUE(play_if_legal(position, parse_move(position, played->move))) << line;
        }
        if (const auto* const over = std::get_if<to_window::GameOver>(&*said)) {
            if (over->reason.find("mate") != std::string::npos) {
                EXPECT_EQ(result(position), *over);
            }
            results.append(result_token(over->result)) += ' ';
        }
    }
    return results;
}

class RealMatches : public ::testing::TestWithParam<Format> {};

TEST_P(RealMatches, AreTakenUpAgainAndPlayedToTheirEnd) {
    const Format& format = GetParam();
    const test::Workplace place;
    Tournament tournament("tournaments/");
    std::ofstream installed("engines.cfg");
    for (const auto& peer : format.peers) {
        if (!std::filesystem::exists(peer.program)) GTEST_SKIP() << peer.program << " isn't installed";
        installed << "name " << peer.name << "\nfilename " << peer.program << "\nprotocol " << peer.protocol
                  << '\n';
        tournament.add_participant({.name = peer.name});
    }
    installed.close();
    place.write("book.pgn", pgn_book);
    place.write("book.epd", epd_book);
    tournament.set_event("real");
    tournament.set_level(Level("sudden_death 0 0:1 0.01"));
    tournament.set_opening_book(format.book);
    tournament.set_type(format.type);
    tournament.set_rounds(format.type == TournamentType::match ? 2 : 1);
    tournament.make_schedule();
    tournament.save();

    const std::string play = "load_tournament real\nstart_tournament\n";
    std::string results;
    {
        ConsoleProcess killed(play);
        Lines lines;
        int games = 0;
        for (int moves = 0; games < 1 || moves < 10;) {  // into the middle of the second game
            lines.push_back(killed.next_line().value());
            if (result_of_token(text::first_word(lines.back()))) ++games;
            if (games == 1 && lines.back().starts_with("move ")) ++moves;
        }
        results = replayed(lines);
    }
    ConsoleProcess console(play);
    results += replayed(console.remaining_lines());
    EXPECT_EQ(console.finish(), 0);

    tournament.load("real");
    std::string stored;
    std::string whites;
    for (const auto& game : tournament.games()) {
        stored += game.result + ' ';
        whites += game.white.name + ' ';
    }
    EXPECT_EQ(stored, results);
    EXPECT_EQ(test::ArchivingWindow::archived("Result"), stored);
    EXPECT_EQ(test::ArchivingWindow::archived("White"), whites);
    EXPECT_EQ(test::ArchivingWindow::complaints(), "");
    EXPECT_EQ(stored.find('*'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, RealMatches,
    ::testing::Values(
        Format{"match", TournamentType::match, {stockfish, toga}, "book.pgn"},
        Format{"xboard", TournamentType::match, {fairymax, gnuchess}, "book.epd"},
        Format{"gauntlet", TournamentType::gauntlet, {toga, stockfish, phalanx}, "book.pgn"},
        Format{"roundrobin", TournamentType::round_robin, {stockfish, gnuchess, toga}, "book.epd"}),
    [](const auto& of) { return of.param.name; });

}  // namespace
}  // namespace velmora
