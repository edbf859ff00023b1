#include "engine/drivers/gui_engine.h"

#include <functional>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "engine/drivers/base_engine.h"
#include "engine/drivers/protocol_engine.h"
#include "engine/drivers/uci_engine.h"
#include "engine/drivers/xboard_engine.h"
#include "engine/process/engio.h"

namespace velmora {

GuiEngine::GuiEngine(std::chrono::milliseconds probe_interval, std::stop_token leaving)
    : m_probe_interval(probe_interval),
      m_leaving(std::move(leaving)),
      m_engio(std::make_unique<Engio>(m_leaving)) {}

GuiEngine::~GuiEngine() { unload_engine(); }

void GuiEngine::load_engine(CommandSink* manager, std::uint32_t id, const std::string& filename,
                            Protocol protocol) {
    unload_engine();
    m_manager = manager;
    m_filename = filename;
    auto probe = std::make_unique<ProtocolEngine>(m_probe_interval, m_leaving);
    ProtocolEngine& prober = *probe;
    m_engine = std::move(probe);
    m_engine->attach(id, &m_variables, m_engio.get());
    if (id < 1) return;
    start_process();
    prober.load(id, filename, protocol, m_debug);
    if (prober.ended_at_uci()) {
        restart_process();
        prober.go_on_with_xboard();
    }
    if (!prober.is_alive()) {
        // A process that died in the probe has left a reader and a process to be reaped.
        quit_engine();
        return;
    }
    m_engine_id = id;
    m_protocol = prober.protocol();
    replace_probe();
}

void GuiEngine::start_process() {
    m_engio->spawn_engine(m_filename);
    m_engio->set_engine(m_engine.get());
    if (m_engio->is_spawned()) m_reader = std::thread(std::ref(*m_engio));
}

void GuiEngine::end_process() {
    m_engio->quit();
    if (m_reader.joinable()) m_reader.join();
}

/// A fresh process of the same program for the same driver.
void GuiEngine::restart_process() {
    end_process();
    m_engine->clear_queue();
    m_engio->set_logging(m_debug);
    start_process();
}

/// Puts the driver of the protocol that was found in place of the probe. A version 1 engine keeps the probe:
/// it is loaded and shown, but gets no commands and never moves.
void GuiEngine::replace_probe() {
    std::unique_ptr<BaseEngine> driver;
    if (m_protocol == Protocol::uci) {
        driver = std::make_unique<UciEngine>();
    } else if (m_protocol == Protocol::xboard_v2) {
        driver = std::make_unique<XboardEngine>();
    }
    if (!driver && m_protocol != Protocol::xboard_v1) {
        quit_engine();
        return;
    }
    if (driver) {
        driver->set_debug(m_debug);
        driver->attach(m_engine_id, &m_variables, m_engio.get());
        m_engio->set_engine(driver.get());
        m_engine = std::move(driver);
    }
    // Last, so that no line reaches the referee before the driver stands.
    m_engine->set_manager(m_manager);
}

/// Ends the process, the reader and the driver, as far as they are there.
void GuiEngine::quit_engine() {
    end_process();
    m_engio->set_engine(nullptr);
    m_engine.reset();
}

void GuiEngine::unload_engine() {
    stop();
    quit_engine();
}

void GuiEngine::reload_engine() {
    if (!m_engine) std::cerr << "GuiEngine::reload_engine()   m_peng==nullptr\n";
    load_engine(m_manager, m_engine_id, std::string(m_filename), m_protocol);
    if (m_engine) m_engine->new_game();
}

/// What `question` answers about the record, `absent` with no driver.
template <class Answer, class Question>
Answer GuiEngine::ask(Answer absent, Question question) const {
    return m_engine ? Answer(m_engine->with_variables(question)) : absent;
}

/// Lets `change` have the record of a loaded engine.
template <class Change>
void GuiEngine::tell(Change change) {
    if (m_engine) m_engine->with_variables(change);
}

EngineVariables GuiEngine::get_enginevariables() const {
    if (!m_engine) throw std::logic_error("GuiEngine::get_enginevariables no engine found");
    return m_engine->with_variables([](const EngineVariables& v) { return v; });
}

void GuiEngine::set_enginevariables(const EngineVariables& variables) {
    if (m_engine) m_engine->set_variables(variables);
}

void GuiEngine::set_option(const std::string& name, const std::string& value) {
    if (m_engine) m_engine->set_option(name, value);
}

Options GuiEngine::get_options() const {
    return ask(Options(), [](const EngineVariables& v) { return v.options; });
}

Level GuiEngine::get_level() const {
    return ask(Level(), [](const EngineVariables& v) { return v.level; });
}

void GuiEngine::set_level(const Level& level) {
    tell([&level](EngineVariables& v) { v.set_level(level); });
}

bool GuiEngine::is_alive() const { return m_engine && m_engine->is_alive(); }

bool GuiEngine::has_crashed() const { return m_engine && m_engine->has_crashed(); }

bool GuiEngine::is_white() const {
    return ask(false, [](const EngineVariables& v) { return v.is_white; });
}

void GuiEngine::set_white(bool white) {
    tell([white](EngineVariables& v) { v.is_white = white; });
}

std::uint32_t GuiEngine::get_engine_id() const { return m_engine ? m_engine->engine_id() : 0; }

EngineStatus GuiEngine::status() const {
    return ask(EngineStatus::idle, [](const EngineVariables& v) { return v.status; });
}

std::int32_t GuiEngine::time_left() const {
    return ask(0, [](const EngineVariables& v) { return v.clock.time_left(); });
}

std::int32_t GuiEngine::move_time() const {
    return ask(0, [](const EngineVariables& v) { return v.clock.move_time(); });
}

std::chrono::steady_clock::time_point GuiEngine::moved_at() const {
    return ask(std::chrono::steady_clock::time_point(),
               [](const EngineVariables& v) { return v.clock.moved_at(); });
}

std::int32_t GuiEngine::increment() const {
    return ask(0, [](const EngineVariables& v) { return v.clock.increment(); });
}

std::int64_t GuiEngine::opponent_time() const {
    return ask(std::int64_t{0}, [](const EngineVariables& v) { return v.opponent_time; });
}

std::int32_t GuiEngine::moves_to_go() const {
    return ask(1, [](const EngineVariables& v) { return v.clock.moves_to_go(); });
}

void GuiEngine::set_opponent_time(std::int64_t milliseconds) {
    if (m_engine) {
        m_engine->with_variables([milliseconds](EngineVariables& v) { v.opponent_time = milliseconds; });
    } else {
        m_variables.opponent_time = milliseconds;
    }
}

void GuiEngine::restart_clock() {
    tell([](EngineVariables& v) { v.clock.restart(); });
}

void GuiEngine::start_clock() {
    tell([](EngineVariables& v) { v.clock.start_clock(); });
}

void GuiEngine::move_and_stop_clock(std::uint32_t stamp) {
    tell([stamp](EngineVariables& v) { v.clock.move_and_stop_clock(stamp); });
}

void GuiEngine::set_moves_done(std::int32_t moves) {
    tell([moves](EngineVariables& v) { v.clock.set_moves_done(moves); });
}

std::string GuiEngine::engine_name() const {
    return ask(std::string(), [](const EngineVariables& v) { return v.engine_name; });
}

std::string GuiEngine::player_name() const {
    return ask(std::string(), [](const EngineVariables& v) { return v.player_name; });
}

std::string GuiEngine::elo() const {
    return ask(std::string(), [](const EngineVariables& v) { return v.elo; });
}

void GuiEngine::set_ponder(bool on) {
    if (m_engine) m_engine->set_ponder(on);
}

void GuiEngine::new_game() {
    if (m_engine) m_engine->new_game();
}

void GuiEngine::set_position(const ChessPosition& position) {
    if (m_engine) m_engine->set_position(position);
}

void GuiEngine::go() {
    if (m_engine) m_engine->go();
}

void GuiEngine::go_infinite() {
    if (m_engine) m_engine->go_infinite();
}

void GuiEngine::stop() {
    if (m_engine) m_engine->stop();
}

void GuiEngine::clear_queue() {
    if (m_engine) m_engine->clear_queue();
}

void GuiEngine::set_logging(bool on) {
    m_debug = on;
    if (!m_engine) return;
    m_engio->set_logging(on);
    m_engine->set_debug(on);
}

void GuiEngine::set_debug_stream(LogFile* stream) {
    if (m_engine) m_engine->set_debug_stream(stream);
}

void GuiEngine::set_instance_id(std::uint64_t instance_id) {
    if (m_engine) m_engine->set_instance_id(instance_id);
}

std::optional<pthread_t> GuiEngine::reader() {
    return m_reader.joinable() ? std::optional(m_reader.native_handle()) : std::nullopt;
}

}  // namespace velmora
