#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "collection/game_database.h"

namespace velmora {

/// A text as it is compared: letters small, as far as ASCII and Latin-1 have large ones.
std::string folded(std::string_view text);

/// All texts of a collection in memory, folded, for filters and sorting: players, events, sites, openings. A
/// million games have some hundred thousand of them.
///
/// They lie one behind the other with a line end between, so that one search over the whole finds a word in
/// all of them: some milliseconds for ten megabytes, where a search a text would cost several times that.
class TextTable {
public:
    /// Reads the texts of numbers that it hasn't read yet, up to `count` in all. Throws std::runtime_error.
    void read(const GameDatabase& database, std::uint32_t count);

    std::uint32_t size() const { return static_cast<std::uint32_t>(m_begins.size()); }
    /// Folded.
    std::string_view text(std::uint32_t number) const;

    /// A bit for each text, whether `part`, folded, stands anywhere in it.
    std::vector<bool> containing(std::string_view part) const;

    /// For each text its place in the sorted order; equal ones share theirs. Numbers at the front compare as
    /// numbers, so that round 2 comes ahead of round 10. Made at the first call.
    const std::vector<std::uint32_t>& ranks() const;

private:
    std::string m_texts;
    std::vector<std::size_t> m_begins;  // by number
    mutable std::vector<std::uint32_t> m_ranks;
};

}  // namespace velmora
