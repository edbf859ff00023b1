#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "base/regular_file.h"

namespace velmora {

/// Reads a file through one block of fixed size, whatever the size of the file.
///
/// The caller looks at the unread bytes at hand and says how many it has used. A read that fails counts as
/// the end of the file.
///
/// PGN collections have gigabytes, so neither reading a file whole nor a line at a time by a stream will
/// do: one is memory without bound, the other a call for every few bytes. A mapping would end the program
/// when somebody shortens the file meanwhile; here that is an end of the file. The stop token is how a
/// program that is being left gets its threads out of a long file.
class BlockReader {
public:
    static constexpr std::size_t block_size = 1 << 17;

    /// Once `leaving` is stopped, files are at their end.
    explicit BlockReader(std::stop_token leaving = {}) : m_leaving(std::move(leaving)) {}

    /// Closes an open file and opens `path`; false for what is no plain file and for what can't be opened.
    bool open(const std::string& path);
    void close();
    bool is_open() const { return m_file.is_open(); }

    /// The unread bytes at hand; reads a block when there are none. Empty at the end of the file only. The
    /// view holds until the next call of any member but consume() and offset().
    std::string_view window() {
        if (m_begin == m_end) fill();
        return {m_block.get() + m_begin, m_end - m_begin};
    }

    /// Reads on behind the window, whose unread bytes stay but may move. False when nothing came: the end of
    /// the file, or the window is as large as a block.
    ///
    /// For whoever looks for something that may lie across the end of a block.
    bool extend();

    /// REQUIRES: count <= window().size().
    void consume(std::size_t count) { m_begin += count; }

    static constexpr int end_of_file = -1;

    /// The next byte, 0 to 255, or end_of_file.
    int get() {
        if (m_begin == m_end && !fill()) return end_of_file;
        return static_cast<unsigned char>(m_block[m_begin++]);
    }

    /// The next byte without consuming it.
    int peek() {
        if (m_begin == m_end && !fill()) return end_of_file;
        return static_cast<unsigned char>(m_block[m_begin]);
    }

    /// Goes behind the next line end.
    void skip_line();

    /// The offset in the file of the next unread byte.
    std::uint64_t offset() const { return m_block_offset + m_begin; }

    /// Goes to an offset; behind the end of the file nothing can be read.
    ///
    /// Within the block at hand nothing is read anew, so that looking ahead and going back is free.
    void seek(std::uint64_t offset);

    /// The size of the file now.
    std::uint64_t file_size() const { return m_file.size(); }

private:
    bool fill();
    bool read_behind();

    const std::stop_token m_leaving;
    RegularFile m_file;
    std::unique_ptr<char[]> m_block;
    std::uint64_t m_block_offset = 0;  // of m_block[0] in the file
    std::size_t m_begin = 0;           // of the unread bytes
    std::size_t m_end = 0;             // of the bytes at hand
};

}  // namespace velmora
