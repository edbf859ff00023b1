#include "matches/match_state.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>

#include "base/text.h"
#include "chess/board/game_outcome.h"

namespace velmora {

namespace {

constexpr std::string_view first_line = "velmora-match 1";

[[noreturn]] void fail(const std::string& path, const char* reason) {
    throw std::runtime_error(path + ": " + reason);
}

/// Numbers beyond it are nobody's game; memory is set aside by number.
constexpr std::uint64_t most_games = 1'000'000'000;

}  // namespace

MatchState::~MatchState() {
    if (m_fd >= 0) ::close(m_fd);
}

void MatchState::create(const std::string& path, const std::vector<std::string>& words) {
    m_fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
    if (m_fd < 0) {
        fail(path, errno == EEXIST ? "is there already; -resume goes on with it" : std::strerror(errno));
    }
    m_words = words;
    m_waiting = std::string(first_line) + '\n';
    for (const std::string& word : words) m_waiting += "word " + text::one_line(word) + '\n';
    if (!add({})) fail(path, std::strerror(errno));
}

void MatchState::read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) fail(path, std::strerror(errno));
    const std::string all{std::istreambuf_iterator<char>(file), {}};
    std::size_t begin = 0;
    for (auto end = all.find('\n'); end != std::string::npos; end = all.find('\n', begin)) {
        const auto line = std::string_view(all).substr(begin, end - begin);
        if (begin == 0 && line != first_line) break;
        read_line(line);
        begin = end + 1;
    }
    if (begin == 0) fail(path, "is no state of a match");
    m_length = begin;
}

void MatchState::read_line(std::string_view line) {
    if (line.starts_with("word ")) m_words.emplace_back(line.substr(5));
    text::WordReader reader(line);
    if (reader.word() != "game") return;
    StateGame game;
    game.number = reader.integer<std::uint64_t>().value_or(0);
    game.encounter = reader.integer<std::uint64_t>().value_or(0);
    game.white = reader.integer<std::uint64_t>().value_or(0);
    game.black = reader.integer<std::uint64_t>().value_or(0);
    game.result = reader.word();
    if (game.number < 1 || game.number > most_games || !result_of_token(game.result)) return;
    if (game.number >= m_played.size()) m_played.resize(game.number + 1);
    if (m_played[game.number]) return;
    m_played[game.number] = true;
    m_games.push_back(std::move(game));
}

void MatchState::resume(const std::string& path) {
    read(path);
    m_fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (m_fd < 0 || ::ftruncate(m_fd, static_cast<off_t>(m_length)) != 0) fail(path, std::strerror(errno));
}

/// A part of a line that was written before the disk was full is taken back, so that only whole lines stand
/// in the file.
bool MatchState::add(const StateGame& game) {
    if (m_fd < 0) return true;
    if (game.number > 0) {
        m_waiting += "game " + std::to_string(game.number) + ' ' + std::to_string(game.encounter) + ' ' +
                     std::to_string(game.white) + ' ' + std::to_string(game.black) + ' ' + game.result + '\n';
    }
    const auto written = ::write(m_fd, m_waiting.data(), m_waiting.size());
    if (written != static_cast<ssize_t>(m_waiting.size())) {
        const int reason = errno;
        [[maybe_unused]] const int cut = ::ftruncate(m_fd, static_cast<off_t>(m_length));
        errno = reason;
        return false;
    }
    m_length += m_waiting.size();
    m_waiting.clear();
    return ::fdatasync(m_fd) == 0;
}

}  // namespace velmora
