// Where to keep the positions of a collection: the same records in SQLite, in LMDB and in the sorted, mapped
// file of our own. position_stores <path of a PGN file> <empty directory>
//
// Each store gets its records sorted, the best case of a tree, and is timed until all is on the disk; then
// all games of some positions are read from it. The file's own time has the sorting in it.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <lmdb.h>
#include <random>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/regular_file.h"
#include "collection/game_digester.h"
#include "collection/position_index.h"
#include "collection/position_sorter.h"

namespace velmora {
namespace {

using Clock = std::chrono::steady_clock;
using Keys = std::vector<std::uint64_t>;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void require(bool good, const char* what) {
    if (!good) throw std::runtime_error(what);
}

struct Content {
    std::vector<GameColumns> games;
    std::vector<PositionRecord> records;
};

Content read(const std::string& path) {
    const RegularFile file(path);
    require(file.is_open(), "the file can't be opened");
    GameSpans spans(file.descriptor(), 0, file.size(), file.size(), GameSpans::Front::any_tag);
    GameDigester digester;
    GameBatch batch;
    while (const auto span = spans.next()) spans.consume(digester.add(*span, batch));
    return {std::move(batch.games), std::move(batch.positions)};
}

class MappedStore {
public:
    static constexpr const char* name = "own file";
    explicit MappedStore(const std::string& directory) : m_path(directory + "/positions") {}

    void fill(const Content& content) {
        PositionSorter sorter(std::filesystem::path(m_path).parent_path(), content.records.size());
        sorter.add(content.records, 0);
        require(sorter.write(m_path, content.games, 0, 1, [](std::uint64_t) {}, {}), "not sorted");
        require(m_index.open(m_path), "not opened");
    }
    std::size_t read(std::uint64_t key) {
        std::vector<std::uint32_t> numbers;
        m_index.append_games(key, numbers);
        return numbers.size();
    }

private:
    std::string m_path;
    PositionIndex m_index;
};

class SqliteStore {
public:
    static constexpr const char* name = "SQLite";
    explicit SqliteStore(const std::string& directory) {
        require(sqlite3_open((directory + "/positions.sqlite").c_str(), &m_database) == SQLITE_OK, "SQLite");
        run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -200000;"
            "CREATE TABLE positions(key INTEGER, move INTEGER, game INTEGER, PRIMARY KEY(key, move, game)) "
            "WITHOUT ROWID;");
    }
    ~SqliteStore() { sqlite3_close_v2(m_database); }
    SqliteStore(const SqliteStore&) = delete;
    SqliteStore& operator=(const SqliteStore&) = delete;

    /// REQUIRES: records by key as SQLite compares it.
    void fill(const Content& content) {
        run("BEGIN");
        sqlite3_stmt* insert = prepare("INSERT OR IGNORE INTO positions VALUES(?, ?, ?)");
        for (const auto& record : content.records) {
            sqlite3_bind_int64(insert, 1, static_cast<sqlite3_int64>(record.key));
            sqlite3_bind_int(insert, 2, record.move);
            sqlite3_bind_int64(insert, 3, record.game);
            require(sqlite3_step(insert) == SQLITE_DONE, "SQLite insert");
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        run("COMMIT");
        m_select = prepare("SELECT move, game FROM positions WHERE key = ?");
    }
    std::size_t read(std::uint64_t key) {
        std::size_t count = 0;
        sqlite3_bind_int64(m_select, 1, static_cast<sqlite3_int64>(key));
        while (sqlite3_step(m_select) == SQLITE_ROW) count += sqlite3_column_int64(m_select, 1) >= 0 ? 1 : 0;
        sqlite3_reset(m_select);
        return count;
    }

private:
    void run(const char* sql) {
        require(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, "SQLite");
    }
    sqlite3_stmt* prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        require(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr) == SQLITE_OK, "SQLite");
        return statement;
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_select = nullptr;
};

class LmdbStore {
public:
    static constexpr const char* name = "LMDB";
    explicit LmdbStore(const std::string& directory) {
        require(mdb_env_create(&m_environment) == 0 &&
                    mdb_env_set_mapsize(m_environment, std::size_t{1} << 36) == 0 &&
                    mdb_env_open(m_environment, (directory + "/positions.lmdb").c_str(),
                                 MDB_NOSUBDIR | MDB_NOSYNC, 0600) == 0,
                "LMDB");
    }
    ~LmdbStore() { mdb_env_close(m_environment); }
    LmdbStore(const LmdbStore&) = delete;
    LmdbStore& operator=(const LmdbStore&) = delete;

    /// A key has its games as sorted duplicates of fixed size, LMDB's form for this.
    void fill(const Content& content) {
        MDB_txn* write = nullptr;
        require(mdb_txn_begin(m_environment, nullptr, 0, &write) == 0 &&
                    mdb_dbi_open(write, nullptr, MDB_CREATE | MDB_INTEGERKEY | MDB_DUPSORT | MDB_DUPFIXED,
                                 &m_table) == 0,
                "LMDB");
        MDB_cursor* cursor = nullptr;
        require(mdb_cursor_open(write, m_table, &cursor) == 0, "LMDB");
        for (auto record : content.records) {
            unsigned char data[6] = {static_cast<unsigned char>(record.move >> 8),
                                     static_cast<unsigned char>(record.move)};
            for (int i = 0; i < 4; ++i) data[2 + i] = static_cast<unsigned char>(record.game >> (24 - 8 * i));
            MDB_val key{sizeof record.key, &record.key};
            MDB_val value{sizeof data, data};
            const int status = mdb_cursor_put(cursor, &key, &value, MDB_APPENDDUP);
            require(status == 0 || status == MDB_KEYEXIST, "LMDB put");
        }
        mdb_cursor_close(cursor);
        require(mdb_txn_commit(write) == 0 && mdb_env_sync(m_environment, 1) == 0, "LMDB commit");
        require(mdb_txn_begin(m_environment, nullptr, MDB_RDONLY, &m_read) == 0, "LMDB");
    }
    std::size_t read(std::uint64_t wanted) {
        MDB_cursor* cursor = nullptr;
        require(mdb_cursor_open(m_read, m_table, &cursor) == 0, "LMDB");
        MDB_val key{sizeof wanted, &wanted};
        MDB_val value{};
        std::size_t count = 0;
        for (int status = mdb_cursor_get(cursor, &key, &value, MDB_SET_KEY); status == 0;
             status = mdb_cursor_get(cursor, &key, &value, MDB_NEXT_DUP)) {
            count += value.mv_size == 6 ? 1 : 0;
        }
        mdb_cursor_close(cursor);
        return count;
    }

private:
    MDB_env* m_environment = nullptr;
    MDB_txn* m_read = nullptr;
    MDB_dbi m_table = 0;
};

std::uint64_t disk_bytes(const std::string& directory) {
    std::uint64_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        if (entry.path().string().find("lock") == std::string::npos) bytes += entry.file_size();
    }
    return bytes;
}

template <class Store>
void measure(const Content& content, const Keys& keys, const std::string& parent) {
    const auto directory = parent + "/" + Store::name;
    std::filesystem::create_directories(directory);
    Store store(directory);
    auto start = Clock::now();
    store.fill(content);
    const auto filled = seconds_since(start);
    const auto records = static_cast<double>(content.records.size());
    start = Clock::now();
    std::size_t found = 0;
    for (const auto key : keys) found += store.read(key);
    const auto read = seconds_since(start);
    std::printf(
        "%-9s filled in %6.2f s (%4.0f ns a record), %5.1f bytes a record, %.1f us a position, %.0f ns a "
        "game read\n",
        Store::name, filled, filled * 1e9 / records, static_cast<double>(disk_bytes(directory)) / records,
        read * 1e6 / static_cast<double>(keys.size()), read * 1e9 / static_cast<double>(found));
}

void run(const std::string& path, const std::string& directory) {
    auto content = read(path);
    std::printf("%zu games, %zu positions\n", content.games.size(), content.records.size());
    std::mt19937_64 random(1);
    Keys keys;
    for (int i = 0; i < 20000; ++i) keys.push_back(content.records[random() % content.records.size()].key);
    measure<MappedStore>(content, keys, directory);
    const auto sorted_by = [&content](auto key_of) {
        std::sort(content.records.begin(), content.records.end(), [&](const auto& a, const auto& b) {
            if (a.key != b.key) return key_of(a) < key_of(b);
            return a.move != b.move ? a.move < b.move : a.game < b.game;
        });
    };
    sorted_by([](const PositionRecord& record) { return record.key; });
    measure<LmdbStore>(content, keys, directory);
    sorted_by([](const PositionRecord& record) { return static_cast<std::int64_t>(record.key); });
    measure<SqliteStore>(content, keys, directory);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: position_stores <path of a PGN file> <empty directory>\n";
        return 2;
    }
    try {
        velmora::run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
