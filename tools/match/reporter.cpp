#include "tools/match/reporter.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>
#include <ostream>

namespace velmora {

namespace {

std::string number(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

std::string quoted(const std::string& text) {
    std::string result = R"(")";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return result + '"';
}

std::string game_fields(const ScheduledGame& game, const BySide<std::string>& names) {
    return R"("game": )" + std::to_string(game.number) + R"(, "round": )" + std::to_string(game.round) +
           R"(, "white": )" + quoted(names.white) + R"(, "black": )" + quoted(names.black);
}

double ratio(const MatchOptions& options, const Standings& games) {
    return options.sprt->ratio(games.against(0, 1), options.unit());
}

std::string json_number(std::optional<double> value) { return value ? number(*value, 4) : "null"; }

std::string text_number(std::optional<double> value) { return value ? number(*value, 1) : "nan"; }

}  // namespace

Sprt::Decision decision_of_test(const MatchOptions& options, const Standings& games) {
    return options.sprt ? options.sprt->decide(ratio(options, games)) : Sprt::Decision::none;
}

Reporter::Reporter(std::ostream& out, const MatchOptions& options, std::uint64_t total, Meanwhile meanwhile)
    : m_out(out),
      m_options(options),
      m_total(total),
      m_meanwhile(meanwhile),
      m_names(options.pool.engines.size()) {}

std::vector<std::string> Reporter::names() const {
    std::vector<std::string> all;
    for (std::size_t engine = 0; engine < m_names.size(); ++engine) all.push_back(name(engine));
    return all;
}

std::string Reporter::name(std::size_t engine) const {
    if (!m_names[engine].empty()) return m_names[engine];
    const auto& setup = m_options.pool.engines[engine];
    return setup.name.empty() ? setup.call.path : setup.name;
}

void Reporter::note(const ScheduledGame& game, const BySide<std::string>& names) {
    m_names[game.white] = names.white;
    m_names[game.black] = names.black;
}

void Reporter::started(const ScheduledGame& game, const BySide<std::string>& names) {
    note(game, names);
    if (m_meanwhile == Meanwhile::nothing) return;
    if (m_options.json) {
        m_out << R"({"event": "started", )" << game_fields(game, names) << "}" << std::endl;
    } else {
        m_out << "Started game " << game.number << " of " << m_total << " (" << names.white << " vs "
              << names.black << ")" << std::endl;
    }
}

void Reporter::finished(const FinishedGame& game, const Standings& games) {
    if (m_meanwhile == Meanwhile::nothing) return;
    if (m_options.json) {
        m_out << R"({"event": "finished", )" << game_fields(game.scheduled, game.names) << R"(, "result": )"
              << quoted(game.result()) << R"(, "reason": )" << quoted(game.reason()) << R"(, "plies": )"
              << game.game.end.moves().size() << R"(, "ms": )"
              << std::chrono::duration_cast<std::chrono::milliseconds>(game.game.duration).count() << "}"
              << std::endl;
    } else {
        m_out << "Finished game " << game.scheduled.number << " (" << game.names.white << " vs "
              << game.names.black << "): " << game.result() << " {" << game.reason() << "}" << std::endl;
    }
    if (!game.game.outcome) return;
    score(games);
    if (m_options.rating_interval > 0 && games.games() % m_options.rating_interval == 0) ratings(games);
}

void Reporter::score(const Standings& games) {
    if (m_names.size() != 2) return;
    const auto counts = games.against(0, 1);
    if (m_options.json) {
        m_out << R"({"event": "score", "wins": )" << counts.wins() << R"(, "losses": )" << counts.losses()
              << R"(, "draws": )" << counts.draws() << "}" << std::endl;
        return;
    }
    m_out << "Score of " << name(0) << " vs " << name(1) << ": " << counts.wins() << " - " << counts.losses()
          << " - " << counts.draws() << "  [" << number(rating_of(counts, RatingUnit::game).score, 3) << "] "
          << counts.total() << std::endl;
}

void Reporter::ratings(const Standings& games) {
    if (m_names.size() != 2) return ranking(games);
    const auto counts = games.against(0, 1);
    const auto rating = rating_of(counts, m_options.unit());
    if (m_options.json) {
        m_out << R"({"event": "rating", "elo": )" << json_number(rating.elo) << R"(, "error": )"
              << json_number(rating.error) << R"(, "los": )" << json_number(rating.superiority)
              << R"(, "draws": )" << number(rating.draw_ratio, 4) << R"(, "normalized_elo": )"
              << json_number(rating.normalized_elo) << R"(, "normalized_error": )"
              << json_number(rating.normalized_error) << pairs_field(counts) << "}" << std::endl;
    } else {
        const std::string infinite = rating.score > 0.5 ? "inf" : "-inf";
        const auto superiority = rating.superiority ? std::optional(*rating.superiority * 100) : std::nullopt;
        m_out << "Elo difference: " << (rating.elo ? number(*rating.elo, 1) : infinite) << " +/- "
              << text_number(rating.error) << ", LOS: " << text_number(superiority)
              << " %, DrawRatio: " << number(rating.draw_ratio * 100, 1) << " %" << std::endl;
    }
    test(games);
    if (m_options.json) return;
    m_out << "Normalized Elo: " << text_number(rating.normalized_elo) << " +/- "
          << text_number(rating.normalized_error);
    if (m_options.unit() == RatingUnit::pair) {
        m_out << ", Pairs (LL, LD, WL or DD, WD, WW):";
        for (const auto count : counts.pairs) m_out << ' ' << count;
    }
    m_out << std::endl;
}

std::string Reporter::pairs_field(const OutcomeCounts& counts) const {
    if (m_options.unit() != RatingUnit::pair) return {};
    std::string field = R"(, "pairs": [)";
    for (const auto count : counts.pairs) field += (field.back() == '[' ? "" : ", ") + std::to_string(count);
    return field + ']';
}

void Reporter::test(const Standings& games) {
    if (!m_options.sprt) return;
    const auto& sprt = *m_options.sprt;
    const double llr = ratio(m_options, games);
    const auto decision = sprt.decide(llr);
    if (m_options.json) {
        m_out << R"({"event": "sprt", "llr": )" << number(llr, 4) << R"(, "lower": )"
              << number(sprt.lower(), 4) << R"(, "upper": )" << number(sprt.upper(), 4) << R"(, "accepted": )"
              << (decision == Sprt::Decision::h1   ? R"("H1")"
                  : decision == Sprt::Decision::h0 ? R"("H0")"
                                                   : "null")
              << "}" << std::endl;
        return;
    }
    m_out << "SPRT: llr " << number(llr, 2) << " ("
          << number(llr / (llr < 0 ? sprt.lower() : sprt.upper()) * 100, 1) << "%), lbound "
          << number(sprt.lower(), 2) << ", ubound " << number(sprt.upper(), 2)
          << (decision == Sprt::Decision::h1   ? " - H1 was accepted"
              : decision == Sprt::Decision::h0 ? " - H0 was accepted"
                                               : "")
          << std::endl;
}

/// A table of more than two engines, the best score first.
void Reporter::ranking(const Standings& games) {
    if (!m_options.json) m_out << "Rank Name                          Elo     +/-   Games   Score    Draw\n";
    std::size_t rank = 0;
    for (const auto& row : games.table()) {
        ++rank;
        const auto& rating = row.rating;
        if (m_options.json) {
            m_out << R"({"event": "standing", "rank": )" << rank << R"(, "name": )"
                  << quoted(name(row.player)) << R"(, "games": )" << row.counts.total() << R"(, "score": )"
                  << number(rating.score, 4) << "}\n";
            continue;
        }
        char line[256];
        const double infinite = rating.score > 0.5 ? HUGE_VAL : -HUGE_VAL;
        std::snprintf(line, sizeof line, "%4zu %-25.25s %7.0f %7.0f %7llu %6.1f%% %6.1f%%\n", rank,
                      name(row.player).c_str(), rating.elo.value_or(infinite), rating.error.value_or(NAN),
                      static_cast<unsigned long long>(row.counts.total()), rating.score * 100,
                      rating.draw_ratio * 100);
        m_out << line;
    }
    m_out.flush();
}

void Reporter::ended(const Standings& games) {
    ratings(games);
    if (!m_options.json) m_out << "Finished match" << std::endl;
}

}  // namespace velmora
