#include "window/session/record_editor.h"

#include <string>

namespace velmora {

bool RecordEditor::promote(std::int32_t id) {
    return m_session.edit([id](Game& game) { return game.promote(id); });
}

bool RecordEditor::make_main_line(std::int32_t id) {
    return m_session.edit([id](Game& game) { return game.make_main_line(id); });
}

bool RecordEditor::delete_from(std::int32_t id) {
    return m_session.edit([id](Game& game) { return game.delete_from(id); });
}

bool RecordEditor::delete_variation(std::int32_t id) {
    return m_session.edit([id](Game& game) { return game.delete_variation(id); });
}

bool RecordEditor::undo() {
    return m_session.edit([](Game& game) { return game.undo_edit(); });
}

bool RecordEditor::set_symbol(std::int32_t id, std::string_view glyph) {
    return m_session.edit([id, glyph](Game& game) { return game.set_symbol(id, glyph); });
}

std::int32_t RecordEditor::add_line(std::span<const Move> moves) {
    std::int32_t reached = m_session.record().current();
    m_session.edit([&](Game& game) {
        const auto before = reached;
        reached = game.add_line(moves);
        return reached != before;
    });
    return reached;
}

}  // namespace velmora
