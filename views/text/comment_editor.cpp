#include "views/text/comment_editor.h"

#include "base/text.h"
#include "views/text/late_scroller.h"

namespace velmora {

CommentEditor::CommentEditor() : m_buffer(m_view.get_buffer()) {
    set_title("Comment");
    set_border_width(5);
    set_default_size(300, 150);
    m_view.set_editable(true);
    m_view.set_cursor_visible(true);
    m_view.set_wrap_mode(Gtk::WRAP_WORD);
    m_view.get_accessible()->set_name("Comment at the current move");
    m_view.signal_focus_out_event().connect(sigc::mem_fun(*this, &CommentEditor::on_view_left), false);
}

void CommentEditor::set_text(const std::string& text) {
    if (text == this->text()) return;  // the cursor stays where the user has it
    m_original = text;
    m_shown = text::displayable(text);
    m_buffer->set_text(m_shown);
}

std::string CommentEditor::text() const {
    const std::string shown = m_buffer->get_text(m_buffer->begin(), m_buffer->end(), true).raw();
    return shown == m_shown ? m_original : shown;
}

void CommentEditor::on_show() {
    add_scroller(*this, m_view, Gtk::POLICY_NEVER);
    Gtk::Window::on_show();
}

void CommentEditor::on_hide() {
    Gtk::Window::on_hide();
    m_applied.emit();
}

bool CommentEditor::on_view_left(GdkEventFocus*) {
    m_applied.emit();
    return false;
}

}  // namespace velmora
