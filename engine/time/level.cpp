#include "engine/time/level.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::int64_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();

std::int32_t limited(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp(value, lowest, highest));
}

/// The number at the front of the next word; a word that is none is passed over, so that one bad field does
/// not shift the others.
std::int32_t read_integer(text::WordReader& reader) {
    return limited(text::WordReader(reader.word()).integer<std::int64_t>().value_or(0));
}

/// Milliseconds of "minutes" or "minutes:seconds"; every other sign than a digit separates numbers.
std::int32_t read_time(text::WordReader& reader) {
    std::string time(reader.word());
    const bool has_seconds = time.find(':') != std::string::npos;
    std::replace_if(
        time.begin(), time.end(), [](char c) { return c < '0' || c > '9'; }, ' ');
    text::WordReader numbers(time);
    const std::int64_t minutes = read_integer(numbers);
    const std::int64_t seconds = has_seconds ? read_integer(numbers) : 0;
    return limited((minutes * 60 + seconds) * 1000);
}

/// Milliseconds of a number of seconds, in the single precision that the text form has.
std::int32_t read_increment(text::WordReader& reader) {
    const double seconds = reader.real().value_or(0.0);
    if (!std::isfinite(seconds)) return 0;
    constexpr double most = static_cast<double>(highest) / 1000.0;
    const float milliseconds = static_cast<float>(std::clamp(seconds, -most, most)) * 1000.0F;
    return limited(static_cast<std::int64_t>(milliseconds));
}

struct Mode {
    std::string_view word;
    LevelType type;
};

constexpr auto modes = std::to_array<Mode>({
    {"fixed_depth", LevelType::fixed_depth},
    {"fixed_nodes", LevelType::fixed_nodes},
    {"fixed_movetime", LevelType::fixed_movetime},
    {"sudden_death", LevelType::sudden_death},
    {"sessions", LevelType::sessions},
});

}  // namespace

void Level::set(std::string_view text) {
    m_depth = m_nodes = m_movetime = m_moves = m_inc_ms = 0;
    text::WordReader reader(text);
    const auto word = reader.word();
    const auto mode =
        std::find_if(modes.begin(), modes.end(), [word](const Mode& m) { return m.word == word; });
    if (mode == modes.end()) {
        throw std::logic_error("Level::set(" + (word.empty() ? "level_t=???" : std::string(word)) + ")");
    }
    m_level_t = mode->type;
    if (m_level_t == LevelType::sudden_death || m_level_t == LevelType::sessions) {
        m_moves = read_integer(reader);
        m_base_ms = read_time(reader);
        m_inc_ms = read_increment(reader);
        return;
    }
    m_base_ms = endless_ms;
    std::int32_t& limit = m_level_t == LevelType::fixed_depth   ? m_depth
                          : m_level_t == LevelType::fixed_nodes ? m_nodes
                                                                : m_movetime;
    limit = read_integer(reader);
}

std::string Level::base_text() const {
    const std::int32_t seconds = m_base_ms / 1000;
    std::string result = std::to_string(seconds / 60);
    if (seconds % 60 != 0) result += ':' + std::to_string(seconds % 60);
    return result;
}

std::string Level::increment_text() const {
    return text::default_form(static_cast<float>(m_inc_ms / 1000.0));
}

std::string Level::text() const {
    const std::string word(modes[static_cast<std::size_t>(m_level_t)].word);
    switch (m_level_t) {
        case LevelType::fixed_depth:
            return word + ' ' + std::to_string(m_depth);
        case LevelType::fixed_nodes:
            return word + ' ' + std::to_string(m_nodes);
        case LevelType::fixed_movetime:
            return word + ' ' + std::to_string(m_movetime);
        case LevelType::sudden_death:
            return word + " 0 " + base_text() + ' ' + increment_text();
        case LevelType::sessions:
            break;
    }
    return word + ' ' + std::to_string(m_moves) + ' ' + base_text() + ' ' + increment_text();
}

void Level::set_depth(std::int32_t plies) {
    m_level_t = LevelType::fixed_depth;
    m_depth = plies;
}

void Level::set_nodes(std::int32_t nodes) {
    m_level_t = LevelType::fixed_nodes;
    m_nodes = nodes;
}

void Level::set_movetime(std::int32_t milliseconds) {
    m_level_t = LevelType::fixed_movetime;
    m_movetime = milliseconds;
}

}  // namespace velmora
