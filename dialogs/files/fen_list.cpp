#include "dialogs/files/fen_list.h"

#include <memory>
#include <utility>

#include "game/position_lines.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

class PositionSource : public EntrySource {
public:
    explicit PositionSource(const std::string& path) : m_lines(path) {}

    bool next(FileEntry& entry) override {
        if (!m_lines.next(entry.text)) return false;
        entry.offset = m_lines.line_offset();
        entry.cells = {shown_bytes(entry.text, longest_cell)};
        return true;
    }
    std::uint64_t position() const override { return m_lines.position(); }
    std::uint64_t file_size() const override { return m_lines.file_size(); }

private:
    PositionLines m_lines;
};

}  // namespace

FenList::FenList() : FenList(ModelColumns()) {}

FenList::FenList(const ModelColumns& columns)
    : ChooserList(columns, {{columns.fen, "Fen", 60, true}}, "position") {}

int FenList::choose_position(Gtk::Window& parent, const std::string& path, std::string& fen) {
    auto choice =
        choose(parent, "Choose Position", [path] { return std::make_unique<PositionSource>(path); });
    if (!choice) return 0;
    fen = std::move(choice->entry.text);
    return choice->number;
}

}  // namespace velmora
