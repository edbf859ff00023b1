#include "tools/match/fault_table.h"

#include <ostream>

namespace velmora {

void FaultTable::add(const std::string& name, Termination termination) {
    const char* word = termination == Termination::time_forfeit   ? "lost on time"
                       : termination == Termination::illegal_move ? "illegal move"
                       : termination == Termination::abandoned    ? "disconnected"
                       : termination == Termination::stalled      ? "stalled"
                                                                  : nullptr;
    if (word != nullptr) ++m_counts[{name, word}];
}

void FaultTable::print(std::ostream& out) const {
    for (const auto& [fault, count] : m_counts) {
        out << "Faults of " << fault.first << ": " << fault.second << ' ' << count << '\n';
    }
}

}  // namespace velmora
