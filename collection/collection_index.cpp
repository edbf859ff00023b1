#include "collection/collection_index.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

#include "chess/moves/legal_moves.h"
#include "collection/game_database.h"
#include "collection/game_table.h"
#include "collection/index_writer.h"
#include "collection/position_index.h"
#include "collection/position_key.h"

namespace velmora {

/// What is open of one state of an index.
struct CollectionIndex::State {
    std::string pgn_path;
    std::string directory;  // of all indexes
    std::unique_ptr<SourceFile> source;
    IndexManifest manifest;
    std::string index_path;
    GameTable table;
    std::unique_ptr<GameDatabase> database;
    std::vector<std::unique_ptr<PositionIndex>> segments;
    TextTable texts;
};

namespace {

/// Above this many numbers a bit for each game is cheaper than sorting.
constexpr std::size_t few = 4096;

void make_ascending(std::vector<std::uint32_t>& numbers, std::size_t games) {
    if (numbers.size() <= few) {
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        return;
    }
    std::vector<bool> there(games);
    for (const auto number : numbers) there[number] = true;
    numbers.clear();
    for (std::uint32_t number = 0; number < games; ++number) {
        if (there[number]) numbers.push_back(number);
    }
}

/// Whether the file is the indexed one with something behind it.
bool has_only_grown(const SourceFile& source, const IndexManifest& manifest) {
    return source.size() > manifest.source.size && manifest.ends_with_result &&
           source.digest(manifest.source.size) == manifest.source.digest;
}

/// Nothing when the files of the present state don't allow it: they aren't looked at ahead of it, which would
/// take longer than the addition itself.
std::optional<IndexManifest> appended(const IndexPlace& place, const SourceFile& source,
                                      const IndexOptions& options, const IndexManifest& present) {
    try {
        return IndexBuilder(place, source, options).append(present);
    } catch (const IndexStopped&) {
        throw;
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<Move> move_in(const ChessPosition& position, std::uint16_t code) {
    if (code == 0) return std::nullopt;
    return find_legal(position, move_of_code(code));
}

CollectionIndex::CollectionIndex(std::unique_ptr<State> state) : m_state(std::move(state)) {}
CollectionIndex::CollectionIndex(CollectionIndex&&) noexcept = default;
CollectionIndex& CollectionIndex::operator=(CollectionIndex&&) noexcept = default;
CollectionIndex::~CollectionIndex() = default;

CollectionIndex CollectionIndex::open(const std::string& pgn_path, const IndexOptions& options,
                                      const std::string& directory) {
    return CollectionIndex(bring_up(pgn_path, options, directory));
}

bool CollectionIndex::refresh(const IndexOptions& options) {
    auto fresh = bring_up(path(), options, m_state->directory);
    const bool changed = !(fresh->manifest.source == m_state->manifest.source) ||
                         fresh->manifest.directory != m_state->manifest.directory;
    if (changed) m_state = std::move(fresh);
    return changed;
}

std::unique_ptr<CollectionIndex::State> CollectionIndex::bring_up(const std::string& pgn_path,
                                                                  const IndexOptions& options,
                                                                  const std::string& directory) {
    auto source = std::make_unique<SourceFile>(pgn_path);
    const IndexPlace place(pgn_path, directory);
    const auto loaded = [&](const IndexManifest& manifest) {
        auto state = load(place, std::move(source), manifest);
        if (!state) source = std::make_unique<SourceFile>(pgn_path);
        if (state) state->directory = directory;
        return state;
    };
    const auto stamp = source->stamp();
    if (const auto manifest = place.manifest(); manifest && manifest->source == stamp) {
        if (auto state = loaded(*manifest)) return state;
    }
    const auto lock = place.lock(options.stop);
    if (!lock) throw IndexStopped();
    // Another program may have made it while we waited.
    const auto present = place.manifest();
    if (present && present->source == stamp) {
        if (auto state = loaded(*present)) return state;
    } else if (present && has_only_grown(*source, *present)) {
        if (const auto longer = appended(place, *source, options, *present)) {
            if (auto state = loaded(*longer)) return state;
        }
    }
    auto state = loaded(IndexBuilder(place, *source, options).build());
    if (!state) throw std::runtime_error(place.pgn_path() + ": its index can't be read back");
    return state;
}

/// Null when a file of the index is missing or damaged.
std::unique_ptr<CollectionIndex::State> CollectionIndex::load(const IndexPlace& place,
                                                              std::unique_ptr<SourceFile> source,
                                                              const IndexManifest& manifest) {
    auto state = std::make_unique<State>();
    state->manifest = manifest;
    state->pgn_path = place.pgn_path();
    state->index_path = place.path_of(manifest, "");
    if (!state->table.open(state->index_path + table_file, manifest.games)) return nullptr;
    std::uint64_t games = 0;
    for (const auto& segment : manifest.segments) {
        auto& positions = *state->segments.emplace_back(std::make_unique<PositionIndex>());
        if (!positions.open(state->index_path + segment.file) || positions.first_game() != games)
            return nullptr;
        games += positions.games();
    }
    if (games != manifest.games) return nullptr;
    try {
        state->database =
            std::make_unique<GameDatabase>(state->index_path + database_file, GameDatabase::Access::read);
        if (manifest.games > 0 && !state->database->has_game(manifest.games - 1)) return nullptr;
    } catch (const std::runtime_error&) {
        return nullptr;
    }
    state->source = std::move(source);
    return state;
}

const std::string& CollectionIndex::path() const { return m_state->pgn_path; }
std::span<const GameColumns> CollectionIndex::games() const { return m_state->table.games(); }
const std::array<std::uint32_t, remark_count>& CollectionIndex::remarks() const {
    return m_state->manifest.remarks;
}

std::uint64_t CollectionIndex::position_count() const {
    std::uint64_t count = 0;
    for (const auto& segment : m_state->segments) count += segment->records();
    return count;
}

std::uint64_t CollectionIndex::index_size() const {
    std::uint64_t size = 0;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(m_state->index_path, error), end; !error && entry != end;
         entry.increment(error)) {
        size += entry->file_size();
    }
    return size;
}

/// What `read` gets out of the database. One that turns out to be damaged takes the index with it.
template <class Read>
auto CollectionIndex::from_database(Read read) const {
    try {
        return read(*m_state->database);
    } catch (const std::runtime_error& error) {
        IndexPlace(m_state->pgn_path, m_state->directory).withdraw();
        throw std::runtime_error(std::string(error.what()) +
                                 "; open the collection again to renew its index");
    }
}

GameRow CollectionIndex::row(std::uint32_t number) const {
    return from_database([&](const GameDatabase& database) { return read_row(database, number); });
}

GameRow CollectionIndex::read_row(const GameDatabase& database, std::uint32_t number) const {
    const auto& game = games()[number];
    GameRow row;
    row.number = number;
    row.white = database.text(game.white);
    row.black = database.text(game.black);
    row.white_elo = game.white_elo;
    row.black_elo = game.black_elo;
    row.event = database.text(game.event);
    row.site = database.text(game.site);
    row.date = date_text(game.date);
    row.round = database.text(game.round);
    row.result = result_text(game.result);
    row.eco = eco_text(game.eco);
    row.opening = database.text(game.opening);
    row.plies = game.plies;
    row.start = game.start;
    if (game.start != GameStart::normal) row.start_fen = database.start_fen(number);
    row.remark = remark_of(database, game);
    return row;
}

/// "illegal or unreadable move at ply 12: Qxz9".
std::string CollectionIndex::remark_of(const GameDatabase& database, const GameColumns& game) {
    if (game.remark == GameRemark::none) return {};
    std::string text(remark_text(game.remark));
    if (game.remark != GameRemark::bad_start) text += " at ply " + std::to_string(game.plies + 1);
    if (game.remark_word != 0) text += ": " + database.text(game.remark_word);
    return text;
}

std::string CollectionIndex::pgn(std::uint32_t number) const {
    const auto& game = games()[number];
    const auto& source = *m_state->source;
    if (game.offset > source.size() || game.length > source.size() - game.offset) {
        throw std::runtime_error(path() + ": the game isn't in the file");
    }
    std::string text(game.length, '\0');
    std::size_t size = 0;
    while (size < text.size()) {
        const auto count = ::pread(source.descriptor(), text.data() + size, text.size() - size,
                                   static_cast<off_t>(game.offset + size));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw std::runtime_error(path() + ": " + std::strerror(errno));
        if (count == 0) throw std::runtime_error(path() + ": the file became shorter");
        size += static_cast<std::size_t>(count);
    }
    return text;
}

std::vector<MoveStatistics> CollectionIndex::statistics(const ChessPosition& position) const {
    const auto key = position_key(position);
    std::vector<MoveStatistics> sums;
    for (const auto& segment : m_state->segments) segment->add_statistics(key, games(), sums);
    std::erase_if(sums,
                  [&](const MoveStatistics& sum) { return sum.move != 0 && !move_in(position, sum.move); });
    std::stable_sort(sums.begin(), sums.end(), [](const MoveStatistics& a, const MoveStatistics& b) {
        return (a.move != 0) != (b.move != 0) ? a.move != 0 : a.games > b.games;
    });
    return sums;
}

std::vector<std::uint32_t> CollectionIndex::games_through(const ChessPosition& position) const {
    std::vector<std::uint32_t> numbers;
    for (const auto& segment : m_state->segments) segment->append_games(position_key(position), numbers);
    make_ascending(numbers, games().size());
    return numbers;
}

std::vector<std::uint32_t> CollectionIndex::games_through(const ChessPosition& position, Move move) const {
    std::vector<std::uint32_t> numbers;
    for (const auto& segment : m_state->segments) {
        segment->append_games(position_key(position), move_code(move), numbers);
    }
    make_ascending(numbers, games().size());
    return numbers;
}

std::vector<std::uint32_t> CollectionIndex::newest(std::vector<std::uint32_t> numbers,
                                                   std::size_t count) const {
    const auto all = games();
    count = std::min(count, numbers.size());
    std::partial_sort(numbers.begin(), numbers.begin() + static_cast<std::ptrdiff_t>(count), numbers.end(),
                      [all](std::uint32_t a, std::uint32_t b) {
                          return all[a].date != all[b].date ? all[a].date > all[b].date : a > b;
                      });
    numbers.resize(count);
    return numbers;
}

const TextTable& CollectionIndex::texts() const {
    if (m_state->texts.size() < m_state->manifest.texts) {
        from_database([&](const GameDatabase& database) {
            m_state->texts.read(database, m_state->manifest.texts);
            return true;
        });
    }
    return m_state->texts;
}

}  // namespace velmora
