#include "tournament/tournament_data.h"

#include <utility>

#include "base/text.h"

namespace velmora {

TournamentParticipant participant_of(const EngineVariables& engine) {
    TournamentParticipant participant;
    participant.name = engine.name;
    const auto number = [](const std::string& text) {
        return text::WordReader(text).integer<std::int32_t>();
    };
    participant.elo = number(engine.elo).value_or(participant.elo);
    participant.handicap = number(engine.handicap).value_or(participant.handicap);
    return participant;
}

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
