#include "base/text.h"

#include <algorithm>
#include <cstdio>
#include <locale>
#include <sstream>

namespace velmora::text {

namespace {

std::string_view trim(std::string_view text, std::string_view unwanted) {
    const auto first = text.find_first_not_of(unwanted);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(unwanted) - first + 1);
}

std::string replaced(std::string_view text, std::string_view unwanted, char replacement) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(),
        [unwanted](char c) { return unwanted.find(c) != std::string_view::npos; }, replacement);
    return result;
}

/// Reads one number from the front of `rest` by from_chars, with the plus sign that streams accept.
///
/// Streams accept a plus sign, from_chars() does not; "+-1" is no number to either.
template <class T>
std::optional<T> read_number(std::string_view& rest) {
    std::string_view digits = rest;
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') digits.remove_prefix(1);
    T value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::invalid_argument) return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    if (error != std::errc()) return std::nullopt;
    return value;
}

/// The length of the well-formed UTF-8 sequence at the front of `text`, 0 when there is none.
std::size_t sequence_length(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    std::size_t length = 0;
    if (byte(0) < 0x80) {
        length = 1;
    } else if (byte(0) >= 0xC2 && byte(0) <= 0xDF) {
        length = 2;
    } else if ((byte(0) & 0xF0) == 0xE0) {
        length = 3;
    } else if (byte(0) >= 0xF0 && byte(0) <= 0xF4) {
        length = 4;
    }
    if (length == 0 || length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    // Over-long forms, surrogates and numbers beyond the last code point: a text widget refuses them.
    if (length == 3 && (byte(0) == 0xE0 ? byte(1) < 0xA0 : byte(0) == 0xED && byte(1) > 0x9F)) return 0;
    if (length == 4 && (byte(0) == 0xF0 ? byte(1) < 0x90 : byte(0) == 0xF4 && byte(1) > 0x8F)) return 0;
    return length;
}

}  // namespace

void WordReader::skip_white_space() {
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(white_space), m_rest.size()));
}

std::string_view WordReader::word() {
    skip_white_space();
    const auto length = std::min(m_rest.find_first_of(white_space), m_rest.size());
    const auto result = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    return result;
}

std::optional<std::int64_t> WordReader::signed_integer() {
    skip_white_space();
    return read_number<std::int64_t>(m_rest);
}

std::optional<std::uint64_t> WordReader::unsigned_integer() {
    skip_white_space();
    return read_number<std::uint64_t>(m_rest);
}

std::optional<double> WordReader::real() {
    skip_white_space();
    return read_number<double>(m_rest);
}

std::string_view first_word(std::string_view line) { return WordReader(line).word(); }

std::string_view trim_blanks(std::string_view text) { return trim(text, " "); }

std::string_view trim_leading_blanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view trim_white_space(std::string_view text) { return trim(text, white_space); }

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> result;
    WordReader reader(text);
    for (auto word = reader.word(); !word.empty(); word = reader.word()) result.push_back(word);
    return result;
}

std::string join(const std::vector<std::string_view>& words) {
    std::string result;
    for (const auto word : words) {
        if (!result.empty()) result += ' ';
        result += word;
    }
    return result;
}

std::string underscores_to_blanks(std::string_view text) { return replaced(text, "_", ' '); }

std::string one_line(std::string_view text) { return replaced(text, "\r\n", ' '); }

std::string default_form(double number) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << number;
    return stream.str();
}

std::string log_stamp(std::uint64_t milliseconds) {
    char stamp[16];
    std::snprintf(stamp, sizeof stamp, "%05u.%03u", static_cast<unsigned>(milliseconds / 1000 % 65536),
                  static_cast<unsigned>(milliseconds % 1000));
    return stamp;
}

std::string valid_utf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto length = sequence_length(text);
        if (length == 0) {
            result += '?';
            text.remove_prefix(1);
        } else {
            result += text.substr(0, length);
            text.remove_prefix(length);
        }
    }
    return result;
}

std::string displayable(std::string_view text) {
    return replaced(valid_utf8(text), std::string_view("\0", 1), '?');
}

std::string record_text(std::string_view text, std::size_t limit) {
    std::string result = valid_utf8(utf8_prefix(text, limit));
    for (char& c : result) {
        if (is_control(c)) c = ' ';
        if (c == '{') c = '(';
        if (c == '}') c = ')';
    }
    return result;
}

std::string_view utf8_prefix(std::string_view text, std::size_t limit) {
    if (text.size() <= limit) return text;
    const auto continues = [text](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
    };
    auto end = limit;
    while (end > 0 && end + 3 > limit && continues(end)) --end;
    return text.substr(0, end);
}

}  // namespace velmora::text
