#include "collection/game_database.h"

#include <sqlite3.h>
#include <stdexcept>

namespace velmora {

namespace {

/// How long somebody who writes waits for somebody who reads, in milliseconds; reading takes far less.
constexpr int patience_ms = 5000;

constexpr const char* schema = R"(
    CREATE TABLE texts(id INTEGER PRIMARY KEY, text TEXT NOT NULL);
    CREATE TABLE games(number INTEGER PRIMARY KEY, white INTEGER, black INTEGER, white_elo INTEGER,
        black_elo INTEGER, event INTEGER, site INTEGER, date TEXT, round INTEGER, result TEXT, eco TEXT,
        opening INTEGER, plies INTEGER, start_fen TEXT, remark TEXT, remark_word INTEGER, offset INTEGER,
        length INTEGER);
    CREATE VIEW game_list AS SELECT number + 1 AS number, w.text AS white, b.text AS black, white_elo, black_elo,
        e.text AS event, s.text AS site, date, r.text AS round, result, eco, o.text AS opening, plies, start_fen,
        remark, m.text AS remark_word, offset, length FROM games
        LEFT JOIN texts w ON w.id = white LEFT JOIN texts b ON b.id = black LEFT JOIN texts e ON e.id = event
        LEFT JOIN texts s ON s.id = site LEFT JOIN texts r ON r.id = round LEFT JOIN texts o ON o.id = opening
        LEFT JOIN texts m ON m.id = remark_word;
    INSERT INTO texts VALUES(0, '');
)";

void set_value(sqlite3_stmt* statement, int place, std::uint64_t number) {
    sqlite3_bind_int64(statement, place, static_cast<sqlite3_int64>(number));
}

/// An empty text is no value. REQUIRES: the text lives until the statement has been run.
void set_value(sqlite3_stmt* statement, int place, std::string_view text) {
    if (text.empty()) {
        sqlite3_bind_null(statement, place);
    } else {
        sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    }
}

std::string_view column_text(sqlite3_stmt* statement, int place) {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, place));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, place))};
}

}  // namespace

void GameDatabase::CloseDatabase::operator()(sqlite3* database) const { sqlite3_close_v2(database); }
void GameDatabase::EndStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

GameDatabase::GameDatabase(const std::string& path, Access access) : m_path(path) {
    // Reading, too: after an addition that was killed, the first one to look has to roll it back.
    const int flags = SQLITE_OPEN_READWRITE;
    sqlite3* database = nullptr;
    const int status = sqlite3_open_v2(path.c_str(), &database,
                                       flags | (access == Access::fresh ? SQLITE_OPEN_CREATE : 0), nullptr);
    m_database.reset(database);
    if (status != SQLITE_OK) fail();
    sqlite3_busy_timeout(database, patience_ms);
    if (access == Access::fresh) {
        run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;");
        run(schema);
    }
    m_text = prepare("SELECT text FROM texts WHERE id = ?");
    m_has_game = prepare("SELECT 'yes' FROM games WHERE number = ?");
    m_start_fen = prepare("SELECT start_fen FROM games WHERE number = ?");
    if (access == Access::read) return;
    m_add_text = prepare("INSERT OR REPLACE INTO texts VALUES(?, ?)");
    m_add_game =
        prepare("INSERT OR REPLACE INTO games VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
}

void GameDatabase::begin() { run("BEGIN IMMEDIATE"); }
void GameDatabase::commit() { run("COMMIT"); }

void GameDatabase::drop_from(std::uint32_t game, std::uint32_t text) {
    run(("DELETE FROM games WHERE number >= " + std::to_string(game)).c_str());
    run(("DELETE FROM texts WHERE id >= " + std::to_string(text)).c_str());
}

void GameDatabase::add_text(std::uint32_t number, std::string_view text) {
    set_value(m_add_text.get(), 1, number);
    sqlite3_bind_text(m_add_text.get(), 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    step(m_add_text.get());
}

void GameDatabase::add_game(std::uint32_t number, const GameColumns& game, std::string_view start_fen) {
    const auto date = game.date == 0 ? std::string() : date_text(game.date);
    const auto eco = eco_text(game.eco);
    auto* const row = m_add_game.get();
    int place = 0;
    set_value(row, ++place, number);
    set_value(row, ++place, game.white);
    set_value(row, ++place, game.black);
    set_value(row, ++place, game.white_elo);
    set_value(row, ++place, game.black_elo);
    set_value(row, ++place, game.event);
    set_value(row, ++place, game.site);
    set_value(row, ++place, date);
    set_value(row, ++place, game.round);
    set_value(row, ++place, result_text(game.result));
    set_value(row, ++place, eco);
    set_value(row, ++place, game.opening);
    set_value(row, ++place, game.plies);
    set_value(row, ++place, start_fen);
    set_value(row, ++place, remark_text(game.remark));
    set_value(row, ++place, game.remark_word);
    set_value(row, ++place, game.offset);
    set_value(row, ++place, game.length);
    step(row);
}

bool GameDatabase::has_game(std::uint32_t number) const { return !text_by(m_has_game.get(), number).empty(); }
std::string GameDatabase::text(std::uint32_t number) const { return text_by(m_text.get(), number); }
std::string GameDatabase::start_fen(std::uint32_t game) const { return text_by(m_start_fen.get(), game); }

std::string GameDatabase::text_by(sqlite3_stmt* statement, std::uint32_t number) const {
    set_value(statement, 1, number);
    const int status = sqlite3_step(statement);
    std::string text(status == SQLITE_ROW ? column_text(statement, 0) : std::string_view());
    sqlite3_reset(statement);
    if (status != SQLITE_ROW && status != SQLITE_DONE) fail();
    return text;
}

void GameDatabase::for_each_text(std::uint32_t first,
                                 const std::function<void(std::uint32_t, std::string_view)>& take) const {
    const auto statement = prepare("SELECT id, text FROM texts WHERE id >= ? ORDER BY id");
    set_value(statement.get(), 1, first);
    int status = sqlite3_step(statement.get());
    for (; status == SQLITE_ROW; status = sqlite3_step(statement.get())) {
        take(static_cast<std::uint32_t>(sqlite3_column_int64(statement.get(), 0)),
             column_text(statement.get(), 1));
    }
    if (status != SQLITE_DONE) fail();
}

void GameDatabase::run(const char* sql) {
    if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

GameDatabase::Statement GameDatabase::prepare(const char* sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), sql, -1, &statement, nullptr) != SQLITE_OK) fail();
    return Statement(statement);
}

void GameDatabase::step(sqlite3_stmt* statement) const {
    if (sqlite3_step(statement) != SQLITE_DONE) fail();
    sqlite3_reset(statement);
}

void GameDatabase::fail() const {
    throw std::runtime_error(m_path + ": " +
                             (m_database ? sqlite3_errmsg(m_database.get()) : "out of memory"));
}

}  // namespace velmora
