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

std::optional<std::int32_t> RecordEditor::add_line(std::int32_t node, std::span<const Move> moves) {
    std::optional<std::int32_t> reached;
    m_session.edit([&](Game& game) {
        const auto stood = game.current();
        if (!game.tree().has_node(node)) return false;
        game.go_to(node);
        const auto last = game.current() == node ? game.add_line(moves) : node;
        // Where the line took the place of a result, what stood there is gone.
        game.go_to(game.tree().has_node(stood) ? stood : node);
        if (last != node) reached = last;
        return reached.has_value();
    });
    return reached;
}

}  // namespace velmora
