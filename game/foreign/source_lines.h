#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "game/block_reader.h"
#include "game/foreign/encoding.h"

namespace velmora {

/// A line, or a piece of one that is very long.
struct SourceLine {
    std::string_view text;     ///< with its line feed where it has one; holds until the next line is read
    std::uint64_t offset = 0;  ///< of its first byte in the source
    bool begins_line = true;

    bool ends_line() const { return text.ends_with('\n'); }
};

/// Gives the lines of a file or a text, one after another.
class LineSource {
public:
    virtual ~LineSource() = default;
    /// False at the end.
    virtual bool next(SourceLine& line) = 0;
};

/// The lines of a text in memory, which it only looks at.
class TextLines : public LineSource {
public:
    explicit TextLines(std::string_view text) : m_text(text) {}
    bool next(SourceLine& line) override;

private:
    std::string_view m_text;
    std::size_t m_at = 0;
};

/// The lines of a file of any size: its bytes as they are, but UTF-16 as UTF-8. Memory for one block and one
/// line of at most its size.
class FileLines : public LineSource {
public:
    /// Once `leaving` is stopped, the file is at its end.
    explicit FileLines(std::stop_token leaving) : m_reader(std::move(leaving)) {}

    /// False when the file can't be opened.
    bool open(const std::string& path);
    /// Goes to the offset of a line, or of a place within one.
    void seek(std::uint64_t offset);
    bool next(SourceLine& line) override;

    Encoding encoding() const { return m_encoding; }
    std::uint64_t position() const { return m_reader.offset(); }
    std::uint64_t file_size() const { return m_reader.file_size(); }

private:
    std::string_view next_bytes();
    std::string_view next_utf16();
    bool next_unit(char32_t& unit);

    BlockReader m_reader;
    Encoding m_encoding = Encoding::bytes;
    std::string m_line;  // decoded
    bool m_begins_line = true;
};

}  // namespace velmora
