#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// What bounds a search or a game; the numbers are part of a level's identity.
enum class LevelType : std::int32_t {
    fixed_depth = 0,
    fixed_nodes = 1,
    fixed_movetime = 2,
    sudden_death = 3,
    sessions = 4,
};

/// A time control as a value with a text form, as it travels in the "level" command and stands in files:
/// "sessions 40 0:10 0.1", "sudden_death 0 5 0", "fixed_depth 12", "fixed_nodes 1000", "fixed_movetime 500".
///
/// The words ahead are the program's own. The numbers behind them are those of xboard's "level" command,
/// moves, minutes or minutes:seconds, and seconds, so that who knows the one can write the other.
class Level {
public:
    /// The base time of the fixed modes, milliseconds: a clock that follows such a level never runs out.
    static constexpr std::int32_t endless_ms = 1 << 30;

    /// "sessions 40 0:10 0.1": 40 moves in 10 seconds, 0.1 seconds added with each move.
    Level() = default;
    /// As set().
    explicit Level(std::string_view text) { set(text); }

    /// Reads the text form. A number that cannot be read is 0, a time is "minutes" or "minutes:seconds".
    /// Throws std::logic_error when the first word names no mode.
    void set(std::string_view text);

    /// The text form.
    std::string text() const;
    /// The time word of the text form, "5" or "0:10".
    std::string base_text() const;
    /// The increment in seconds as in the text form, "0.1".
    std::string increment_text() const;

    LevelType level_t() const { return m_level_t; }
    std::int32_t depth() const { return m_depth; }        ///< plies
    std::int32_t nodes() const { return m_nodes; }        ///< nodes
    std::int32_t movetime() const { return m_movetime; }  ///< milliseconds
    std::int32_t moves() const { return m_moves; }        ///< moves a session, 0 without sessions
    std::int32_t base_ms() const { return m_base_ms; }    ///< milliseconds a session, or a game
    std::int32_t inc_ms() const { return m_inc_ms; }      ///< milliseconds added with each move

    void set_moves(std::int32_t moves) { m_moves = moves; }
    void set_base(std::int32_t milliseconds) { m_base_ms = milliseconds; }
    void set_inc(std::int32_t milliseconds) { m_inc_ms = milliseconds; }

    /// These three also set the mode, and leave the base time as it is.
    void set_depth(std::int32_t plies);
    void set_nodes(std::int32_t nodes);
    void set_movetime(std::int32_t milliseconds);

    /// Compares moves, base and increment only: what an engine's clock is made from. Two levels that differ
    /// in the mode or in the fixed values alone count as equal.
    friend bool operator==(const Level& a, const Level& b) {
        return a.m_moves == b.m_moves && a.m_base_ms == b.m_base_ms && a.m_inc_ms == b.m_inc_ms;
    }

private:
    LevelType m_level_t = LevelType::sessions;
    std::int32_t m_depth = 0;
    std::int32_t m_nodes = 0;
    std::int32_t m_movetime = 0;
    std::int32_t m_moves = 40;
    std::int32_t m_base_ms = 10000;
    std::int32_t m_inc_ms = 100;
};

}  // namespace velmora
