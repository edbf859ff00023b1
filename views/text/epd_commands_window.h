#pragma once

#include <string_view>

#include <gtkmm/textbuffer.h>
#include <gtkmm/textview.h>
#include <gtkmm/window.h>

namespace velmora {

/// The window "EPD": the EPD code of the position, to read and to copy.
class EpdCommandsWindow : public Gtk::Window {
public:
    EpdCommandsWindow();

    void set_text(std::string_view text);

protected:
    void on_show() override;

private:
    Glib::RefPtr<Gtk::TextBuffer> m_buffer = Gtk::TextBuffer::create();
    Gtk::TextView m_view{m_buffer};
};

}  // namespace velmora
