#include "game/foreign/encoding.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

constexpr char32_t replacement = 0xFFFD;

/// Windows-1252, 0x80 to 0x9F (WHATWG encoding standard, index windows-1252); the rest is Latin-1.
constexpr std::array<char16_t, 32> windows_1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char byte_at(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

char32_t from_windows_1252(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? windows_1252[byte - 0x80U] : byte;
}

/// The bytes that a lead byte announces, 0 for one that is none.
std::size_t announced_size(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

}  // namespace

FileEncoding encoding_of(std::string_view first_bytes) {
    if (first_bytes.starts_with("\xEF\xBB\xBF")) return {Encoding::bytes, 3};
    if (first_bytes.starts_with("\xFF\xFE")) return {Encoding::utf16_le, 2};
    if (first_bytes.starts_with("\xFE\xFF")) return {Encoding::utf16_be, 2};
    // Tags and moves are ASCII: nearly all of one half are zero, and hardly any of the other.
    const auto pairs = first_bytes.size() / 2;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < 2 * pairs; ++i) {
        if (first_bytes[i] == '\0') ++zeros[i % 2];
    }
    constexpr std::size_t fewest_pairs = 8;
    if (pairs < fewest_pairs) return {};
    if (zeros[1] > pairs * 3 / 4 && zeros[0] < pairs / 16 + 1) return {Encoding::utf16_le, 0};
    if (zeros[0] > pairs * 3 / 4 && zeros[1] < pairs / 16 + 1) return {Encoding::utf16_be, 0};
    return {};
}

void append_utf8(std::string& text, char32_t character) {
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) character = replacement;
    const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto continuation = [&](int shift) { put(0x80U | ((character >> shift) & 0x3FU)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6));
        continuation(0);
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12));
        continuation(6);
        continuation(0);
    } else {
        put(0xF0U | (character >> 18));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

Utf8Character first_character(std::string_view text) {
    const auto lead = byte_at(text, 0);
    const Utf8Character invalid{lead, 1, false};
    const auto size = announced_size(lead);
    if (size == 1) return {lead, 1, true};
    if (size == 0 || size > text.size()) return invalid;
    char32_t character = lead & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto byte = byte_at(text, i);
        if ((byte & 0xC0U) != 0x80U) return invalid;
        character = character << 6 | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = character >= 0xD800 && character < 0xE000;
    if (character < least[size] || character > 0x10FFFF || is_surrogate) return invalid;
    return {character, size, true};
}

std::string utf8_of_bytes(std::string_view bytes, std::size_t& first_changed) {
    first_changed = std::string_view::npos;
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto next = first_character(bytes.substr(at));
        if (next.is_valid) {
            text.append(bytes, at, next.size);
        } else {
            first_changed = std::min(first_changed, text.size());
            append_utf8(text, from_windows_1252(static_cast<unsigned char>(next.character)));
        }
        at += next.size;
    }
    std::ranges::replace(text, '\0', ' ');
    return text;
}

}  // namespace velmora
