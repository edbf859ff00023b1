#include "chess/board/placement.h"

namespace velmora {

bool is_whole_placement(std::string_view field) {
    int rank = 7;
    PlacementReader reader(field);
    while (!reader.at_end()) {
        const bool rank_is_full = reader.square().value() == 8 * (rank + 1);
        switch (reader.read()) {
            case PlacementReader::Step::rank_end:
                if (!rank_is_full || --rank < 0) return false;
                break;
            case PlacementReader::Step::fault:
                return false;
            default:
                break;
        }
    }
    return rank == 0 && reader.square().value() == 8;
}

}  // namespace velmora
