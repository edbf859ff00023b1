#include "tournament/tournament_file.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "base/text.h"

namespace velmora::tournament_file {
namespace {

using text::WordReader;

/// A word that contains none of the types leaves the type alone.
void read_type(std::string_view word, TournamentData& data) {
    for (std::size_t type = 0; type < tournament_type_words.size(); ++type) {
        if (word.find(tournament_type_words[type]) == std::string_view::npos) continue;
        data.type = static_cast<TournamentType>(type);
        return;
    }
}

/// Reads "7" or "7.2" into round and sub-round; false when it is neither.
bool read_round_label(std::string_view label, TournamentGame& game) {
    const std::size_t dot = label.find('.');
    const auto round = text::strict_integer<std::int32_t>(label.substr(0, dot));
    if (!round) return false;
    game.round = *round;
    if (dot == std::string_view::npos) return true;
    const auto sub_round = text::strict_integer<std::int32_t>(label.substr(dot + 1));
    game.sub_round = sub_round.value_or(0);
    return sub_round.has_value();
}

/// Throws ahead of appending anything, so that a bad line leaves no half game.
void read_game(WordReader fields, TournamentData& data) {
    TournamentGame game;
    const auto number = fields.integer<std::int32_t>();
    const bool label_read = read_round_label(fields.word(), game);
    const auto white = fields.integer<std::int32_t>();
    const auto dash = fields.word();
    const auto black = fields.integer<std::int32_t>();
    game.result = fields.word();
    if (!number || !label_read || !white || dash.empty() || !black || game.result.empty()) {
        throw std::logic_error("Tournament::load    error");
    }
    const auto by_id = [&](std::int32_t id) {
        return data.participants.at(static_cast<std::size_t>(id) - 1);
    };
    game.number = *number;
    game.white = by_id(*white);
    game.black = by_id(*black);
    data.game_count = game.number;
    data.games.push_back(std::move(game));
}

std::string rest_of_line(WordReader& fields) { return std::string(text::trim_leading_blanks(fields.rest())); }

struct Keyword {
    std::string_view word;
    void (*read)(WordReader&, TournamentData&);
};

constexpr auto keywords = std::to_array<Keyword>({
    {"event", [](WordReader& fields, TournamentData& data) { data.event = rest_of_line(fields); }},
    {"site", [](WordReader& fields, TournamentData& data) { data.site = rest_of_line(fields); }},
    {"level", [](WordReader& fields, TournamentData& data) { data.level.set(rest_of_line(fields)); }},
    {"type", [](WordReader& fields, TournamentData& data) { read_type(fields.word(), data); }},
    {"rounds", [](WordReader& fields,
                  TournamentData& data) { data.rounds = fields.integer<std::int32_t>().value_or(0); }},
    {"openingbook",
     [](WordReader& fields, TournamentData& data) { data.opening_book = rest_of_line(fields); }},
    {"bothcolors",
     [](WordReader& fields, TournamentData& data) { data.both_colors = fields.word() == "true"; }},
    {"randomorder",
     [](WordReader& fields, TournamentData& data) { data.random_order = fields.word() == "true"; }},
    {"ignoretimeloss",
     [](WordReader& fields, TournamentData& data) { data.ignore_time_loss = fields.word() == "true"; }},
    {"participant",
     [](WordReader& fields, TournamentData& data) {
         TournamentParticipant participant;
         participant.name = rest_of_line(fields);
         data.add_participant(std::move(participant));
     }},
    {"game", [](WordReader& fields, TournamentData& data) { read_game(fields, data); }},
});

/// Builds a line of right-aligned columns. A number that fills its column gets a blank ahead of it where it
/// would else run into the field before and could not be read back.
class Columns {
public:
    void add(std::int32_t number, std::size_t width) {
        const std::string digits = std::to_string(number);
        if (digits.size() < width) m_text.append(width - digits.size(), ' ');
        if (!m_text.empty() && m_text.back() != ' ') m_text += ' ';
        m_text += digits;
    }
    void add(std::string_view separator) { m_text += separator; }
    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
};

void read_line(std::string_view line, TournamentData& data) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    WordReader fields(line);
    const std::string_view word = fields.word();
    if (word.empty()) return;
    const auto keyword = std::find_if(keywords.begin(), keywords.end(),
                                      [&](const Keyword& candidate) { return candidate.word == word; });
    if (keyword != keywords.end()) {
        keyword->read(fields, data);
    } else {
        std::cerr << "unknown command \"" << word << "\"\n";
    }
}

std::string_view true_or_false(bool flag) { return flag ? "true" : "false"; }

}  // namespace

void read(std::istream& in, TournamentData& data, std::string& fault) {
    std::string line;
    for (std::size_t number = 1; std::getline(in, line); ++number) {
        try {
            read_line(line, data);
        } catch (const std::exception&) {
            constexpr std::size_t longest_quotation = 100;  // bytes: the line is looked up by its number
            fault =
                "line " + std::to_string(number) + ": " + text::one_line(line.substr(0, longest_quotation));
            throw;
        }
    }
}

std::string game_text(const TournamentGame& game) {
    Columns columns;
    columns.add(game.number, 7);
    columns.add(game.round, 7);
    if (game.sub_round == 0) {
        columns.add("   ");
    } else {
        const std::string sub_round = std::to_string(game.sub_round);
        constexpr std::size_t sub_round_width = 5;  // and no blank at all behind more than three digits
        columns.add("." + sub_round);
        if (sub_round.size() <= 3) columns.add(std::string(sub_round_width - sub_round.size(), ' '));
    }
    columns.add(game.white.id, 2);
    columns.add("  - ");
    columns.add(game.black.id, 2);
    columns.add("     ");
    columns.add(game.result);
    return columns.take();
}

std::string to_text(const TournamentData& data) {
    std::string out;
    const auto add_line = [&out](std::string_view keyword, std::string_view value) {
        // A line feed in a value, which can be pasted into any entry, would break the file.
        out.append(keyword).append(text::one_line(value)).append("\n");
    };
    add_line("event ", data.event);
    add_line("site  ", data.site);
    add_line("level ", data.level.text());
    add_line("type ", tournament_type_words.at(static_cast<std::size_t>(data.type)));
    add_line("rounds ", std::to_string(data.rounds));
    if (!data.opening_book.empty()) add_line("openingbook ", data.opening_book);
    add_line("bothcolors ", true_or_false(data.both_colors));
    add_line("randomorder ", true_or_false(data.random_order));
    add_line("ignoretimeloss ", true_or_false(data.ignore_time_loss));
    for (const auto& participant : data.participants) add_line("participant ", participant.name);
    for (const auto& game : data.games) add_line("game ", game_text(game));
    return out;
}

}  // namespace velmora::tournament_file
