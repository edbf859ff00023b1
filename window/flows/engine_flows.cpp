#include "window/flows/engine_flows.h"

#include <filesystem>
#include <stdexcept>
#include <utility>
#include <vector>

#include "engine/store/installed_engines.h"
#include "engine/store/option_lists.h"
#include "engine/store/strength.h"

namespace velmora {

namespace {

/// The record that stands for the engine that isn't there.
constexpr const char* placeholder_name = "no_engine_loaded";

bool list_is_empty() {
    InstalledEngines list;
    list.read_engines_cfg();
    return list.engines().empty();
}

/// What an engine calls itself, with a number behind it where another one has the name.
std::string free_name(const std::string& wanted, const InstalledEngines::Map& engines) {
    std::string name = wanted;
    for (int number = 2; engines.contains(name); ++number) name = wanted + ' ' + std::to_string(number);
    return name;
}

}  // namespace

EngineFlows::EngineFlows(GameSession& session, WindowFrame& frame, Dialogs& dialogs, ManagerLink& manager,
                         ModeController& modes, SeatedEngine& engine,
                         std::function<EngineVariables()> engine_variables)
    : m_session(session),
      m_frame(frame),
      m_dialogs(dialogs),
      m_manager(manager),
      m_modes(modes),
      m_engine(engine),
      m_engine_variables([ask = std::move(engine_variables)] {
          try {
              return ask();
          } catch (const std::logic_error&) {
              EngineVariables nobody;
              nobody.name = placeholder_name;
              return nobody;
          }
      }) {}

void EngineFlows::send_load(const to_referee::Load& command, const std::string& name, Protocol protocol) {
    m_manager.send(command);
    m_engine.begin_load(name, protocol);
    // The referee stands at the start of a game after a load, the board doesn't.
    if (m_frame.mode() == Mode::tournament) return;
    m_modes.follow_position();
}

void EngineFlows::load() {
    const std::string path = m_dialogs.choose_file(FileKind::engine);
    if (path.empty()) return;
    const auto protocol = m_dialogs.choose_protocol();
    if (!protocol) return;
    send_load({static_cast<int>(*protocol), to_referee::Load::Source::filename, path},
              std::filesystem::path(path).filename(), *protocol);
}

void EngineFlows::load_installed() {
    try {
        // With an empty list there would be nothing to choose.
        if (list_is_empty()) {
            find();
            if (list_is_empty()) return;
        }
        const auto engine = m_dialogs.choose_installed();
        if (engine && !engine->name.empty()) {
            send_load({0, to_referee::Load::Source::name, engine->name}, engine->name, engine->protocol);
        }
    } catch (const std::exception& error) {
        m_dialogs.tell_user("The list of engines can't be used", error.what());
    }
}

void EngineFlows::install() {
    const EngineVariables engine = m_engine_variables();
    if (engine.name == placeholder_name) {
        m_dialogs.tell_user("No engine to install",
                            "you should first load an engine\n before installialling an engine");
        return;
    }
    try {
        m_dialogs.install(engine);
    } catch (const std::exception& error) {
        m_dialogs.tell_user("The engine was not installed", error.what());
    }
}

void EngineFlows::find() {
    try {
        InstalledEngines list;
        list.read_engines_cfg();
        std::vector<std::string> paths;
        for (const auto& [name, engine] : list.engines()) paths.push_back(engine.filename);
        const auto found = m_dialogs.find_engines(paths);
        if (found.empty()) return;
        for (EngineVariables engine : found) {
            engine.name = free_name(engine.engine_name, list.engines());
            list.add_engine(engine);
        }
        list.write_engines_cfg();
    } catch (const std::exception& error) {
        m_dialogs.tell_user("The engines were not installed", error.what());
    }
}

void EngineFlows::choose_strength() {
    const EngineVariables engine = m_engine_variables();
    if (engine.name == placeholder_name) {
        return m_dialogs.tell_user("No engine is loaded", "Load the engine that is to play weaker.");
    }
    const auto control = strength_of(engine.options);
    if (!control) {
        return m_dialogs.tell_user("This engine plays with full strength only",
                                   engine.engine_name + " has no option for it.");
    }
    const auto strength = m_dialogs.ask_strength(engine.engine_name, *control);
    if (!strength) return;
    for (const auto& [name, value] : options_of_strength(*control, *strength)) {
        m_manager.send(to_referee::SetOption{name, value});
    }
}

void EngineFlows::choose_time_control() {
    const auto level = m_dialogs.ask_time_control(m_session.level());
    if (!level) return;
    m_session.set_level(*level);
    m_manager.send(to_referee::SetLevel{m_session.level().text()});
}

void EngineFlows::edit_options() {
    const EngineVariables engine = m_engine_variables();
    if (engine.name == placeholder_name) {
        m_dialogs.tell_user("No engine found", "use menu 'Engine' to load an engine'");
        return;
    }
    const std::vector<Option> before = option_lists::for_dialog(engine.options);
    std::vector<Option> after;
    try {
        after = m_dialogs.edit_options(before);
    } catch (const std::exception& error) {
        m_dialogs.tell_user("The options can't be shown", error.what());
        return;
    }
    for (const Option& option : option_lists::changed(before, after)) {
        m_manager.send(to_referee::SetOption{option.name, option.value});
    }
}

}  // namespace velmora
