#include "matches/engine_game.h"

#include <algorithm>
#include <array>
#include <utility>

#include "analysis/search_info.h"
#include "base/text.h"
#include "game/game_result.h"

namespace velmora {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::nanoseconds;

/// An engine whose clock isn't kept counts as hung when it has said nothing for so long.
constexpr std::chrono::minutes silence(5);

/// The ends by rule in the words that tools for engine matches print, which scripts look for.
constexpr auto rule_words = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"Stalemate", "Draw by stalemate"},
    {"Draw by insufficient material", "Draw by insufficient mating material"},
    {"Draw by fifty move rule", "Draw by fifty moves rule"},
    {"Draw by threefold repetition", "Draw by 3-fold repetition"},
});

GameOutcome in_match_words(GameOutcome outcome) {
    for (const auto& [own, printed] : rule_words) {
        if (outcome.reason == own) outcome.reason = printed;
    }
    return outcome;
}

bool has_clock(const MatchEngineSetup& setup) {
    const auto type = setup.level.level_t();
    return !setup.endless && (type == LevelType::sudden_death || type == LevelType::sessions);
}

/// What the setup gives an engine for its next move or moves; nothing where nobody counts.
std::optional<nanoseconds> allowance(const MatchEngineSetup& setup) {
    if (has_clock(setup)) return std::chrono::milliseconds(setup.level.base_ms());
    if (setup.level.level_t() == LevelType::fixed_movetime) {
        return std::chrono::milliseconds(setup.level.movetime());
    }
    return {};
}

std::string side_name(Side side) { return side == Side::white ? "White" : "Black"; }

}  // namespace

PlayedGame EngineGame::play(const ChessPosition& opening) {
    const auto start = Clock::now();
    m_game.start = opening;
    m_game.end = opening;
    if (const auto over = result(opening)) {
        m_game.outcome = in_match_words(*over);
    } else if (begin()) {
        while (play_move()) continue;
    }
    m_game.duration = Clock::now() - start;
    return std::move(m_game);
}

void EngineGame::end(Side loser, Termination termination, const std::string& reason) {
    m_game.termination = termination;
    m_game.at_fault = loser;
    if (m_leaving.stop_requested()) {
        m_game.termination = Termination::unterminated;
        return;
    }
    m_game.outcome = loss_of(loser, side_name(loser) + reason);
}

bool EngineGame::begin() {
    for (const Side side : {Side::white, Side::black}) {
        MatchEngine& engine = *m_engines[side];
        m_left[side] = allowance(engine.setup()).value_or(std::chrono::milliseconds(Level::endless_ms));
        if (engine.begin_game(side, m_chess960)) continue;
        engine.is_alive() ? end(side, Termination::stalled, "'s connection stalls")
                          : end(side, Termination::abandoned, " disconnects");
        return false;
    }
    return true;
}

/// The engine's next move, resignation or end; nothing when its time is up.
std::optional<EngineEvent> EngineGame::wait_for_move(MatchEngine& engine, Clock::time_point start) {
    const auto& setup = engine.setup();
    const bool counts = allowance(setup).has_value();
    const Side side = m_game.end.side_to_move();
    auto deadline = counts ? start + m_left[side] + setup.time_margin + std::chrono::milliseconds(1)
                           : Clock::now() + silence;
    for (;;) {
        auto event = engine.queue().wait(deadline, m_leaving);
        if (!event && !counts && !m_leaving.stop_requested() &&
            engine.queue().last_sign() + silence > Clock::now()) {
            deadline = engine.queue().last_sign() + silence;
            continue;
        }
        if (event && event->kind == EngineEvent::Kind::ready) {
            engine.take_answer();
            continue;
        }
        return event;
    }
}

bool EngineGame::play_move() {
    const Side side = m_game.end.side_to_move();
    MatchEngine& engine = *m_engines[side];
    engine.queue().forget_info();
    const auto start = engine.go(m_game.end, m_left[side], m_left[opposite(side)]);
    const auto event = wait_for_move(engine, start);
    if (!event) {
        const bool counts = allowance(engine.setup()).has_value();
        counts ? end(side, Termination::time_forfeit, " loses on time")
               : end(side, Termination::stalled, "'s connection stalls");
        if (!engine.stop()) {
            // Who has not even answered to that hangs, or has ended: the next game needs another process.
            if (m_game.outcome && counts && engine.is_alive()) {
                end(side, Termination::stalled, "'s connection stalls");
            }
            engine.end();
        }
        return false;
    }
    if (event->kind == EngineEvent::Kind::ended) {
        end(side, Termination::abandoned, " disconnects");
        return false;
    }
    if (event->kind == EngineEvent::Kind::resign) {
        end(side, Termination::normal, " resigns");
        return false;
    }
    const nanoseconds taken = event->arrival - start;
    if (allowance(engine.setup()) && taken > m_left[side] + engine.setup().time_margin) {
        end(side, Termination::time_forfeit, " loses on time");
        return false;
    }
    if (!play_if_legal(m_game.end, parse_move(m_game.end, event->text))) {
        end(side, Termination::illegal_move, " makes an illegal move: " + event->text);
        return false;
    }
    charge(side, taken);
    note(side, taken);
    if (const auto over = result(m_game.end)) {
        m_game.outcome = in_match_words(*over);
    } else if (const auto judged = m_adjudicator.outcome()) {
        m_game.outcome = judged;
        m_game.termination = Termination::adjudication;
    }
    return !m_game.outcome;
}

void EngineGame::charge(Side side, nanoseconds taken) {
    const auto& setup = m_engines[side]->setup();
    if (!has_clock(setup)) return;
    m_left[side] += std::chrono::milliseconds(setup.level.inc_ms()) - taken;
    if (setup.level.moves() > 0 && ++m_made[side] == setup.level.moves()) {
        m_made[side] = 0;
        m_left[side] += std::chrono::milliseconds(setup.level.base_ms());
    }
}

void EngineGame::note(Side side, nanoseconds taken) {
    const auto info = read_search_info(m_engines[side]->queue().last_info(), side);
    m_game.moves.push_back({info.score, info.depth.value_or(0), taken});
    m_adjudicator.add_move(side, static_cast<std::uint32_t>(m_game.end.moves().size()), info.score);
}

}  // namespace velmora
