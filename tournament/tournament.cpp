#include "tournament/tournament.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "channel/atomic_file.h"
#include "engine/home_dir.h"
#include "tournament/pairings.h"
#include "tournament/tournament_file.h"
#include "tournament/tournament_store.h"

namespace velmora {
namespace {

bool is_open(const TournamentGame& game) { return game.result == "*"; }

}  // namespace

Tournament::Tournament() : m_directory([] { return HomeDir().tournaments_path(); }) {}

Tournament::Tournament(std::string directory)
    : m_directory([directory = std::move(directory)] { return directory; }) {}

void Tournament::clear() {
    remove_all();
    m_data.game_count = 0;
    m_valid = false;
    m_data.both_colors = false;
    m_data.random_order = false;  // though a new tournament has it on: a file without the line reads as off
    m_data.ignore_time_loss = false;
    m_data.opening_book.clear();
    set_event("?");
}

void Tournament::remove_all() {
    m_data.participants.clear();
    m_data.games.clear();
}

void Tournament::reset_results() {
    for (auto& game : m_data.games) game.result = "*";
}

void Tournament::add_participant(TournamentParticipant participant) {
    m_data.add_participant(std::move(participant));
}

void Tournament::set_event(const std::string& event) {
    m_data.event = event;
    m_loaded_name.clear();
}

void Tournament::load(const std::string& name) {
    clear();
    const std::string path = tournament_store::path(m_directory(), name);
    std::ifstream file(path);
    if (!file) throw std::logic_error(path + " doesn't exist!");
    tournament_file::read(file, m_data);
    m_loaded_name = name;
}

void Tournament::save() const {
    const std::string& name = m_loaded_name.empty() ? m_data.event : m_loaded_name;
    const std::string path = tournament_store::path(m_directory(), name);
    try {
        write_file_atomically(path, tournament_file::to_text(m_data));
    } catch (const std::runtime_error&) {
        throw std::runtime_error("Tournament::save()  open tournament failed");
    }
}

void Tournament::make_schedule() {
    m_valid = true;
    m_data.games.clear();
    m_data.game_count = 0;
    switch (m_data.type) {
        case TournamentType::match:
            return new_match(m_data.rounds);
        case TournamentType::gauntlet:
            return new_gauntlet(m_data.rounds);
        case TournamentType::round_robin:
            return new_roundrobin(m_data.rounds);
    }
    m_valid = false;
}

void Tournament::new_match(std::int32_t rounds) {
    m_data.type = TournamentType::match;
    append_games(pairings::match, "new_match", rounds);
}

void Tournament::new_gauntlet(std::int32_t rounds) {
    m_data.type = TournamentType::gauntlet;
    append_games(pairings::gauntlet, "new_gauntlet", rounds);
}

void Tournament::new_roundrobin(std::int32_t rounds) {
    m_data.type = TournamentType::round_robin;
    append_games(pairings::round_robin, "new_roundrobin", rounds);
}

void Tournament::append_games(Pairing pairing, const char* operation, std::int32_t rounds) {
    if (m_data.participants.size() < 2) {
        m_valid = false;
        throw std::logic_error(std::string("Tournament::") + operation + "() wrong number of participants");
    }
    Games games = pairing(m_data.participants, rounds);
    m_data.games.insert(m_data.games.end(), std::make_move_iterator(games.begin()),
                        std::make_move_iterator(games.end()));
    m_data.game_count = m_data.games.empty() ? 0 : m_data.games.back().number;
}

TournamentGame Tournament::next_game() const {
    const auto game = std::find_if(m_data.games.begin(), m_data.games.end(), is_open);
    return game == m_data.games.end() ? TournamentGame{} : *game;
}

void Tournament::set_result(const std::string& result) {
    const auto game = std::find_if(m_data.games.begin(), m_data.games.end(), is_open);
    if (game != m_data.games.end()) game->result = result;
}

}  // namespace velmora
