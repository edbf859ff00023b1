#include "tournament/tournament_data.h"

#include <utility>

namespace velmora {

std::string TournamentGame::round_label() const {
    std::string label = std::to_string(round);
    if (sub_round > 0) label += "." + std::to_string(sub_round);
    return label;
}

void TournamentData::add_participant(TournamentParticipant participant) {
    participant.id = static_cast<std::int32_t>(participants.size() + 1);
    participants.push_back(std::move(participant));
}

}  // namespace velmora
