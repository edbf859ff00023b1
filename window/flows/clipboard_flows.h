#pragma once

#include <functional>
#include <string>
#include <utility>

#include "window/flows/file_flows.h"
#include "window/session/clipboard.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/window_frame.h"

namespace velmora {

/// Positions and games to and from the clipboard, and the tags of the game.
///
/// What is pasted may come from anywhere, so it is read by the reader that forgives most. What can't be read
/// is said with its place and changes nothing.
class ClipboardFlows {
public:
    /// @param say  tells the person something that needs no answer
    ClipboardFlows(GameSession& session, const WindowFrame& frame, Dialogs& dialogs, FileFlows& files,
                   Clipboard& clipboard, std::function<void(const std::string&)> say)
        : m_session(session),
          m_frame(frame),
          m_dialogs(dialogs),
          m_files(files),
          m_clipboard(clipboard),
          m_say(std::move(say)) {}

    void copy_position();
    void copy_game();
    void paste();
    void edit_tags();

private:
    void take(const std::string& text);

    GameSession& m_session;
    const WindowFrame& m_frame;
    Dialogs& m_dialogs;
    FileFlows& m_files;
    Clipboard& m_clipboard;
    const std::function<void(const std::string&)> m_say;
};

}  // namespace velmora
