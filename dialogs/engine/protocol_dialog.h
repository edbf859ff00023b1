#pragma once

#include <optional>

#include <gtkmm/window.h>

#include "engine/store/engine_variables.h"

namespace velmora {

/// The dialog "Protocol": how to talk to a new engine, beginning with autodetect; nothing when the user
/// leaves it without "OK".
/// Asked for at all because a program that answers to none of the greetings is waited for up to fifteen
/// seconds.
std::optional<Protocol> choose_protocol(Gtk::Window& parent);

}  // namespace velmora
