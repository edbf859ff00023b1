#pragma once

#include <gtk/gtk.h>

#include "chess/board/square.h"

namespace velmora {

/// What a screen reader finds on the board: the widget as a drawing area named "Chess board", with the 64
/// squares of the position as its children, a1 first, each a button called "e4, white pawn" or "e4, empty"
/// that can be pressed instead of clicked.

/// Gives the widgets of a class this kind of accessible object. REQUIRES: the class is that of a Drawing.
///
/// A picture is nothing to a screen reader, and 64 widgets would cost the start of the program and every
/// move. So the children exist for the accessibility bus alone, and are made when somebody asks for them.
void use_board_accessible(GtkWidgetClass* widget_class);

/// Tells those who listen that what stands on a square of the position has changed.
void tell_square_changed(GtkWidget* drawing, Square square);

/// Has a screen reader say a text, where the accessibility bus knows how to.
void say(GtkWidget* widget, const char* text);

}  // namespace velmora
