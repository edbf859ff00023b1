#include "collection/index_writer.h"

#include <limits>
#include <stdexcept>

namespace velmora {

namespace {

/// Texts whose number is remembered; together some 64 MiB. Where a collection has more (a site of its own for
/// each game), a text may get a second number, which costs its bytes and nothing else.
constexpr std::size_t most_remembered = 400'000;

}  // namespace

IndexWriter::IndexWriter(const std::string& directory, IndexManifest& manifest, std::uint32_t first_game,
                         std::uint64_t expected_positions)
    : m_manifest(manifest),
      m_database(directory + '/' + database_file,
                 manifest.games == 0 ? GameDatabase::Access::fresh : GameDatabase::Access::append),
      m_table(directory + '/' + table_file, manifest.games),
      m_sorter(directory, expected_positions),
      m_next_game(first_game) {
    m_database.begin();
    if (manifest.games > 0) m_database.drop_from(manifest.games, manifest.texts);
}

void IndexWriter::add(const GameBatch& batch) {
    if (batch.games.size() > std::numeric_limits<std::uint32_t>::max() - 1 - m_next_game) {
        throw std::runtime_error("more games than one index can have");
    }
    std::vector<std::uint32_t> texts;
    const auto last = m_next_game + static_cast<std::uint32_t>(batch.games.size());
    if (last > m_manifest.games) {
        texts.reserve(batch.texts.texts().size());
        for (const auto& text : batch.texts.texts()) texts.push_back(text_number(text));
    }
    m_sorter.add(batch.positions, m_next_game);
    for (std::size_t i = 0; i < batch.games.size(); ++i, ++m_next_game) {
        if (m_next_game >= m_manifest.games) add_game(batch.games[i], batch.start_fens[i], texts);
    }
    if (!batch.games.empty()) {
        m_manifest.read_to = batch.end;
        m_manifest.ends_with_result = batch.ends_with_result;
    }
}

void IndexWriter::add_game(GameColumns game, std::string_view start_fen,
                           const std::vector<std::uint32_t>& texts) {
    for (const auto column : text_columns) game.*column = texts[game.*column];
    m_database.add_game(m_manifest.games, game, start_fen);
    m_table.add(game);
    ++m_manifest.games;
    ++m_manifest.remarks[static_cast<std::size_t>(game.remark)];
}

std::uint32_t IndexWriter::text_number(std::string_view text) {
    if (text.empty()) return 0;
    std::string key(text);
    const auto found = m_text_numbers.find(key);
    if (found != m_text_numbers.end()) return found->second;
    if (m_text_numbers.size() == most_remembered) m_text_numbers.clear();
    m_database.add_text(m_manifest.texts, text);
    m_text_numbers.emplace(std::move(key), m_manifest.texts);
    return m_manifest.texts++;
}

void IndexWriter::finish() {
    m_table.flush();
    m_table.sync();
    m_database.commit();
}

}  // namespace velmora
