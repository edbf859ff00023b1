#include "collection/text_table.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace velmora {

namespace {

/// The number that a text begins with; false when it begins otherwise.
bool leading_number(std::string_view text, std::uint64_t& number) {
    constexpr std::size_t most_digits = 18;
    std::size_t count = 0;
    number = 0;
    while (count < text.size() && count < most_digits && text[count] >= '0' && text[count] <= '9') {
        number = number * 10 + static_cast<std::uint64_t>(text[count++] - '0');
    }
    return count > 0;
}

bool comes_first(std::string_view a, std::string_view b) {
    std::uint64_t number_a = 0;
    std::uint64_t number_b = 0;
    if (leading_number(a, number_a) && leading_number(b, number_b) && number_a != number_b)
        return number_a < number_b;
    return a < b;
}

}  // namespace

std::string folded(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        auto& c = result[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
        // In UTF-8 the letters from U+00C0 to U+00DE, but for the multiplication sign among them.
        const auto byte = static_cast<unsigned char>(c);
        const bool is_large =
            i > 0 && result[i - 1] == '\xC3' && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
        if (is_large) c = static_cast<char>(c | 0x20);
    }
    return result;
}

void TextTable::read(const GameDatabase& database, std::uint32_t count) {
    if (size() >= count) return;
    m_ranks.clear();
    const auto append = [this](std::string_view text) {
        m_begins.push_back(m_texts.size());
        m_texts.append(text).append("\n");
    };
    database.for_each_text(size(), [&](std::uint32_t number, std::string_view text) {
        // A number that is missing is an empty text.
        while (size() < std::min(number, count)) append({});
        if (number < count) append(folded(text));
    });
    while (size() < count) append({});
}

std::string_view TextTable::text(std::uint32_t number) const {
    if (number >= size()) return {};
    const auto begin = m_begins[number];
    const auto end = number + 1 < size() ? m_begins[number + 1] : m_texts.size();
    return std::string_view(m_texts).substr(begin, end - begin - 1);
}

std::vector<bool> TextTable::containing(std::string_view part) const {
    std::vector<bool> found(size());
    if (part.find('\n') != std::string_view::npos) return found;
    const char* const begin = m_texts.data();
    const char* const end = begin + m_texts.size();
    auto next = m_begins.begin();
    for (const char* at = begin; at < end;) {
        const auto* const hit = static_cast<const char*>(
            ::memmem(at, static_cast<std::size_t>(end - at), part.data(), part.size()));
        if (hit == nullptr) break;
        next = std::upper_bound(next, m_begins.end(), static_cast<std::size_t>(hit - begin));
        found[static_cast<std::size_t>(next - m_begins.begin()) - 1] = true;
        if (next == m_begins.end()) break;
        at = begin + *next;
    }
    return found;
}

const std::vector<std::uint32_t>& TextTable::ranks() const {
    if (m_ranks.size() == size()) return m_ranks;
    std::vector<std::uint32_t> order(size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [this](std::uint32_t a, std::uint32_t b) { return comes_first(text(a), text(b)); });
    m_ranks.assign(size(), 0);
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && text(order[i]) != text(order[i - 1])) ++rank;
        m_ranks[order[i]] = rank;
    }
    return m_ranks;
}

}  // namespace velmora
