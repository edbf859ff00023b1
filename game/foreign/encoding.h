#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// How the characters of a file are written.
enum class Encoding : std::uint8_t {
    bytes,  ///< UTF-8; a byte that is no part of it is one of Windows-1252, which has Latin-1 in it
    utf16_le,
    utf16_be,
};

/// An encoding, and how many bytes its mark at the begin of the file takes.
struct FileEncoding {
    Encoding encoding = Encoding::bytes;
    std::size_t mark = 0;
};

/// Tells the encoding by the first bytes of a file: by its byte-order mark, or by zero bytes in every other
/// place, which text has in UTF-16 alone.
FileEncoding encoding_of(std::string_view first_bytes);

/// Appends a character in UTF-8; U+FFFD for what is none.
void append_utf8(std::string& text, char32_t character);

/// One character of a UTF-8 text and the number of its bytes; of a byte that begins none, that byte and 1.
struct Utf8Character {
    char32_t character = 0;
    std::size_t size = 1;
    bool is_valid = true;
};
/// REQUIRES: the text isn't empty.
Utf8Character first_character(std::string_view text);

/// Text of the kind Encoding::bytes as UTF-8; zero bytes become blanks.
///
/// Byte by byte and not file by file, since collections are pasted together from files of every age, and a
/// text of Windows-1252 has hardly ever two letters that make one of UTF-8.
/// @param first_changed  where the first byte stands that was no UTF-8, npos when all were
std::string utf8_of_bytes(std::string_view bytes, std::size_t& first_changed);

}  // namespace velmora
