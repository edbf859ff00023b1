#include "tournament/tournament.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "base/atomic_file.h"
#include "base/backup_file.h"
#include "base/regular_file.h"
#include "engine/store/home_dir.h"
#include "tournament/pairings.h"
#include "tournament/tournament_file.h"
#include "tournament/tournament_store.h"

namespace velmora {
namespace {

bool is_open(const TournamentGame& game) { return game.result == "*"; }

/// Whether a tournament's file has results; of one that is there and can't be read nobody knows.
bool may_hold_results(const std::string& directory, const std::string& name) {
    Tournament other(directory);
    try {
        other.load(name);
    } catch (const std::exception&) {
        return !other.load_fault().empty();
    }
    return !std::ranges::all_of(other.games(), is_open);
}

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
    m_own_name.clear();
    m_load_fault.clear();
    const std::string path = tournament_store::path(m_directory(), name);
    RegularFileStream file(path);
    if (file.is_missing()) throw std::logic_error(path + " doesn't exist!");
    if (!file) {
        m_load_fault = path + ": " + file.fault();
        throw std::runtime_error(m_load_fault);
    }
    std::string line;
    try {
        tournament_file::read(file, m_data, line);
    } catch (const std::exception&) {
        m_load_fault = path + ", " + line;
        throw;
    }
    m_loaded_name = m_own_name = name;
}

void Tournament::save() {
    const std::string name = file_name();
    const std::string path = tournament_store::path(m_directory(), name);
    try {
        write_file_atomically(path, tournament_file::to_text(m_data));
    } catch (const std::runtime_error&) {
        throw std::runtime_error("Tournament::save()  open tournament failed");
    }
    m_own_name = name;
}

void Tournament::save_anew() {
    back_up(tournament_store::path(m_directory(), file_name()));
    save();
}

std::string Tournament::free_event(const std::string& event) const {
    const std::string directory = m_directory();
    if (event == m_own_name || !may_hold_results(directory, event)) return event;
    for (int number = 2;; ++number) {
        std::string candidate = event + " " + std::to_string(number);
        std::error_code too_long;  // what else keeps it from being a name is told when it is stored
        if (!std::filesystem::exists(tournament_store::path(directory, candidate), too_long))
            return candidate;
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
