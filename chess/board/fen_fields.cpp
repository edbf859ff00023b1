#include "chess/board/fen_fields.h"

#include <charconv>
#include <optional>

namespace velmora {

namespace {

constexpr std::string_view white_space = " \t\n\v\f\r";

std::string_view take_word(std::string_view& text) {
    const std::size_t start = text.find_first_not_of(white_space);
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    const std::string_view word = text.substr(0, text.find_first_of(white_space));
    text.remove_prefix(word.size());
    return word;
}

std::optional<std::uint16_t> number(std::string_view field) {
    std::uint16_t value = 0;
    const char* const end = field.data() + field.size();
    const auto result = std::from_chars(field.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return value;
}

}  // namespace

FenFields split_fen(std::string_view text) {
    FenFields fields;
    fields.board = take_word(text);
    fields.side = take_word(text);
    fields.castling = take_word(text);
    fields.en_passant = take_word(text);
    fields.halfmoves = take_word(text);
    fields.fullmove = take_word(text);
    if (!number(fields.halfmoves)) fields.halfmoves = "0";
    if (!number(fields.fullmove)) fields.fullmove = "1";
    return fields;
}

std::uint16_t FenFields::halfmoves_number() const { return number(halfmoves).value_or(0); }
std::uint16_t FenFields::fullmove_number() const { return number(fullmove).value_or(1); }

std::string FenFields::joined() const {
    std::string text(board);
    for (const std::string_view field : {side, castling, en_passant, halfmoves, fullmove}) {
        text += ' ';
        text += field;
    }
    return text;
}

}  // namespace velmora
