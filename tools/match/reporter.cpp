#include "tools/match/reporter.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <ostream>

#include "matches/match_statistics.h"

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

double ratio(const MatchOptions& options, const MatchTally& games) {
    return log_likelihood_ratio(games.counts(0, 1), options.paired(), *options.sprt);
}

}  // namespace

int sprt_decision(const MatchOptions& options, const MatchTally& games) {
    if (!options.sprt) return 0;
    const double llr = ratio(options, games);
    if (llr >= options.sprt->upper()) return 1;
    return llr <= options.sprt->lower() ? -1 : 0;
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

void Reporter::finished(const FinishedGame& game, const MatchTally& games) {
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
    if (m_options.rating_interval > 0 && games.size() % m_options.rating_interval == 0) ratings(games);
}

void Reporter::score(const MatchTally& games) {
    if (m_names.size() != 2) return;
    const auto counts = games.counts(0, 1);
    if (m_options.json) {
        m_out << R"({"event": "score", "wins": )" << counts.games[2] << R"(, "losses": )" << counts.games[0]
              << R"(, "draws": )" << counts.games[1] << "}" << std::endl;
        return;
    }
    m_out << "Score of " << name(0) << " vs " << name(1) << ": " << counts.games[2] << " - "
          << counts.games[0] << " - " << counts.games[1] << "  ["
          << number(estimate_strength(counts, false).score, 3) << "] " << counts.total() << std::endl;
}

void Reporter::ratings(const MatchTally& games) {
    if (m_names.size() != 2) return ranking(games);
    const auto counts = games.counts(0, 1);
    const auto estimate = estimate_strength(counts, m_options.paired());
    const auto text = [](std::optional<double> value, int digits) {
        return value ? number(*value, digits) : "nan";
    };
    const auto json = [](std::optional<double> value) { return value ? number(*value, 4) : "null"; };
    if (m_options.json) {
        m_out << R"({"event": "rating", "elo": )" << json(estimate.elo) << R"(, "error": )"
              << json(estimate.error) << R"(, "los": )" << json(estimate.superiority) << R"(, "draws": )"
              << number(estimate.draw_ratio, 4) << "}" << std::endl;
    } else {
        const std::string infinite = estimate.score > 0.5 ? "inf" : "-inf";
        const auto superiority =
            estimate.superiority ? std::optional(*estimate.superiority * 100) : std::nullopt;
        m_out << "Elo difference: " << (estimate.elo ? number(*estimate.elo, 1) : infinite) << " +/- "
              << text(estimate.error, 1) << ", LOS: " << text(superiority, 1)
              << " %, DrawRatio: " << number(estimate.draw_ratio * 100, 1) << " %" << std::endl;
    }
    if (!m_options.sprt) return;
    const auto& sprt = *m_options.sprt;
    const double llr = ratio(m_options, games);
    const int decision = sprt_decision(m_options, games);
    if (m_options.json) {
        m_out << R"({"event": "sprt", "llr": )" << number(llr, 4) << R"(, "lower": )"
              << number(sprt.lower(), 4) << R"(, "upper": )" << number(sprt.upper(), 4) << R"(, "accepted": )"
              << (decision > 0   ? R"("H1")"
                  : decision < 0 ? R"("H0")"
                                 : "null")
              << "}" << std::endl;
        return;
    }
    m_out << "SPRT: llr " << number(llr, 2) << " ("
          << number(llr / (llr < 0 ? sprt.lower() : sprt.upper()) * 100, 1) << "%), lbound "
          << number(sprt.lower(), 2) << ", ubound " << number(sprt.upper(), 2)
          << (decision > 0   ? " - H1 was accepted"
              : decision < 0 ? " - H0 was accepted"
                             : "")
          << std::endl;
}

/// A table of more than two engines, the best score first.
void Reporter::ranking(const MatchTally& games) {
    std::vector<MatchCounts> sums(m_names.size());
    for (std::size_t a = 0; a < sums.size(); ++a) {
        for (std::size_t b = 0; b < sums.size(); ++b) {
            if (a == b) continue;
            const auto counts = games.counts(a, b);
            for (std::size_t i = 0; i < counts.games.size(); ++i) sums[a].games[i] += counts.games[i];
        }
    }
    std::vector<std::size_t> order(sums.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return estimate_strength(sums[a], false).score > estimate_strength(sums[b], false).score;
    });
    if (!m_options.json) m_out << "Rank Name                          Elo     +/-   Games   Score    Draw\n";
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto& sum = sums[order[i]];
        const auto estimate = estimate_strength(sum, false);
        char line[256];
        if (m_options.json) {
            m_out << R"({"event": "standing", "rank": )" << i + 1 << R"(, "name": )" << quoted(name(order[i]))
                  << R"(, "games": )" << sum.total() << R"(, "score": )" << number(estimate.score, 4)
                  << "}\n";
            continue;
        }
        const double infinite = estimate.score > 0.5 ? HUGE_VAL : -HUGE_VAL;
        std::snprintf(line, sizeof line, "%4zu %-25.25s %7.0f %7.0f %7llu %6.1f%% %6.1f%%\n", i + 1,
                      name(order[i]).c_str(), estimate.elo.value_or(infinite), estimate.error.value_or(NAN),
                      static_cast<unsigned long long>(sum.total()), estimate.score * 100,
                      estimate.draw_ratio * 100);
        m_out << line;
    }
    m_out.flush();
}

void Reporter::ended(const MatchTally& games) {
    ratings(games);
    if (!m_options.json) m_out << "Finished match" << std::endl;
}

}  // namespace velmora
