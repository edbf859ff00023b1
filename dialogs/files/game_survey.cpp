#include "dialogs/files/game_survey.h"

#include <exception>
#include <iostream>
#include <iterator>
#include <sstream>
#include <utility>

#include "dialogs/files/game_list.h"
#include "game/foreign/foreign_file.h"
#include "game/tag_scanner.h"

namespace velmora {

namespace {

constexpr std::size_t most_games_with_remarks = 10'000;

FoundGame found_game(const SurveyedGame& surveyed, bool with_remarks) {
    FoundGame found;
    GameHeader header;
    std::istringstream text(surveyed.game.text);
    header.tags = first_tags(text);
    found.entry = game_entry(header);
    found.entry.offset = surveyed.offset;
    found.size = surveyed.size;
    found.is_damaged = surveyed.game.has_losses();
    found.is_repaired = surveyed.is_repaired && !found.is_damaged;
    if (!with_remarks) return found;
    for (const auto& remark : surveyed.game.remarks) found.remarks.push_back(describe(remark));
    return found;
}

}  // namespace

GameSurvey::GameSurvey(std::string path)
    : m_thread([this, path = std::move(path)](const std::stop_token& leaving) { run(leaving, path); }) {}

bool GameSurvey::take(std::vector<FoundGame>& games) {
    const std::lock_guard lock(m_mutex);
    games.insert(games.end(), std::make_move_iterator(m_waiting.begin()),
                 std::make_move_iterator(m_waiting.end()));
    m_waiting.clear();
    return !m_finished;
}

void GameSurvey::run(const std::stop_token& leaving, const std::string& path) {
    try {
        FileSurvey survey(path, leaving);
        SurveyedGame surveyed;
        for (std::size_t count = 0; !leaving.stop_requested() && survey.next(surveyed); ++count) {
            auto found = found_game(surveyed, count < most_games_with_remarks);
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(found));
        }
    } catch (const std::exception& error) {  // out of memory: the list is what it is
        std::cerr << "GameSurvey: " << error.what() << '\n';
    }
    const std::lock_guard lock(m_mutex);
    m_finished = true;
}

}  // namespace velmora
