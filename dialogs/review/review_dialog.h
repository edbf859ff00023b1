#pragma once

#include <optional>

#include <gtkmm/window.h>

#include "review/review_settings.h"

namespace velmora {

/// The dialog "Review game", beginning with `settings`; nothing unless the person answers "Review".
std::optional<ReviewSettings> ask_review(Gtk::Window& parent, const ReviewSettings& settings);

}  // namespace velmora
