#include "dialogs/files/game_list.h"

#include <algorithm>
#include <memory>
#include <span>

#include <glibmm/main.h>

#include "game/foreign/foreign_file.h"
#include "game/tag_scanner.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

class GameSource : public EntrySource {
public:
    explicit GameSource(const std::string& path) : m_scanner(path), m_is_utf16(is_utf16_file(path)) {}

    bool next(FileEntry& entry) override {
        if (m_is_utf16 || !m_scanner.next(m_header)) return false;
        entry = game_entry(m_header);
        return true;
    }
    std::uint64_t position() const override { return m_scanner.position(); }
    std::uint64_t file_size() const override { return m_scanner.file_size(); }

private:
    TagScanner m_scanner;
    bool m_is_utf16;  // then the survey finds all games
    GameHeader m_header;
};

/// "3 games are repaired, 1 can't be read whole"; empty when there are none.
std::string found_text(std::size_t repaired, std::size_t damaged) {
    const auto games = [](std::size_t count) {
        return std::to_string(count) + (count == 1 ? " game" : " games");
    };
    std::string text;
    if (repaired > 0) text = games(repaired) + (repaired == 1 ? " is repaired" : " are repaired");
    if (damaged > 0) text += (text.empty() ? "" : ", ") + games(damaged) + " can't be read whole";
    return text;
}

}  // namespace

FileEntry game_entry(const GameHeader& header) {
    FileEntry entry;
    entry.offset = header.offset;
    for (const char* name : {"White", "Black", "Result", "Date"}) {
        entry.cells.push_back(shown_bytes(header.tag(name), longest_cell));
    }
    return entry;
}

GameList::GameList() : GameList(ModelColumns()) {}

GameList::GameList(const ModelColumns& columns)
    : ChooserList(columns,
                  {{columns.white, "White", 20, true},
                   {columns.black, "Black", 20, true},
                   {columns.result, "Result", 8, false},
                   {columns.date, "Date", 11, false}},
                  "game") {
    m_found.set_xalign(0);
    m_found.set_line_wrap(true);
    m_found_box.pack_start(m_found, Gtk::PACK_EXPAND_WIDGET);
    m_found_box.pack_start(m_show, Gtk::PACK_SHRINK);
    m_found_box.show_all();
    m_found_box.set_no_show_all(true);
    m_found_box.hide();
    m_show.signal_clicked().connect([this] {
        if (auto* window = dynamic_cast<Gtk::Window*>(get_toplevel())) show_remarks(*window, m_remarks);
    });
    pack_start(m_found_box, Gtk::PACK_SHRINK);
}

GameList::~GameList() { m_timer.disconnect(); }

void GameList::on_listed() {
    m_listed = entries().size();
    m_survey = std::make_unique<GameSurvey>(m_path);
    constexpr unsigned interval_ms = 20;
    m_timer = Glib::signal_timeout().connect(sigc::mem_fun(*this, &GameList::take_found), interval_ms,
                                             Glib::PRIORITY_DEFAULT_IDLE);
}

void GameList::on_left() {
    m_timer.disconnect();
    m_survey.reset();
}

/// False when the file has been looked through.
bool GameList::take_found() {
    std::vector<FoundGame> games;
    const bool goes_on = m_survey->take(games);
    for (const auto& found : games) take(found);
    if (!games.empty()) show_found();
    return goes_on;
}

void GameList::take(const FoundGame& found) {
    const int number = number_of(found);
    if (found.is_repaired) ++m_repaired;
    if (found.is_damaged) ++m_damaged;
    if (!found.is_repaired && !found.is_damaged) return;
    const auto& cells = found.entry.cells;
    for (const auto& remark : found.remarks) {
        m_remarks.push_back({number, cells[0] + " - " + cells[1], shown_bytes(remark)});
    }
}

/// The row in which a game stands; one is added where it has none.
int GameList::number_of(const FoundGame& found) {
    const auto listed = std::span(entries()).first(m_listed);
    const auto row = std::ranges::lower_bound(listed, found.entry.offset, {}, &FileEntry::offset);
    if (row != listed.end() && row->offset < found.entry.offset + found.size)
        return static_cast<int>(row - listed.begin()) + 1;
    add_entry(found.entry);
    return static_cast<int>(entries().size());
}

void GameList::show_found() {
    const auto text = found_text(m_repaired, m_damaged);
    m_found.set_text(text);
    m_found_box.set_visible(!text.empty());
}

int GameList::choose_game(Gtk::Window& parent, const std::string& path) {
    m_path = path;
    m_repaired = m_damaged = 0;
    m_remarks.clear();
    show_found();
    const auto choice = choose(parent, "Choose Game", [path] { return std::make_unique<GameSource>(path); });
    if (!choice) return 0;
    m_chosen_offset = choice->entry.offset;
    return choice->number;
}

}  // namespace velmora
