#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "openings/book_entry.h"
#include "openings/mapped_file.h"

namespace velmora {

/// A Polyglot .bin opening book, read-only: 16-byte records, big-endian, sorted by the key of the position.
///
/// Closed, or open with a record count. The book is mapped, not read: it may be larger than memory, and a
/// lookup touches some twenty pages. Used by one thread.
class PolyglotBook {
public:
    /// Closed, without a path.
    PolyglotBook() = default;

    /// Throws like open().
    explicit PolyglotBook(std::string path);

    /// Opens the file at path(), closing an open one first. Throws std::logic_error
    /// "PolyglotBook::open() open <path> failed (1)", with the reason behind it for a file that is there. A
    /// partial record at the end is ignored.
    ///
    /// A size that is no multiple of 16 comes of a download that broke off; all whole records can still be
    /// used.
    void open();
    void close();
    bool is_open() const { return m_file.is_open(); }

    const std::string& path() const { return m_path; }
    /// For the next open().
    void set_path(std::string path) { m_path = std::move(path); }

    /// Whole records in the file when it was opened; 0 when closed.
    std::size_t record_count() const { return m_file.size() / record_size; }

    /// The most records that a key is taken to have, more than any position has moves (218).
    static constexpr std::size_t most_entries = 256;

    /// All records of a position's key in the order of the file, the first `most_entries` of them; none when
    /// the key isn't there or the book is closed.
    ///
    /// Whether these moves are legal in the position is for the caller to find out.
    std::vector<BookEntry> entries(std::uint64_t key) const;
    std::vector<BookMove> moves(std::uint64_t key) const;

    /// The same by FEN, of which the first four fields count.
    std::vector<BookEntry> entries(std::string_view fen) const;
    std::vector<BookMove> moves(std::string_view fen) const;

private:
    static constexpr std::size_t record_size = 16;

    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    Range find(std::uint64_t key) const;
    std::size_t first_of_run(std::uint64_t key, std::size_t record) const;
    std::size_t probe_for(std::uint64_t key, std::size_t count) const;
    std::uint64_t key_at(std::size_t record) const;
    BookMove move_at(std::size_t record) const;
    BookEntry entry_at(std::size_t record) const;

    std::string m_path;
    MappedFile m_file;
};

}  // namespace velmora
