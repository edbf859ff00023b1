#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "collection/game_columns.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmora {

/// The games of a collection as rows of an SQLite database, for whoever shows a row and for other programs.
///
/// The table "games" has a row a game, texts by number; "texts" has these; the view "game_list" has both
/// joined. Rows of a number that the index doesn't count yet come of an addition that was broken off, and are
/// replaced by the next one. Not for two threads at once.
///
/// Every function throws std::runtime_error with the path and SQLite's words.
class GameDatabase {
public:
    /// A fresh database is filled without a journal: until its index is published, nobody reads it.
    enum class Access { fresh, append, read };

    GameDatabase(const std::string& path, Access access);

    /// What lies between begin() and commit() is written whole or not at all, but in a fresh database.
    void begin();
    void commit();
    /// Forgets games and texts from these numbers on.
    void drop_from(std::uint32_t game, std::uint32_t text);
    void add_text(std::uint32_t number, std::string_view text);
    void add_game(std::uint32_t number, const GameColumns& game, std::string_view start_fen);

    bool has_game(std::uint32_t number) const;
    /// Empty for a number that isn't there.
    std::string text(std::uint32_t number) const;
    /// The FEN tag of a game, empty for the usual start.
    std::string start_fen(std::uint32_t game) const;
    /// All texts from a number on, ascending.
    void for_each_text(std::uint32_t first,
                       const std::function<void(std::uint32_t, std::string_view)>& take) const;

private:
    struct CloseDatabase {
        void operator()(sqlite3* database) const;
    };
    struct EndStatement {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

    void run(const char* sql);
    Statement prepare(const char* sql) const;
    void step(sqlite3_stmt* statement) const;
    std::string text_by(sqlite3_stmt* statement, std::uint32_t number) const;
    [[noreturn]] void fail() const;

    std::string m_path;
    std::unique_ptr<sqlite3, CloseDatabase> m_database;
    Statement m_add_text;  // null when only read
    Statement m_add_game;
    Statement m_text;
    Statement m_start_fen;
    Statement m_has_game;
};

}  // namespace velmora
