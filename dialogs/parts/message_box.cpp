#include "dialogs/parts/message_box.h"

#include <algorithm>

#include <gtkmm/box.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>

#include "views/text/shown_text.h"

namespace velmora {
namespace {

/// The text up to where it would leave the screen.
Glib::ustring screenful(std::string_view text, std::size_t bytes, int lines) {
    std::size_t end = 0;
    while (end < text.size() && lines > 0) {
        end = std::min(text.find('\n', end), text.size() - 1) + 1;
        --lines;
    }
    return shown_text(text, std::min(bytes, end));
}

}  // namespace

void message_box(Gtk::Window& parent, std::string_view headline, std::string_view details) {
    constexpr bool markup = false;
    constexpr bool modal = true;
    constexpr int margin = 12;        // pixels
    constexpr int least_width = 280;  // in which the title can be read, pixels
    // A line of the box takes some fifty bytes.
    Gtk::MessageDialog box(parent, screenful(headline, 200, 4), markup, Gtk::MESSAGE_INFO, Gtk::BUTTONS_OK,
                           modal);
    box.set_title("Message:");
    box.set_size_request(least_width, -1);
    if (!details.empty()) box.set_secondary_text(screenful(details, 1000, 20));
    box.get_message_area()->set_border_width(margin);
    for (Gtk::Widget* part : box.get_message_area()->get_children()) {
        // Text without blanks, such as a path, would make the box wider than the screen.
        if (auto* label = dynamic_cast<Gtk::Label*>(part)) label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
    }
    box.set_default_response(Gtk::RESPONSE_OK);
    box.run();
}

}  // namespace velmora
