// The cutter against a plain state machine that takes one character at a time.

#include "game/game_cutter.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "game/pgn_error.h"
#include "tests/support/memory_file.h"

namespace velmora {
namespace {

/// The first game of a text, a fault with an "!" ahead.
class PlainCutter {
public:
    explicit PlainCutter(std::string_view content)
        : m_rest(content.substr(std::min(content.find('['), content.size()))) {}

    std::string cut() {
        for (int c = next(); c >= 0; c = next()) {
            const bool high = c >= 0x80;
            if (m_close != 0) {
                m_text += static_cast<char>(c);
                if (c == m_close) m_close = 0;
                if (m_close != 0 && ++m_count > m_limit) return "!" + m_text + m_marker;
            } else if (high && m_in_moves) {
                return "!" + m_text + "?????\n\n";
            } else if (high) {
                continue;
            } else if (c == '[' && !m_in_moves) {
                enclose(c, ']', 256, "ERROR] \n\n * \n\n");
            } else if (c == '{') {
                enclose(c, '}', 1024, "ERROR} *\n\n");
            } else if (m_in_moves || c == '*' || (c >= '0' && c <= '9')) {
                m_in_moves = true;
                if (result(c)) return m_text + "\n\n";
            } else {
                m_text += static_cast<char>(c);
            }
        }
        return m_text;
    }

private:
    void enclose(int open, int close, int limit, std::string marker) {
        m_text += static_cast<char>(open);
        m_close = close;
        m_limit = limit;
        m_count = 0;
        m_marker = std::move(marker);
    }

    int get() {
        if (m_rest.empty()) return -1;
        const int c = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        return c;
    }

    int next() {
        int c = get();
        if (c == '\r') c = get();
        while (c == '%' && (m_text.empty() || m_text.back() == '\n')) {
            while (c >= 0 && c != '\n') c = get();
            c = get();
            if (c == '\r') c = get();
        }
        return c;
    }

    bool result(int c) {
        m_text += static_cast<char>(c);
        if (c == '*') return true;
        if (c != '0' && c != '1') return false;
        const auto begin = m_text.size() - 1;
        for (const std::string_view wanted : {"-/", "012"}) {
            if (!take(wanted)) return false;
        }
        const auto read = m_text.substr(begin);
        return read == "1-0" || read == "0-1" ||
               (read == "1/2" && take("-") && take("1") && take("/") && take("2"));
    }

    bool take(std::string_view wanted) {
        if (m_rest.empty() || m_rest.front() == '{') return false;
        m_text += static_cast<char>(get());
        return wanted.find(m_text.back()) != std::string_view::npos;
    }

    std::string_view m_rest;
    std::string m_text;
    bool m_in_moves = false;
    int m_close = 0;
    int m_limit = 0;
    int m_count = 0;
    std::string m_marker;
};

std::string first_game(const std::string& path) {
    BlockReader reader;
    reader.open(path);
    GameCutter cutter(reader);
    std::string text;
    try {
        cutter.cut(text);
    } catch (const pgn_error& error) {
        return "!" + error.text();
    }
    return text;
}

TEST(GameCutter, AgreesWithAPlainMachine) {
    std::mt19937 random(7);
    const std::string common = "0011--//2 \n\r%a";
    const std::string rare = "*{}[]3\xE9";
    for (int round = 0; round < 5000; ++round) {
        std::string content = round % 2 == 0 ? "[" : "[]1";
        for (auto size = random() % 60; size > 0; --size) {
            const auto& alphabet = random() % 12 == 0 ? rare : common;
            content += alphabet[random() % alphabet.size()];
        }
        EXPECT_EQ(first_game(test::MemoryFile(content).path()), PlainCutter(content).cut()) << content;
    }
}

}  // namespace
}  // namespace velmora
