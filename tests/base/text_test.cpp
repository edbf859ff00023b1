#include "base/text.h"

#include <gtest/gtest.h>

namespace velmora::text {
namespace {

TEST(WordReader, AWordThatIsNoNumberStaysToBeRead) {
    WordReader reader("x 99999999999999999999 -5 +7 0.1");
    EXPECT_EQ(reader.integer<int>(), std::nullopt);
    EXPECT_EQ(reader.word(), "x");
    EXPECT_EQ(reader.integer<int>(), std::nullopt);
    EXPECT_EQ(reader.integer<int>(), -5);
    EXPECT_EQ(reader.integer<unsigned>(), 7U);
    EXPECT_EQ(reader.real(), 0.1);
    EXPECT_EQ(reader.word(), "");
    EXPECT_EQ(reader.real(), std::nullopt);
}

TEST(Text, StrictIntegersTakeTheWholeTextOrNothing) {
    EXPECT_EQ(strict_integer<int>("-12"), -12);
    EXPECT_EQ(strict_integer<int>("+12"), 12);
    for (const char* text : {"", "+", "+-1", "1 ", " 1", "1x", "99999999999"}) {
        EXPECT_EQ(strict_integer<int>(text), std::nullopt) << text;
    }
}

TEST(Text, LogStampsBeginAgain) {
    EXPECT_EQ(log_stamp(1234), "00001.234");
    EXPECT_EQ(log_stamp(65536ULL * 1000 + 7), "00000.007");
}

TEST(Text, BadBytesBecomeQuestionMarks) {
    EXPECT_EQ(valid_utf8("Gr\xC3\xBC\xC3\x9F"), "Gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(valid_utf8("caf\xE9 x"), "caf? x");
    EXPECT_EQ(valid_utf8("\xE2\x82"), "??");
    EXPECT_EQ(valid_utf8("\xED\xA0\x80"), "???");
    EXPECT_EQ(valid_utf8("\xF0\x9F\x99\x82"), "\xF0\x9F\x99\x82");
    EXPECT_EQ(displayable(std::string_view("a\0\xE9", 3)), "a??");
}

TEST(Text, PrefixesEndBetweenCharacters) {
    EXPECT_EQ(utf8_prefix("abc", 3), "abc");
    EXPECT_EQ(utf8_prefix("abc", 2), "ab");
    EXPECT_EQ(utf8_prefix("a\xF0\x9F\x99\x82", 4), "a");
    EXPECT_EQ(utf8_prefix("a\xC3\xA9z", 3), "a\xC3\xA9");
    EXPECT_EQ(utf8_prefix("\x80\x80\x80\x80\x80\x80", 5), "\x80\x80") << "no character is longer";
}

TEST(Text, WordsForTheRecordAreBoundedAndHarmless) {
    EXPECT_EQ(record_text("illegal move: a7a8=Q+", 30), "illegal move: a7a8=Q+");
    EXPECT_EQ(record_text(std::string_view("5}1-0{\n\0\x7f\xE9\xC3\xA9", 12), 99), "5)1-0(   ?\xC3\xA9");
    EXPECT_EQ(record_text("a\xC3\xA9z", 2), "a");
}

}  // namespace
}  // namespace velmora::text
