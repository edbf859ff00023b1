#include "tools/collection/reports.h"

#include <algorithm>
#include <array>
#include <iomanip>

#include "chess/notation/san_move.h"

namespace velmora {

namespace {

/// Games with a remark that a summary names one by one.
constexpr std::size_t most_named = 20;

std::string_view count_word(std::uint64_t count, std::string_view one, std::string_view many) {
    return count == 1 ? one : many;
}

/// In tenths of a percent, as text: "38.1%".
std::string share(std::uint64_t part, std::uint64_t whole) {
    const auto tenths = whole == 0 ? 0 : (1000 * part + whole / 2) / whole;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + '%';
}

struct Named {
    std::string san;
    std::string coordinates;
};

Named names_of(const ChessPosition& position, std::uint16_t code) {
    const auto move = move_in(position, code);
    if (!move) return {};
    // Where castling isn't the classic one, only the form with the rook's square tells it.
    return {SanMove(position, *move).san(), move->to_string((position.rights() & 0x7E7E) != 0)};
}

std::string json_text(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

void print_results(std::ostream& out, std::span<const GameColumns> games) {
    std::array<std::uint64_t, 4> results{};
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    for (const auto& game : games) {
        ++results[static_cast<std::size_t>(game.result) % results.size()];
        if (game.date == 0) continue;
        first = first == 0 ? game.year() : std::min(first, game.year());
        last = std::max(last, game.year());
    }
    for (const auto result :
         {GameResult::white_wins, GameResult::draw, GameResult::black_wins, GameResult::unknown}) {
        const auto count = results[static_cast<std::size_t>(result)];
        out << std::left << std::setw(12) << result_text(result) << std::right << std::setw(12) << count
            << "  " << share(count, games.size()) << '\n';
    }
    if (first != 0)
        out << std::left << std::setw(12) << "years" << std::right << std::setw(12) << first << " to " << last
            << '\n';
}

}  // namespace

void print_summary(std::ostream& out, const CollectionIndex& collection) {
    const auto line = [&out](std::string_view name, std::uint64_t number, std::string_view unit) {
        out << std::left << std::setw(12) << name << std::right << std::setw(12) << number << unit << '\n';
    };
    line("games", collection.size(), "");
    line("positions", collection.position_count(), "");
    line("index", collection.index_size(), " bytes");
    print_results(out, collection.games());
    for (std::size_t remark = 1; remark < remark_count; ++remark) {
        const auto count = collection.remarks()[remark];
        if (count == 0) continue;
        out << count << count_word(count, " game", " games")
            << " indexed in part: " << remark_text(static_cast<GameRemark>(remark)) << '\n';
    }
    std::size_t named = 0;
    const auto games = collection.games();
    for (std::uint32_t number = 0; number < games.size() && named < most_named; ++number) {
        if (games[number].remark == GameRemark::none) continue;
        const auto row = collection.row(number);
        out << "  game " << number + 1 << ", " << row.white << " - " << row.black << ": " << row.remark
            << '\n';
        ++named;
    }
}

void print_moves(std::ostream& out, const CollectionIndex& collection, const ChessPosition& position) {
    const auto moves = collection.statistics(position);
    const auto total = collection.games_through(position).size();
    out << total << count_word(total, " game", " games") << '\n';
    if (moves.empty()) return;
    out << "move          games   share   white    draw   black  rating  last\n";
    for (const auto& sum : moves) {
        const auto name = sum.move == 0 ? std::string("(end)") : names_of(position, sum.move).san;
        out << std::left << std::setw(8) << name << std::right << std::setw(11) << sum.games << std::setw(8)
            << share(sum.games, total) << std::setw(8) << share(sum.white_wins, sum.games) << std::setw(8)
            << share(sum.draws, sum.games) << std::setw(8) << share(sum.black_wins, sum.games) << std::setw(8)
            << (sum.rated == 0 ? "-" : std::to_string(sum.mean_rating())) << std::setw(6)
            << (sum.last_year == 0 ? "-" : std::to_string(sum.last_year)) << '\n';
    }
}

void print_moves_as_json(std::ostream& out, const CollectionIndex& collection,
                         const ChessPosition& position) {
    out << "{\"fen\": " << json_text(position.fen())
        << ", \"games\": " << collection.games_through(position).size() << ", \"moves\": [";
    std::uint64_t ended = 0;
    const char* separator = "";
    for (const auto& sum : collection.statistics(position)) {
        if (sum.move == 0) {
            ended = sum.games;
            continue;
        }
        const auto names = names_of(position, sum.move);
        out << separator << "\n  {\"san\": " << json_text(names.san)
            << ", \"uci\": " << json_text(names.coordinates) << ", \"games\": " << sum.games
            << ", \"white\": " << sum.white_wins << ", \"draws\": " << sum.draws
            << ", \"black\": " << sum.black_wins << ", \"rating\": " << sum.mean_rating()
            << ", \"last_year\": " << sum.last_year << '}';
        separator = ",";
    }
    out << "], \"ended\": " << ended << "}\n";
}

void print_rows(std::ostream& out, const CollectionIndex& collection, std::span<const std::uint32_t> games) {
    out << "game\twhite\telo\tblack\telo\tresult\tdate\tevent\tsite\tround\teco\topening\tmoves\tremark\n";
    const auto rating = [](std::uint16_t elo) { return elo == 0 ? std::string() : std::to_string(elo); };
    for (const auto number : games) {
        const auto row = collection.row(number);
        out << number + 1 << '\t' << row.white << '\t' << rating(row.white_elo) << '\t' << row.black << '\t'
            << rating(row.black_elo) << '\t' << row.result << '\t' << row.date << '\t' << row.event << '\t'
            << row.site << '\t' << row.round << '\t' << row.eco << '\t' << row.opening << '\t'
            << (row.plies + 1) / 2 << '\t' << row.remark << '\n';
    }
}

void print_games(std::ostream& out, const CollectionIndex& collection, std::span<const std::uint32_t> games) {
    for (const auto number : games) out << collection.pgn(number) << "\n\n";
}

}  // namespace velmora
