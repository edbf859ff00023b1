#include "window/session/seated_engine.h"

#include <utility>

namespace velmora {

SeatedEngine::SeatedEngine(WindowFrame& frame, Dialogs& dialogs, const ManagerLink& manager,
                           std::function<std::optional<Protocol>()> protocol)
    : m_frame(frame), m_dialogs(dialogs), m_manager(manager), m_protocol(std::move(protocol)) {}

void SeatedEngine::begin_load(const std::string& name, Protocol asked_for) {
    m_search = Search::engine;
    m_sought = name;
    m_asked_for = asked_for;
    show();
}

void SeatedEngine::begin_match() {
    m_search = Search::match;
    m_sought = "engines";
    show();
}

void SeatedEngine::leave_match() {
    if (m_search == Search::match) m_search = Search::none;
    m_there = m_protocol().has_value();
    if (!m_there) m_name = m_title = no_engine_title;
    show();
}

void SeatedEngine::take_name(const std::string& name) {
    m_name = m_title = name;
    const bool answers = m_search == Search::engine && m_manager.referee_took_load();
    if (answers) m_search = Search::none;
    settle();
    if (answers) tell_of_silence();
}

void SeatedEngine::end_search() {
    if (m_search == Search::none || !m_manager.referee_took_load()) return;
    m_search = Search::none;
    settle();
}

/// Who sits there decides, not the name: an engine may have none, and then it is called like nobody.
void SeatedEngine::settle() {
    m_there = m_protocol().has_value();
    show();
    const Mode mode = m_frame.mode();
    const bool needs_engine = mode == Mode::human_computer || mode == Mode::analyze_position;
    if (needs_engine && !m_there && m_search == Search::none) m_frame.select_mode(Mode::human_human);
}

void SeatedEngine::tell_of_silence() {
    if (m_asked_for != Protocol::autodetect || m_protocol() != Protocol::xboard_v1) return;
    m_dialogs.tell_user(
        "No answer from " + m_sought,
        "It is taken for an xboard engine of version 1, which gets no commands and never moves.");
}

void SeatedEngine::set_title(const std::string& title) {
    m_title = title;
    show();
}

void SeatedEngine::show() {
    m_frame.set_title(m_search == Search::none ? m_title : "Loading " + m_sought + "...");
    for (const MenuEntry entry : {MenuEntry::install_engine, MenuEntry::engine_options}) {
        m_frame.set_sensitive(entry, m_search == Search::none);
    }
    for (const Mode mode : {Mode::human_computer, Mode::analyze_position}) {
        m_frame.set_sensitive(mode, is_there());
    }
    m_frame.set_sensitive(MenuEntry::start_thinking, is_there() && m_frame.mode() == Mode::human_computer);
}

}  // namespace velmora
