#include "openings/polyglot_book.h"

#include <filesystem>
#include <numeric>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

std::string bytes(std::uint64_t value, int count) {
    std::string text;
    for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
        text += static_cast<char>(value >> shift & 0xFF);
    return text;
}

/// A record whose move tells its index.
std::string record(std::uint64_t key, std::uint16_t move) {
    return bytes(key, 8) + bytes(move, 2) + bytes(move + 0x100U, 2) + bytes(move + 0x10000U, 4);
}

std::string book_of(std::initializer_list<std::uint64_t> keys) {
    std::string content;
    std::uint16_t index = 0;
    for (const auto key : keys) content += record(key, index++);
    return content;
}

std::vector<int> indexes(const PolyglotBook& book, std::uint64_t key) {
    std::vector<int> found;
    for (const auto move : book.moves(key)) found.push_back(move.value());
    return found;
}

class PolyglotBookTest : public testing::Test {
protected:
    ScratchDirectory m_files;
};

TEST_F(PolyglotBookTest, FindsAllRecordsOfAKey) {
    constexpr std::uint64_t high = 0xFFFFFFFFFFFFFFF0;
    const std::string ten = book_of({1, 2, 3, 5, 5, 5, 5, 5, 8, high});
    const struct {
        std::string content;
        std::uint64_t key;
        std::vector<int> found;
    } rows[] = {
        {book_of({7}), 7, {0}},
        {ten, 5, {3, 4, 5, 6, 7}},
        {ten, 1, {0}},
        {ten, high, {9}},
        {ten, 0, {}},
        {ten, ~std::uint64_t{0}, {}},
        {book_of({4, 4, 4}), 4, {0, 1, 2}},
        {book_of({9, 1, 5, 2}), 77, {}},  // not sorted: nothing is promised but an end
        {"", 0, {}},
        {book_of({7}) + "x", 7, {0}},
    };
    for (const auto& row : rows) {
        const PolyglotBook book(m_files.write("book.bin", row.content));
        EXPECT_EQ(book.record_count(), row.content.size() / 16);
        EXPECT_EQ(indexes(book, row.key), row.found) << row.content.size() << " bytes, key " << row.key;
    }
}

TEST_F(PolyglotBookTest, TakesTheFirstRecordsOfAKeyThatHasMoreThanAnyPosition) {
    std::string content = record(4, 0);
    for (std::uint16_t move = 0; move < 60'000; ++move) content += record(5, move);
    const PolyglotBook book(m_files.write("book.bin", content + record(6, 0)));
    std::vector<int> first(PolyglotBook::most_entries);
    std::iota(first.begin(), first.end(), 0);
    EXPECT_EQ(indexes(book, 5), first);
}

TEST_F(PolyglotBookTest, ReadsTheFields) {
    const std::string bytes_of_record("\x01\x23\x45\x67\x89\xAB\xCD\xEF\x03\x1C\x04\x1C\x00\x01\x03\x1C", 16);
    const PolyglotBook book(m_files.write("book.bin", bytes_of_record));
    const auto entries = book.entries(0x0123456789ABCDEF);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0], (BookEntry{0x0123456789ABCDEF, BookMove(0x31C), 0x41C, 0x1031C}));
}

TEST_F(PolyglotBookTest, OpensAndCloses) {
    PolyglotBook book;
    EXPECT_TRUE(book.entries(1).empty());
    for (const int count : {1, 2}) {
        book.set_path(m_files.write("book.bin", count == 1 ? book_of({1}) : book_of({1, 1})));
        book.open();
        EXPECT_EQ(indexes(book, 1).size(), count);
    }
    book.close();
    EXPECT_FALSE(book.is_open());
    EXPECT_EQ(book.record_count(), 0U);

    for (const auto& [path, reason] : {std::pair{m_files.path("absent.bin"), ""},
                                       {m_files.path(""), ": not a regular file"},
                                       {"/dev/zero", ": not a regular file"}}) {
        book.set_path(path);
        EXPECT_EQ(test::thrown_text([&] { book.open(); }),
                  "PolyglotBook::open() open " + path + " failed (1)" + reason);
        EXPECT_TRUE(book.entries(1).empty());
    }
}

TEST_F(PolyglotBookTest, LivesOnWhenTheFileIsCutShort) {
    std::string content;
    for (std::uint64_t key = 0; key < 20000; ++key) content += record(key, 1);
    const PolyglotBook book(m_files.write("book.bin", content));
    EXPECT_EQ(book.moves(19999).size(), 1U);
    std::filesystem::resize_file(m_files.path("book.bin"), 16 * 100 + 5);
    EXPECT_TRUE(book.moves(19999).empty());
    EXPECT_EQ(book.moves(99).size(), 1U);
    std::filesystem::resize_file(m_files.path("book.bin"), 0);
    EXPECT_TRUE(book.moves(99).empty());
}

TEST(BookMove, HoldsItsFields) {
    BookMove move(0x8000);
    move.set_from(Square("h7"));
    move.set_to(Square("g8"));
    move.set_promotion(3);
    EXPECT_EQ(move, BookMove(0x8000 | 3 << 12 | 55 << 6 | 62));
    EXPECT_EQ(move.to_string(), "h7g8r");
    for (const auto& [promotion, letter] : {std::pair{0, ""}, {1, "n"}, {2, "b"}, {4, "q"}, {7, ""}}) {
        move.set_promotion(promotion);
        EXPECT_EQ(move.to_string(), std::string("h7g8") + letter);
    }
}

TEST_F(PolyglotBookTest, FindsByFen) {
    const struct {
        const char* fen;
        std::uint64_t key;
    } rows[] = {
        // The examples that the format was published with.
        {"rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1", 0x823C9B50FD114196},
        {"rnbqkbnr/p1pppppp/8/8/PpP4P/8/1P1PPPP1/RNBQKBNR b KQkq c3 0 3", 0x3C8123EA7B067637},
        {"rnbqkbnr/p1pppppp/8/8/P6P/R1p5/1P1PPPP1/1NBQKBNR b Kkq - 1 4", 0x5C3F9B829B279560},
        // Odd texts: unknown letters, pieces off the board, and fields that aren't there count for nothing.
        {"", 0},
        {"/////PPPP x zz z9 what", 0},
        {"99999999K", 0},
    };
    for (const auto& row : rows) {
        const PolyglotBook book(m_files.write("book.bin", record(row.key, 5)));
        EXPECT_EQ(book.moves(row.fen), std::vector{BookMove(5)}) << row.fen;
    }
}

}  // namespace
}  // namespace velmora
