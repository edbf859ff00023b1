#pragma once

#include <string>

#include <gtkmm/window.h>

#include "window/session/dialogs.h"

namespace velmora {

class ChessBoard;

/// The questions of the real window, each a dialog above it.
class MainDialogs : public Dialogs {
public:
    /// @param board  lends the choosers its images, which have the size of its squares
    MainDialogs(Gtk::Window& parent, ChessBoard& board) : m_parent(parent), m_board(board) {}

    void tell_user(const std::string& headline, const std::string& details) override;
    Piece choose_piece() override;
    PieceKind choose_promotion(Side side) override;
    int choose_hints() override;

private:
    Gtk::Window& m_parent;
    ChessBoard& m_board;
};

}  // namespace velmora
