#include "dialogs/message_box.h"

#include <gtkmm/box.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>

#include "dialogs/shown_text.h"

namespace velmora {

void message_box(Gtk::Window& parent, std::string_view headline, std::string_view details) {
    constexpr bool markup = false;
    constexpr bool modal = true;
    constexpr std::size_t longest_headline = 300;  // bytes: some six lines of the box
    constexpr std::size_t longest_details = 2000;  // some forty lines
    constexpr int margin = 12;                     // pixels
    Gtk::MessageDialog box(parent, shown_text(headline, longest_headline), markup, Gtk::MESSAGE_INFO,
                           Gtk::BUTTONS_OK, modal);
    box.set_title("Message:");
    if (!details.empty()) box.set_secondary_text(shown_text(details, longest_details));
    box.get_message_area()->set_border_width(margin);
    for (Gtk::Widget* part : box.get_message_area()->get_children()) {
        // Text without blanks, such as a path, would make the box wider than the screen.
        if (auto* label = dynamic_cast<Gtk::Label*>(part)) label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
    }
    box.set_default_response(Gtk::RESPONSE_OK);
    box.run();
}

}  // namespace velmora
