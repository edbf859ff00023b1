#include "openings/polyglot_book.h"

#include <algorithm>
#include <stdexcept>

#include "openings/fen_key.h"

namespace velmora {

namespace {

// The layout of a record.
constexpr std::size_t key_offset = 0;
constexpr std::size_t move_offset = 8;
constexpr std::size_t weight_offset = 10;
constexpr std::size_t learn_offset = 12;

template <class T>
T big_endian(const unsigned char* bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) value = value << 8 | bytes[i];
    return static_cast<T>(value);
}

}  // namespace

PolyglotBook::PolyglotBook(std::string path) : m_path(std::move(path)) { open(); }

void PolyglotBook::open() {
    if (m_file.open(m_path)) return;
    const std::string reason = m_file.fault();
    throw std::logic_error("PolyglotBook::open() open " + m_path + " failed (1)" +
                           (reason.empty() ? "" : ": " + reason));
}

void PolyglotBook::close() { m_file.close(); }

std::uint64_t PolyglotBook::key_at(std::size_t record) const {
    return big_endian<std::uint64_t>(m_file.data() + record * record_size + key_offset);
}

BookMove PolyglotBook::move_at(std::size_t record) const {
    return BookMove(big_endian<std::uint16_t>(m_file.data() + record * record_size + move_offset));
}

BookEntry PolyglotBook::entry_at(std::size_t record) const {
    const auto* bytes = m_file.data() + record * record_size;
    return {big_endian<std::uint64_t>(bytes + key_offset), move_at(record),
            big_endian<std::uint16_t>(bytes + weight_offset),
            big_endian<std::uint32_t>(bytes + learn_offset)};
}

/// Any record of the key, or a neighbour of the place where it would stand. REQUIRES: count > 0.
///
/// It ends also in a file that isn't sorted: the interval shrinks with every step, whatever is found.
std::size_t PolyglotBook::probe_for(std::uint64_t key, std::size_t count) const {
    std::size_t lower = 0;
    std::size_t upper = count;
    std::size_t probe = count / 2;
    while (true) {
        const auto found = key_at(probe);
        if (found == key) return probe;
        (found < key ? lower : upper) = probe;
        const auto next = (lower + upper) / 2;
        if (next == probe) return probe;
        probe = next;
    }
}

/// The first of the neighbouring records with the key of `record`.
std::size_t PolyglotBook::first_of_run(std::uint64_t key, std::size_t record) const {
    const auto nearest = record - std::min(record, most_entries);
    auto first = record;
    while (first > nearest && key_at(first - 1) == key) --first;
    if (first > nearest || first == 0) return first;
    // No book has so many; a file made so would else be read as far back as it goes.
    std::size_t lower = 0;
    while (lower < first) {
        const auto middle = lower + (first - lower) / 2;
        if (key_at(middle) < key) {
            lower = middle + 1;
        } else {
            first = middle;
        }
    }
    return first;
}

PolyglotBook::Range PolyglotBook::find(std::uint64_t key) const {
    const auto count = m_file.readable_size() / record_size;
    if (count == 0) return {};
    const auto probe = probe_for(key, count);
    if (key_at(probe) != key) return {};
    const auto first = first_of_run(key, probe);
    const auto limit = std::min(count, first + most_entries);
    Range range{first, first};
    while (range.end < limit && key_at(range.end) == key) ++range.end;
    return range;
}

std::vector<BookEntry> PolyglotBook::entries(std::uint64_t key) const {
    const auto range = find(key);
    std::vector<BookEntry> found;
    found.reserve(range.end - range.begin);
    for (auto record = range.begin; record < range.end; ++record) found.push_back(entry_at(record));
    return found;
}

std::vector<BookMove> PolyglotBook::moves(std::uint64_t key) const {
    const auto range = find(key);
    std::vector<BookMove> found;
    found.reserve(range.end - range.begin);
    for (auto record = range.begin; record < range.end; ++record) found.push_back(move_at(record));
    return found;
}

std::vector<BookEntry> PolyglotBook::entries(std::string_view fen) const { return entries(fen_key(fen)); }

std::vector<BookMove> PolyglotBook::moves(std::string_view fen) const { return moves(fen_key(fen)); }

}  // namespace velmora
