#include "collection/opening_names.h"

#include <algorithm>

namespace velmora {

OpeningNames::OpeningNames() {
    for (const auto& row : eco_rows())
        m_present[row.key % present_bits / 64] |= std::uint64_t{1} << (row.key % 64);
}

const EcoRow* OpeningNames::search(std::uint64_t key) {
    const auto rows = eco_rows();
    const auto by_key = eco_rows_by_key();
    const auto found =
        std::lower_bound(by_key.begin(), by_key.end(), key,
                         [rows](std::uint16_t row, std::uint64_t k) { return rows[row].key < k; });
    return found != by_key.end() && rows[*found].key == key ? &rows[*found] : nullptr;
}

std::string full_name(const EcoRow& row) {
    std::string name(row.opening);
    if (!row.variation.empty()) name.append(", ").append(row.variation);
    return name;
}

}  // namespace velmora
