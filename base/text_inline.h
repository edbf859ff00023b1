#pragma once

#include <charconv>
#include <type_traits>
#include <utility>

#include "base/text.h"

namespace velmora::text {

template <std::integral T>
std::optional<T> WordReader::integer() {
    if constexpr (std::is_signed_v<T>) {
        const auto value = signed_integer();
        if (!value || !std::in_range<T>(*value)) return std::nullopt;
        return static_cast<T>(*value);
    } else {
        const auto value = unsigned_integer();
        if (!value || !std::in_range<T>(*value)) return std::nullopt;
        return static_cast<T>(*value);
    }
}

template <std::integral T>
std::optional<T> strict_integer(std::string_view text) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace velmora::text
