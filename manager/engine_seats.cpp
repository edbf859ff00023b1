#include "manager/engine_seats.h"

#include <exception>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "engine/store/installed_engines.h"

namespace velmora {

namespace {

constexpr std::uint64_t instance_id_seed = 12345;

/// What stands for the name of an engine that isn't there.
const std::string no_name = "???";

}  // namespace

EngineSeats::EngineSeats(RefereeState& state, CommandSink& line_sink,
                         std::chrono::milliseconds probe_interval)
    : m_state(state), m_line_sink(line_sink), m_probe_interval(probe_interval), m_rng(instance_id_seed) {}

EngineSeats::~EngineSeats() { unload_all(); }

bool EngineSeats::is_alive(Seat seat) const {
    const auto* const guest = engine(seat);
    return guest != nullptr && guest->is_alive();
}

bool EngineSeats::is_current(Seat seat, std::uint64_t instance_id) const {
    return engine(seat) != nullptr && at(seat).instance_id == instance_id;
}

void EngineSeats::load_engine(Seat seat, const std::string& path, Protocol protocol) {
    unload(seat);
    auto guest = std::make_unique<GuiEngine>(m_probe_interval, m_state.leaving);
    guest->load_engine(&m_line_sink, static_cast<std::uint32_t>(seat), path, protocol);
    if (!guest->is_alive()) {
        report_failed_load(seat, path);
        return;
    }
    at(seat).engine = std::move(guest);
    at(seat).path = path;
    at(seat).deaths.clear();
    publish();  // whoever reads the name finds an engine
    send_name(seat, engine(seat)->get_enginevariables().engine_name);
    welcome(seat);
    engine(seat)->set_level(m_state.level);
    publish();
}

void EngineSeats::load_installed_engine(Seat seat, const std::string& name) {
    if (seat != Seat::first && seat != Seat::second) {
        throw std::logic_error("Manager::load_installed_engine eng_id error");
    }
    if (name.empty()) return;
    InstalledEngines installed;
    try {
        installed.read_engines_cfg();
    } catch (const std::runtime_error& error) {
        m_state.send(
            to_window::TellUser{"The_list_of_engines_can't_be_read", " " + text::one_line(error.what())});
        return;
    }
    const auto entry = installed.engines().find(name);
    if (entry == installed.engines().end()) return;

    const EngineVariables& stored = entry->second;
    load_engine(seat, stored.filename, stored.protocol);
    if (engine(seat) == nullptr) return;
    engine(seat)->set_enginevariables(stored);
    // Once more: only now is the stored handicap known, and the clock is cut by it here.
    engine(seat)->set_level(m_state.level);
    publish();
}

void EngineSeats::reload(Seat seat) {
    m_state.flush();
    auto& guest = *engine(seat);
    const EngineVariables variables = guest.get_enginevariables();
    guest.reload_engine();
    if (!guest.is_alive()) {
        unload(seat);
        report_failed_load(seat, at(seat).path);
        return;
    }
    welcome(seat);
    guest.set_enginevariables(variables);
    guest.set_level(m_state.level);
    publish();
    new_game_for_all();
    m_state.position.new_game();
}

void EngineSeats::replace_crashed(Seat seat) {
    to_window::TellUser crash{seat == Seat::first ? "engine1" : "engine2", " crashed"};
    if (at(seat).deaths.add(std::chrono::steady_clock::now())) {
        unload(seat);
        send_name(seat, no_name);
        crash.details += " three times within a minute and isn't started again";
        m_state.send(crash);
        return;
    }
    m_state.send(crash);
    // The reload puts the position to the start of a game; the window's game isn't touched, so ours stays,
    // too.
    const ChessPosition game = m_state.position;
    reload(seat);
    m_state.position = game;
}

/// The seat is empty before the engine is told to quit, so that nothing that this brings about finds it
/// there.
void EngineSeats::unload(Seat seat) {
    m_state.flush();
    const auto guest = std::move(at(seat).engine);
    if (seat == Seat::first) m_published.publish(std::nullopt);
    if (guest != nullptr) guest->unload_engine();
}

void EngineSeats::unload_all() noexcept {
    for (const auto seat : both_seats) {
        try {
            unload(seat);
        } catch (const std::exception& error) {
            std::cerr << error.what() << std::endl;
        }
    }
}

/// The id is new with each process: lines of the one before may still be on the queue.
void EngineSeats::welcome(Seat seat) {
    auto& guest = *engine(seat);
    guest.set_debug_stream(&m_state.log.file());
    guest.set_logging(m_state.log.is_on());
    guest.set_ponder(m_ponder);
    at(seat).instance_id = m_rng();
    guest.set_instance_id(at(seat).instance_id);
}

void EngineSeats::report_failed_load(Seat seat, const std::string& path) {
    send_name(seat, no_name);
    m_state.send(to_window::TellUser{path, " failed"});
}

void EngineSeats::send_name(Seat seat, const std::string& name) {
    m_state.send(to_window::EngineName{seat, name});
}

void EngineSeats::publish() {
    const auto* const guest = engine(Seat::first);
    m_published.publish(guest == nullptr ? std::nullopt : std::optional(guest->get_enginevariables()));
}

void EngineSeats::stop_all() {
    for (const auto& seat : m_seats) {
        if (seat.engine != nullptr) seat.engine->stop();
    }
}

void EngineSeats::new_game_for_all() {
    for (const auto& seat : m_seats) {
        if (seat.engine != nullptr) seat.engine->new_game();
    }
}

void EngineSeats::set_ponder(bool ponder) {
    m_ponder = ponder;
    for (const auto& seat : m_seats) {
        if (seat.engine != nullptr) seat.engine->set_ponder(ponder);
    }
}

void EngineSeats::pass_debug_flag() {
    for (const auto& seat : m_seats) {
        if (seat.engine != nullptr) seat.engine->set_logging(m_state.log.is_on());
    }
}

void EngineSeats::pass_level() {
    for (const auto& seat : m_seats) {
        if (seat.engine == nullptr) continue;
        seat.engine->set_level(m_state.level);
        m_state.send(clock_of(*seat.engine));
    }
    publish();
}

void EngineSeats::set_option(const std::string& name, const std::string& value) {
    auto* const guest = engine(Seat::first);
    if (guest == nullptr) return;
    guest->set_option(name, value);
    publish();
}

Side side_of(const GuiEngine& engine) { return engine.is_white() ? Side::white : Side::black; }

to_window::SetClock clock_of(const GuiEngine& engine) {
    return {side_of(engine), engine.state().clock.time_left()};
}

void prepare_to_move(GuiEngine& engine, const ChessPosition& position) {
    if (engine.state().status == EngineStatus::thinking) engine.stop();
    engine.set_position(position);
}

}  // namespace velmora
