#include "dialogs/files/game_list.h"

#include <memory>

#include "game/tag_scanner.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

class GameSource : public EntrySource {
public:
    explicit GameSource(const std::string& path) : m_scanner(path) {}

    bool next(FileEntry& entry) override {
        if (!m_scanner.next(m_header)) return false;
        entry.offset = m_header.offset;
        entry.cells.clear();
        for (const char* name : {"White", "Black", "Result", "Date"}) {
            entry.cells.push_back(shown_bytes(m_header.tag(name), longest_cell));
        }
        return true;
    }
    std::uint64_t position() const override { return m_scanner.position(); }
    std::uint64_t file_size() const override { return m_scanner.file_size(); }

private:
    TagScanner m_scanner;
    GameHeader m_header;
};

}  // namespace

GameList::GameList() : GameList(ModelColumns()) {}

GameList::GameList(const ModelColumns& columns)
    : ChooserList(columns,
                  {{columns.white, "White", 20, true},
                   {columns.black, "Black", 20, true},
                   {columns.result, "Result", 8, false},
                   {columns.date, "Date", 11, false}},
                  "game") {}

int GameList::choose_game(Gtk::Window& parent, const std::string& path) {
    const auto choice = choose(parent, "Choose Game", [path] { return std::make_unique<GameSource>(path); });
    if (!choice) return 0;
    m_chosen_offset = choice->entry.offset;
    return choice->number;
}

}  // namespace velmora
