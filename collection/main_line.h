#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// The moves of a game's main line, one word after the other, read straight from its movetext.
///
/// Comments, variations, glyphs, numbers and marks are passed over. No tree and no list is built: a
/// collection wants the main line alone, of millions of games. What separates words and what ends a game is
/// what PgnTokenizer and GameCutter hold to, but a comment may be of any length, ";" begins one, and a word
/// that is nobody's move is handed out as it stands for the caller to name.
class MainLine {
public:
    /// REQUIRES: the text outlives the reader.
    explicit MainLine(std::string_view movetext) : m_text(movetext) {}

    /// The next word; empty at the end of the game.
    std::string_view next();

    /// Behind what was read: at the end of the game behind its result word, or the length of the text where
    /// it has none.
    std::size_t position() const { return m_at; }

    /// "1-0", "0-1", "1/2-1/2", "*"; empty until the end of the game, and for a game without one.
    std::string_view result() const { return m_result; }

    /// Goes to the end of the game, for a caller that can't follow its moves any more.
    void skip_to_end() {
        while (!next().empty()) {
        }
    }

private:
    bool take_result();
    void skip_line();
    void skip_behind(std::string_view closing);
    std::string_view take_word();

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_depth = 0;  // of variations
    std::string_view m_result;
};

}  // namespace velmora
