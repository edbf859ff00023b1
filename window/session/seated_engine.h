#pragma once

#include <functional>
#include <optional>
#include <string>

#include "engine/store/engine_variables.h"
#include "window/session/dialogs.h"
#include "window/session/manager_link.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The title of a window without an engine, which also stands for the name of the engine that isn't there.
inline constexpr const char* no_engine_title = "Velmora (no engine loaded)";

/// What the window knows of the engine in the referee's first seat, and what follows from that on the screen:
/// the title, and which entries of the menu are of use.
///
/// To find out how to talk to a program takes the referee up to fifteen seconds, in which it says nothing. So
/// the window keeps in mind what it has asked for, until the referee answers with a name or with a message.
///
/// An answer counts only if the referee had taken the request when it gave it: the name of the engine
/// before may still be on its way when the next one is asked for.
class SeatedEngine {
public:
    /// @param protocol  asks the referee which protocol the engine in the first seat speaks; nothing when
    ///                  nobody sits there
    SeatedEngine(WindowFrame& frame, Dialogs& dialogs, const ManagerLink& manager,
                 std::function<std::optional<Protocol>()> protocol);

    /// "load" has been sent, for a program that is known to the person by this name.
    void begin_load(const std::string& name, Protocol asked_for);
    /// "start_tournament" has been sent: the referee sends the engines away and seats those of the match.
    void begin_match();
    /// The mode of the match has been left, which may have been before its engines came.
    /// The referee has unloaded the engines of the person at its start, so who sits there is asked for.
    void leave_match();

    /// The referee has named who sits there.
    void take_name(const std::string& name);
    /// The referee has said what it says only when it has no engine to look for any more.
    void end_search();

    /// The name of what is being looked for, empty while nothing is.
    const std::string& sought() const { return m_search == Search::none ? m_nothing : m_sought; }

    /// Whether an engine sits there and none is being looked for.
    bool is_there() const { return m_there && m_search == Search::none; }

    /// The name by which it was given, whether it is still there or not.
    const std::string& name() const { return m_name; }

    /// The title that stands while no engine is being looked for.
    void set_title(const std::string& title);

    /// Brings title and menu up to date.
    void show();

private:
    enum class Search { none, engine, match };

    void settle();
    void tell_of_silence();

    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    const ManagerLink& m_manager;
    const std::function<std::optional<Protocol>()> m_protocol;
    const std::string m_nothing;
    Search m_search = Search::none;
    std::string m_sought;                         // the name of what is being looked for
    Protocol m_asked_for = Protocol::autodetect;  // how it is to be talked to
    bool m_there = false;                         // whether somebody sat there when it was last heard of
    std::string m_name = no_engine_title;
    std::string m_title = no_engine_title;
};

}  // namespace velmora
