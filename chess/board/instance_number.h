#pragma once

#include <atomic>
#include <cstdint>

namespace velmora {

/// A number that every construction draws anew, copies included, and assignment leaves alone.
///
/// It tells two objects apart that are equal in value, or of which one stands where the other stood. A
/// member of this type gives its class that behaviour without copy operations written by hand.
class InstanceNumber {
public:
    InstanceNumber() : m_id(draw()) {}
    InstanceNumber(const InstanceNumber&) : m_id(draw()) {}
    InstanceNumber& operator=(const InstanceNumber&) { return *this; }

    std::int32_t value() const { return m_id; }

private:
    /// Positions are made by several threads. Nothing is ordered by the counter but the numbers
    /// themselves, so relaxed is enough.
    static std::int32_t draw() {
        static std::atomic<std::int32_t> counter{0};
        return counter.fetch_add(1, std::memory_order_relaxed) + 1;
    }

    std::int32_t m_id;
};

}  // namespace velmora
