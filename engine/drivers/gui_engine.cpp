#include "engine/drivers/gui_engine.h"

#include <functional>
#include <iostream>
#include <stdexcept>
#include <utility>

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
    auto owned_probe = std::make_unique<ProtocolEngine>(m_probe_interval, m_leaving);
    ProtocolEngine& probe = *owned_probe;
    m_engine = std::move(owned_probe);
    probe.attach(id, &m_record, m_engio.get());
    // Seats are counted from 1.
    if (id < 1) return;
    start_process();
    probe.load(id, filename, protocol, m_debug);
    if (probe.ended_at_uci()) {
        restart_process();
        probe.go_on_with_xboard();
    }
    if (!probe.is_alive()) {
        // A process that died in the probe has left a reader and a process to be reaped.
        quit_engine();
        return;
    }
    m_engine_id = id;
    m_protocol = probe.protocol();
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

/// Puts the driver of the protocol that was found in place of the probe. A version 1 engine keeps the probe.
void GuiEngine::replace_probe() {
    if (m_protocol == Protocol::xboard_v1) return;
    std::unique_ptr<PlayingEngine> player;
    if (m_protocol == Protocol::uci) {
        player = std::make_unique<UciEngine>();
    } else if (m_protocol == Protocol::xboard_v2) {
        player = std::make_unique<XboardEngine>();
    } else {
        return quit_engine();
    }
    player->set_debug(m_debug);
    player->attach(m_engine_id, &m_record, m_engio.get());
    m_engio->set_engine(player.get());
    m_player = player.get();
    m_engine = std::move(player);
    // Last, so that no line reaches the referee before the driver stands.
    m_player->set_manager(m_manager);
}

/// Ends the process, the reader and the driver, as far as they are there.
void GuiEngine::quit_engine() {
    end_process();
    m_engio->set_engine(nullptr);
    m_player = nullptr;
    m_engine.reset();
}

void GuiEngine::unload_engine() {
    stop();
    quit_engine();
}

void GuiEngine::reload_engine() {
    if (!m_engine) std::cerr << "GuiEngine::reload_engine()   m_peng==nullptr\n";
    load_engine(m_manager, m_engine_id, std::string(m_filename), m_protocol);
    new_game();
}

EngineVariables GuiEngine::get_enginevariables() const {
    if (!m_engine) throw std::logic_error("GuiEngine::get_enginevariables no engine found");
    return m_engine->with_record([](const EngineRecord& record) { return record.variables; });
}

void GuiEngine::set_enginevariables(const EngineVariables& variables) {
    if (m_engine) m_engine->set_variables(variables);
    if (m_player != nullptr) m_player->send_options();
}

void GuiEngine::set_option(const std::string& name, const std::string& value) {
    if (m_player != nullptr) m_player->set_option(name, value);
}

bool GuiEngine::is_alive() const { return m_engine && m_engine->is_alive(); }

bool GuiEngine::has_crashed() const { return m_engine && m_engine->has_crashed(); }

PlayState GuiEngine::state() const {
    if (m_engine) return m_engine->with_record([](const EngineRecord& record) { return record.state; });
    PlayState nobody;
    nobody.clock.set_time_left(0);
    nobody.is_white = false;
    return nobody;
}

/// Lets `change` have the record of a loaded engine.
template <class Change>
void GuiEngine::change_record(Change change) {
    if (m_engine) m_engine->with_record(change);
}

void GuiEngine::set_level(const Level& level) {
    change_record([&](EngineRecord& own) { own.state.set_level(level, own.variables.handicap); });
}

bool GuiEngine::is_white() const {
    return m_engine &&
           m_engine->with_record([](const EngineRecord& record) { return record.state.is_white; });
}

void GuiEngine::set_white(bool white) {
    change_record([white](EngineRecord& own) { own.state.is_white = white; });
}

void GuiEngine::set_opponent_time(std::int64_t milliseconds) {
    change_record([milliseconds](EngineRecord& own) { own.state.opponent_time = milliseconds; });
}

void GuiEngine::set_moves_done(std::int32_t moves) {
    change_record([moves](EngineRecord& own) { own.state.clock.set_moves_done(moves); });
}

void GuiEngine::set_time_left(std::int32_t milliseconds) {
    change_record([milliseconds](EngineRecord& own) { own.state.clock.set_time_left(milliseconds); });
}

void GuiEngine::set_ponder(bool on) {
    if (m_player != nullptr) m_player->set_ponder(on);
}

void GuiEngine::new_game() {
    if (m_player != nullptr) m_player->new_game();
}

void GuiEngine::set_position(const ChessPosition& position) {
    if (m_player != nullptr) m_player->set_position(position);
}

void GuiEngine::go() {
    if (m_player != nullptr) m_player->go();
}

void GuiEngine::go_infinite() {
    if (m_player != nullptr) m_player->go_infinite();
}

void GuiEngine::stop() {
    if (m_player != nullptr) m_player->stop();
}

void GuiEngine::move_now() {
    if (m_player != nullptr) m_player->move_now();
}

void GuiEngine::offer_draw() {
    if (m_player != nullptr) m_player->offer_draw();
}

void GuiEngine::set_logging(bool on) {
    m_debug = on;
    if (m_engine) m_engio->set_logging(on);
    if (m_player != nullptr) m_player->set_debug(on);
}

void GuiEngine::set_debug_stream(LogFile* stream) {
    if (m_player != nullptr) m_player->set_debug_stream(stream);
}

void GuiEngine::set_instance_id(std::uint64_t instance_id) {
    if (m_player != nullptr) m_player->set_instance_id(instance_id);
}

std::optional<pthread_t> GuiEngine::reader() {
    return m_reader.joinable() ? std::optional(m_reader.native_handle()) : std::nullopt;
}

}  // namespace velmora
