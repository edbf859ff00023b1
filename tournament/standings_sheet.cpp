#include "tournament/standings_sheet.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "tournament/score.h"

namespace velmora {

namespace {

using TextTable = std::vector<std::vector<std::string>>;

std::string elo_text(const Standings::Row& row) {
    if (row.counts.total() == 0) return {};
    if (!row.rating.elo) return row.rating.score > 0.5 ? "+inf" : "-inf";
    char text[32];
    std::snprintf(text, sizeof text, "%+ld", std::lround(*row.rating.elo));
    return text;
}

std::string tie_break_text(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

/// Characters, not bytes.
std::size_t width_of(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// Numbers are set right; the second column holds the names, which are set left.
std::string columns_of(const TextTable& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width_of(row[i]));
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string blanks(widths[i] - width_of(row[i]), ' ');
            if (i > 0) line += "  ";
            line += i == 1 ? row[i] + blanks : blanks + row[i];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

}  // namespace

std::string StandingsSheet::progress() const {
    if (game_count == 0) return {};
    return std::to_string(game_count - open_count) + " of " + std::to_string(game_count) + " games played";
}

std::vector<StandingsSheet::Line> standings_lines(const Standings& standings,
                                                  const std::vector<std::string>& names) {
    std::vector<StandingsSheet::Line> lines;
    const auto table = standings.table();
    for (const auto& row : table) {
        StandingsSheet::Line line;
        line.name = names[row.player];
        line.points = points_text(row.counts.half_points());
        line.games = std::to_string(row.counts.total());
        line.white_wins = std::to_string(row.wins_as_white);
        line.black_wins = std::to_string(row.wins_as_black);
        line.draws = std::to_string(row.counts.draws());
        line.losses = std::to_string(row.counts.losses());
        line.elo = elo_text(row);
        if (row.rating.error) line.error = std::to_string(std::lround(*row.rating.error));
        line.tie_break = tie_break_text(row.sonneborn_berger);
        for (const auto& other : table) {
            const auto counts =
                other.player == row.player ? OutcomeCounts() : standings.against(row.player, other.player);
            line.against.push_back(counts.total() == 0 ? ""
                                                       : points_text(counts.half_points()) + "/" +
                                                             std::to_string(counts.total()));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string text_of(const StandingsSheet& sheet) {
    if (sheet.lines.empty()) return {};
    TextTable rows;
    rows.push_back({"", "Name", "Points", "Games", "+White", "+Black", "=", "-", "Elo", "+/-", "SB"});
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) rows.front().push_back(std::to_string(i + 1));
    for (const auto& line : sheet.lines) {
        rows.push_back({std::to_string(rows.size()), line.name, line.points, line.games, line.white_wins,
                        line.black_wins, line.draws, line.losses, line.elo, line.error, line.tie_break});
        rows.back().insert(rows.back().end(), line.against.begin(), line.against.end());
        auto& own = rows.back()[rows.back().size() - sheet.lines.size() + rows.size() - 2];
        own = "*";
    }
    std::string text = sheet.title + "\n" + sheet.progress() + "\n\n" + columns_of(rows);
    if (sheet.open.empty()) return text;
    text += "\nOpen:\n";
    for (const auto& game : sheet.open) text += game + '\n';
    if (sheet.open_count > sheet.open.size()) {
        text += "and " + std::to_string(sheet.open_count - sheet.open.size()) + " more\n";
    }
    return text;
}

}  // namespace velmora
