#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// Cuts a stream of bytes into lines.
///
/// Bytes that do not end in a line feed wait, with the whole lines ahead of them, until the rest has come.
/// Only beyond `limit` bytes the whole lines go out early, so that a flood whose pieces never end with a line
/// does not pile up. A line longer than `longest_line` is cut there, at a character. Zero bytes are dropped:
/// for whoever prints the line they would be its end.
///
/// Pure bytes in, lines out, so that every way in which a pipe may cut a line can be tried without a
/// process. Whole lines wait for the end of a burst so that a "bestmove" is handed over together with the
/// "info" lines that were written with it. Lines are taken by an offset, and the buffer is shortened once a
/// read: to erase each line off the front would cost a long burst the square of its length.
class LineSplitter {
public:
    /// Bytes that may wait for a line feed; who sends more without one does not speak in lines.
    static constexpr std::size_t limit = std::size_t{1} << 20;
    /// Bytes of a line that are handed out.
    static constexpr std::size_t longest_line = std::size_t{1} << 16;

    struct Line {
        std::string text;              ///< without line end
        bool carriage_return = false;  ///< whether one stood at the end
    };

    void append(std::string_view bytes);
    /// Makes all whole lines due: nothing more will come.
    void finish();

    /// The next line that is due.
    std::optional<Line> next();
    /// Drops all lines that are due.
    void drop_due() { m_taken = m_due; }

    /// Whether more than `limit` bytes wait without a line feed.
    bool overflown() const { return m_pending.size() - m_taken > limit; }

    void clear();

private:
    std::string m_pending;
    std::size_t m_taken = 0;  // bytes of m_pending that have been handed out
    std::size_t m_due = 0;    // end of the whole lines that may be handed out
};

}  // namespace velmora
