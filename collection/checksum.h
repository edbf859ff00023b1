#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velmora {

/// A sum by which damage and change show; no secret keeps it, so it tells nothing about intent.
///
/// Eight bytes a step, each multiplied in and folded back (the idea of FNV-1a with a 64-bit word), since the
/// tables of an index have megabytes and are looked at whenever it is opened.
inline std::uint64_t checksum(std::string_view bytes, std::uint64_t sum = 0x9E3779B97F4A7C15) {
    constexpr std::uint64_t factor = 0xD6E8FEB86659FD93;
    const auto step = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * factor;
        sum ^= sum >> 32;
    };
    step(bytes.size());
    for (; bytes.size() >= sizeof(std::uint64_t); bytes.remove_prefix(sizeof(std::uint64_t))) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data(), sizeof word);
        step(word);
    }
    std::uint64_t rest = 0;
    if (!bytes.empty()) std::memcpy(&rest, bytes.data(), bytes.size());  // of nothing there is no address
    step(rest);
    return sum;
}

}  // namespace velmora
