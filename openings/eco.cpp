#include "openings/eco.h"

#include <algorithm>

namespace velmora {

std::string Eco::text(std::uint64_t key, std::string_view EcoRow::*field) {
    const auto rows = eco_rows();
    const auto order = eco_rows_by_key();
    const auto place =
        std::lower_bound(order.begin(), order.end(), key,
                         [rows](std::uint16_t row, std::uint64_t wanted) { return rows[row].key < wanted; });
    if (place == order.end() || rows[*place].key != key) return {};
    return std::string(rows[*place].*field);
}

}  // namespace velmora
