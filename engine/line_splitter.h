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
/// does not pile up.
class LineSplitter {
public:
    /// Bytes; a single line may not become longer.
    static constexpr std::size_t limit = std::size_t{1} << 20;

    struct Line {
        std::string_view text;         ///< without line end; valid until the next append()
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
