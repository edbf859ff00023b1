#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "chess/position.h"
#include "manager/game_result.h"
#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

std::string big_endian(std::uint64_t value, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text += static_cast<char>(value >> shift & 0xFF);
    return text;
}

/// A Polyglot book: after the moves of the first text, the moves of the second are in the book.
std::string book(const std::vector<std::pair<std::string, std::string>>& lines) {
    std::vector<std::pair<std::uint64_t, std::string>> records;
    for (const auto& [played, replies] : lines) {
        ChessPosition position;
        position.new_game();
        for (const auto move : text::words(played)) play_if_legal(position, parse_move(position, move));
        for (const auto reply : text::words(replies)) {
            const Move move = parse_move(position, reply);
            const auto squares = static_cast<std::uint64_t>(move.from().value() << 6 | move.to().value());
            records.emplace_back(position.key(), big_endian(position.key(), 8) + big_endian(squares, 2) +
                                                     std::string(6, '\0'));
        }
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::string file;
    for (const auto& [key, record] : records) file += record;
    return file;
}

/// 1.e4 (or d4) e5 2.Nf3 Nc6 3.Bc4 Bc5 4.0-0 are known.
const std::string italian_game = book({{"", "e2e4 d2d4"},
                                       {"e2e4", "e7e5"},
                                       {"e2e4 e7e5", "g1f3"},
                                       {"e2e4 e7e5 g1f3", "b8c6"},
                                       {"e2e4 e7e5 g1f3 b8c6", "f1c4"},
                                       {"e2e4 e7e5 g1f3 b8c6 f1c4", "f8c5"},
                                       {"e2e4 e7e5 g1f3 b8c6 f1c4 f8c5", "e1h1"}});

/// A referee that drills the Italian game with the given hints, from the start position.
struct Drill {
    explicit Drill(int mask) {
        referee.workplace.write("italian.bin", italian_game);
        referee.say("polyglotbook italian.bin");
        referee.say("learnopenings " + std::to_string(mask));
    }

    /// What a command brings about, read up to the answer to one that changes nothing.
    Lines answers_to(const std::string& command) {
        referee.say(command);
        referee.say("start_tournament");
        Lines lines = referee.take_until("telluser No_tournament_loaded");
        lines.pop_back();
        referee.take_until("tournament_finished");
        return lines;
    }

    Referee referee;
};

TEST(LearnMode, JudgesMovesByTheBook) {
    Drill drill(3);
    const struct {
        const char* command;
        Lines expected;
    } rows[] = {
        {"setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
         {"set_arrow 12 28 b", "set_arrow 11 27 b"}},
        {"usermove e2e4", {"clear_arrows", "set_arrow 12 28 g", "set_arrow 52 36 b"}},
        {"usermove d7d5", {"clear_arrows", "set_arrow 51 35 r", "takeback"}},
        {"usermove e7e5", {"clear_arrows", "set_arrow 52 36 g", "set_arrow 6 21 b"}},
        {"usermove g1f3", {"clear_arrows", "set_arrow 6 21 g", "set_arrow 57 42 b"}},
        {"usermove b8c6", {"clear_arrows", "set_arrow 57 42 g", "set_arrow 5 26 b"}},
        {"usermove f1c4", {"clear_arrows", "set_arrow 5 26 g", "set_arrow 61 34 b"}},
        {"usermove f8c5", {"clear_arrows", "set_arrow 61 34 g", "set_arrow 4 7 b"}},
        {"usermove e1g1", {"clear_arrows", "set_arrow 4 7 g"}},
        {"usermove g8f6",
         {"clear_arrows", "set_arrow 62 45 r", "clear_arrows", "telluser Polyglotbook: no more moves"}},
        // The referee's copy has not taken the move, so the next one is the same side's again.
        {"usermove d7d6",
         {"clear_arrows", "set_arrow 51 43 r", "clear_arrows", "telluser Polyglotbook: no more moves"}},
        {"usermove nonsense", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(drill.answers_to(row.command), row.expected) << row.command;
}

TEST(LearnMode, HintsFollowTheMask) {
    const std::string start = "setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
    const Lines white_hints = {"set_arrow 12 28 b", "set_arrow 11 27 b"};
    const struct {
        int mask;
        Lines after_setboard;
        Lines after_e2e4;
    } rows[] = {
        {1, white_hints, {"clear_arrows", "set_arrow 12 28 g"}},
        {2, {}, {"clear_arrows", "set_arrow 12 28 g", "set_arrow 52 36 b"}},
        {3, white_hints, {"clear_arrows", "set_arrow 12 28 g", "set_arrow 52 36 b"}},
    };
    for (const auto& row : rows) {
        Drill drill(row.mask);
        EXPECT_EQ(drill.answers_to(start), row.after_setboard) << row.mask;
        EXPECT_EQ(drill.answers_to("usermove e2e4"), row.after_e2e4) << row.mask;
        // The mode is left by another mode's command; the hints of an open book go on, as far as the mask
        // allows.
        EXPECT_EQ(drill.answers_to("human_human"), Lines());
        EXPECT_EQ(drill.answers_to(start), row.after_setboard) << row.mask;
        EXPECT_EQ(drill.answers_to("learnopenings 0"), Lines());
        EXPECT_EQ(drill.answers_to(start), Lines());
    }
}

TEST(LearnMode, WithoutABookTheWindowIsSentBack) {
    Referee referee;
    referee.say("learnopenings 3");
    EXPECT_EQ(referee.quit(),
              Lines({"reset mode", "telluser No_Polyglot_book_found use menu 'File' to load a Polyglot book",
                     "quit"}));
}

TEST(LearnMode, ABookThatCannotBeOpenedIsReported) {
    const std::string reason = "PolyglotBook::open() open gone.bin failed (1)";
    Drill drill(3);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(drill.answers_to("polyglotbook gone.bin"),
              Lines({"telluser No_Polyglot_book_found " + reason}));
    EXPECT_EQ(drill.answers_to("learnopenings 3"),
              Lines({"reset mode", "telluser No_Polyglot_book_found " + reason}));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), reason + "\n" + reason + "\n");
    // The mode didn't change, and a good book takes the drill up again.
    EXPECT_EQ(drill.answers_to("polyglotbook italian.bin"), Lines());
    EXPECT_EQ(drill.answers_to("learnopenings 1"), Lines());
    EXPECT_EQ(drill.answers_to("usermove e2e4"), Lines({"clear_arrows", "set_arrow 12 28 g"}));
}

}  // namespace
}  // namespace velmora
