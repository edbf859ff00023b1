#include "window/main_clipboard.h"

#include <utility>

#include <gtkmm/clipboard.h>

namespace velmora {

void MainClipboard::put(const std::string& text) { Gtk::Clipboard::get()->set_text(text); }

void MainClipboard::ask(std::function<void(const std::string& text)> take) {
    Gtk::Clipboard::get()->request_text(
        [take = std::move(take)](const Glib::ustring& text) { take(text.raw()); });
}

}  // namespace velmora
