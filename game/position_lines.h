#pragma once

#include <cstdint>
#include <string>

#include "base/regular_file.h"

namespace velmora {

/// The lines of a file of positions, FEN or EPD: those that are not empty, without the carriage return of a
/// foreign line end. Line n is the n-th of these, counted from 1.
///
/// The list of positions and whoever takes one of them by its number must count alike; so both count by
/// this class.
class PositionLines {
public:
    /// What is no plain file, or can't be opened, has no lines.
    explicit PositionLines(const std::string& path) : m_stream(path) {}

    /// Reads the next line; false at the end, which leaves `line` empty.
    bool next(std::string& line);

    /// Where the line just read begins, in bytes.
    std::uint64_t line_offset() const { return m_line_offset; }
    std::uint64_t position() const { return m_position; }
    std::uint64_t file_size() const { return m_stream.file_size(); }

private:
    RegularFileStream m_stream;
    std::uint64_t m_line_offset = 0;
    std::uint64_t m_position = 0;
};

}  // namespace velmora
