#include "matches/match_engine.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "channel/engine_line.h"
#include "engine/drivers/protocol_engine.h"
#include "engine/drivers/uci_engine.h"
#include "engine/drivers/xboard_engine.h"

namespace velmora {

namespace {

/// How long an engine may take to be ready for a game, to clear large tables above all.
constexpr std::chrono::seconds ready_patience(30);
/// How long a stopped search may take to end.
constexpr std::chrono::seconds stop_patience(5);

std::int32_t whole_ms(std::chrono::nanoseconds time) {
    const auto ms = std::chrono::floor<std::chrono::milliseconds>(time).count();
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(ms, -Level::endless_ms, Level::endless_ms));
}

}  // namespace

MatchEngine::MatchEngine(MatchEngineSetup setup, std::uint32_t number, bool logs, std::stop_token leaving)
    : m_setup(std::move(setup)),
      m_number(number),
      m_logs(logs),
      m_leaving(std::move(leaving)),
      m_engio(m_leaving) {}

MatchEngine::~MatchEngine() { end_process(); }

void MatchEngine::start_process() {
    ProgramCall call = m_setup.call;
    call.owned = true;
    m_engio.set_engine_id(m_number);
    m_engio.set_logging(m_logs);
    m_engio.spawn_engine(call);
    m_engio.set_engine(this);
    if (!m_engio.is_spawned()) return;
    m_reader = std::thread([this] {
        m_engio();
        m_queue.put({EngineEvent::Kind::ended, {}, false, std::chrono::steady_clock::now()});
    });
}

void MatchEngine::end_process() {
    m_engio.quit();
    if (m_reader.joinable()) m_reader.join();
    m_engio.set_engine(nullptr);
}

bool MatchEngine::start() {
    end_process();
    m_player = nullptr;
    m_questions = m_answers = 0;
    auto owned = std::make_unique<ProtocolEngine>(ProtocolEngine::default_interval, m_leaving);
    ProtocolEngine& probe = *owned;
    m_base = std::move(owned);
    probe.attach(1, &m_record, &m_engio);
    start_process();
    if (!m_engio.is_spawned()) {
        m_fault = "cannot be started: " + m_setup.call.path;
        return false;
    }
    probe.load(m_number, m_setup.call.path, m_setup.protocol, m_logs);
    if (probe.ended_at_uci()) {
        end_process();
        probe.clear_queue();
        start_process();
        probe.go_on_with_xboard();
    }
    if (!probe.is_alive() || !probe.found() || probe.protocol() == Protocol::xboard_v1) {
        m_fault = probe.is_alive() ? "doesn't answer in UCI or in version 2 of xboard's protocol"
                                   : "ended while it was greeted";
        end_process();
        return false;
    }
    std::unique_ptr<PlayingEngine> player;
    if (probe.is_uci()) {
        player = std::make_unique<UciEngine>();
    } else {
        player = std::make_unique<XboardEngine>();
    }
    player->attach(1, &m_record, &m_engio);
    player->set_manager(this);
    m_engio.set_engine(nullptr);
    m_player = player.get();
    m_base = std::move(player);
    m_queue.clear();
    m_engio.set_engine(this);
    if (!m_engio.is_alive()) {
        m_fault = "ended while it was greeted";
        return false;
    }
    give_options();
    return true;
}

/// An option that the engine doesn't announce is left out: it would take the word for nonsense.
void MatchEngine::give_options() {
    for (const auto& option : m_setup.options) {
        const bool known = m_player->with_record(
            [&](const EngineRecord& record) { return record.variables.options.contains(option.first); });
        if (known) m_player->set_option(option.first, option.second);
    }
}

std::string MatchEngine::name() const {
    if (!m_setup.name.empty() || m_player == nullptr) return m_setup.name;
    return m_player->with_record([](const EngineRecord& record) { return record.variables.engine_name; });
}

bool MatchEngine::wants_restart() const {
    using Restart = MatchEngineSetup::Restart;
    if (!is_alive() || m_setup.restart == Restart::on) return true;
    return !m_player->is_uci() &&
           !m_player->with_record([](const EngineRecord& record) { return record.variables.features.reuse; });
}

bool MatchEngine::begin_game(Side side, bool chess960) {
    m_queue.clear();
    if (!m_engio.is_alive()) return false;
    if (chess960 && m_player->is_uci()) m_player->set_option("UCI_Chess960", "true");
    m_player->with_record([&](EngineRecord& record) {
        record.state.set_level(m_setup.level, {});
        record.state.is_white = side == Side::white;
    });
    m_player->new_game();
    return wait_ready();
}

/// The answers to the questions that went out with each search are waited for as well: only the last one
/// says that the game can begin.
bool MatchEngine::wait_ready() {
    const bool asks = m_player->is_uci() || m_player->with_record([](const EngineRecord& record) {
        return record.variables.features.ping;
    });
    if (!asks) return true;
    ++m_questions;
    if (!m_player->is_uci()) m_engio.send("ping " + std::to_string(m_questions));
    const auto deadline = std::chrono::steady_clock::now() + ready_patience;
    while (m_answers < m_questions) {
        const auto event = m_queue.wait(deadline, m_leaving);
        if (!event || event->kind == EngineEvent::Kind::ended) return false;
        if (event->kind == EngineEvent::Kind::ready) ++m_answers;
    }
    return true;
}

std::chrono::steady_clock::time_point MatchEngine::go(const ChessPosition& position,
                                                      std::chrono::nanoseconds own,
                                                      std::chrono::nanoseconds other) {
    m_player->with_record([&](EngineRecord& record) {
        record.state.clock.set_time_left(whole_ms(own));
        record.state.opponent_time = whole_ms(other);
    });
    m_player->set_position(position);
    if (m_player->is_uci()) ++m_questions;
    const auto start = std::chrono::steady_clock::now();
    m_player->go();
    return start;
}

bool MatchEngine::stop() {
    m_player->stop();
    const auto deadline = std::chrono::steady_clock::now() + stop_patience;
    while (const auto event = m_queue.wait(deadline, {})) {
        if (event->kind == EngineEvent::Kind::ended) return false;
        if (event->kind == EngineEvent::Kind::ready) ++m_answers;
        if (event->kind == EngineEvent::Kind::move && event->stopped) return true;
    }
    return false;
}

std::size_t MatchEngine::longest_line() const { return m_base->longest_line(); }

/// "readyok" and "pong" are the match's own questions and none of the driver's.
void MatchEngine::receive_line(ArrivedLine line) {
    m_arrival = std::chrono::steady_clock::now();
    if (m_player != nullptr) {
        const auto word = text::first_word(line.text);
        if (word == "readyok" || word == "pong") {
            return m_queue.put({EngineEvent::Kind::ready, {}, false, m_arrival});
        }
    }
    m_base->receive_line(std::move(line));
}

void MatchEngine::put_command(const std::string& line) {
    const auto said = decode_engine_line(line);
    if (!said) return;
    switch (said->word()) {
        case EngineWord::best_move:
            return m_queue.put(
                {EngineEvent::Kind::move, std::string(said->move()), said->stopped, m_arrival});
        case EngineWord::resign:
            return m_queue.put({EngineEvent::Kind::resign, {}, false, m_arrival});
        case EngineWord::info:
            return m_queue.put_info(std::string(said->rest()));
        case EngineWord::offer_draw:
        case EngineWord::other:
            return;
    }
}

}  // namespace velmora
