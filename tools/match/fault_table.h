#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>

#include "matches/finished_game.h"

namespace velmora {

/// How often each engine failed, by what it did.
class FaultTable {
public:
    /// Counts how a game ended for the engine `name`; an end without a fault isn't counted.
    void add(const std::string& name, Termination termination);
    void print(std::ostream& out) const;

private:
    std::map<std::pair<std::string, std::string>, std::uint64_t> m_counts;
};

}  // namespace velmora
