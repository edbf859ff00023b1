#include "collection/game_columns.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace velmora {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

constexpr std::array<std::string_view, 4> result_words{"*", "1-0", "0-1", "1/2-1/2"};

constexpr std::array<std::string_view, remark_count> remark_words{
    "", "illegal or unreadable move", "null move", "unreadable start position", "too long"};

std::string digits(std::uint32_t number, int width, bool known) {
    if (!known) return std::string(static_cast<std::size_t>(width), '?');
    auto text = std::to_string(number);
    text.insert(0, static_cast<std::size_t>(std::max(0, width - static_cast<int>(text.size()))), '0');
    return text;
}

}  // namespace

std::uint16_t eco_number(std::string_view code) {
    if (code.size() < 3 || code[0] < 'A' || code[0] > 'E' || !is_digit(code[1]) || !is_digit(code[2]))
        return 0;
    return static_cast<std::uint16_t>(1 + (code[0] - 'A') * 100 + (code[1] - '0') * 10 + (code[2] - '0'));
}

std::string eco_text(std::uint16_t number) {
    if (number == 0 || number > 500) return {};
    const unsigned code = number - 1U;
    return {static_cast<char>('A' + code / 100), static_cast<char>('0' + code / 10 % 10),
            static_cast<char>('0' + code % 10)};
}

std::uint32_t date_number(std::string_view date) {
    const auto field = [&date](std::size_t at, std::size_t size) -> std::uint32_t {
        if (date.size() < at + size) return 0;
        return text::strict_integer<std::uint32_t>(date.substr(at, size)).value_or(0);
    };
    const auto year = field(0, 4);
    const auto month = field(5, 2);
    const auto day = field(8, 2);
    if (year == 0) return 0;
    return year * 10000 + (month <= 12 ? month : 0) * 100 + (month > 0 && month <= 12 && day <= 31 ? day : 0);
}

std::string date_text(std::uint32_t number) {
    const auto year = number / 10000;
    const auto month = number / 100 % 100;
    const auto day = number % 100;
    return digits(year, 4, year > 0) + '.' + digits(month, 2, month > 0) + '.' + digits(day, 2, day > 0);
}

GameResult result_of(std::string_view word) {
    const auto* const found = std::find(result_words.begin(), result_words.end(), word);
    return found == result_words.end() ? GameResult::unknown
                                       : static_cast<GameResult>(found - result_words.begin());
}

std::string_view result_text(GameResult result) {
    return result_words[static_cast<std::size_t>(result) % result_words.size()];
}

std::string_view remark_text(GameRemark remark) {
    return remark_words[static_cast<std::size_t>(remark) % remark_words.size()];
}

}  // namespace velmora
