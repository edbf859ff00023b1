#include "window/flows/clipboard_flows.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

#include "game/foreign/pasted_text.h"
#include "game/pgn_error.h"

namespace velmora {

namespace {

/// Games in a file of their own, for as long as one of them is chosen.
class PastedFile {
public:
    explicit PastedFile(const std::vector<ForeignGame>& games) {
        constexpr int extension_length = 4;
        const int file = ::mkstemps(m_path.data(), extension_length);
        if (file < 0) throw std::runtime_error("There is no room for them in " + m_path);
        ::close(file);
        std::ofstream out(m_path, std::ios::binary);
        for (const auto& game : games) out << game.text << '\n';
        if (!out.flush()) throw std::runtime_error("There is no room for them in " + m_path);
    }
    ~PastedFile() {
        std::error_code gone;
        std::filesystem::remove(m_path, gone);
    }
    PastedFile(const PastedFile&) = delete;
    PastedFile& operator=(const PastedFile&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path = (std::filesystem::temp_directory_path() / "pasted-XXXXXX.pgn").string();
};

/// What couldn't be kept of a game; another spelling of what it says is no news.
std::string losses_of(const ForeignGame& game) {
    std::string text;
    for (const auto& remark : game.remarks) {
        if (is_loss(remark.kind)) text += (text.empty() ? "" : "; ") + describe(remark);
    }
    return text;
}

}  // namespace

void ClipboardFlows::copy_position() {
    m_clipboard.put(m_session.position().fen());
    m_say("The position is copied.");
}

void ClipboardFlows::copy_game() {
    m_clipboard.put(m_session.text_to_save());
    m_say("The game is copied.");
}

void ClipboardFlows::paste() {
    m_clipboard.ask([this](const std::string& text) { take(text); });
}

void ClipboardFlows::take(const std::string& text) {
    if (m_frame.mode() == Mode::tournament) return m_say("A match is being played: leave it to paste.");
    const PastedText pasted = read_pasted(text);
    switch (pasted.kind) {
        case PastedText::Kind::nothing:
            return m_say("Nothing was pasted: " + pasted.fault);
        case PastedText::Kind::position:
            return m_files.enter_position(pasted.position);
        case PastedText::Kind::games:
            break;
    }
    try {
        if (pasted.games.size() > 1) return m_files.choose_game_of(PastedFile(pasted.games).path());
        const ForeignGame& only = pasted.games.front();
        Game game;
        game.parse_pgn(only.text);
        m_files.open_game(std::move(game));
        if (const auto losses = losses_of(only); !losses.empty()) m_say("In what was pasted: " + losses);
    } catch (const pgn_error& error) {
        m_say("Nothing was pasted: " + error.text());
    } catch (const std::exception& error) {
        m_say("Nothing was pasted: " + std::string(error.what()));
    }
}

void ClipboardFlows::edit_tags() {
    TagList tags;
    for (const auto& name : m_session.record().tags().order()) {
        tags.emplace_back(name, m_session.record().tag(name));
    }
    const auto edited = m_dialogs.edit_tags(tags);
    if (edited) m_session.edit([&edited](Game& game) { return game.replace_tags(*edited); });
}

}  // namespace velmora
