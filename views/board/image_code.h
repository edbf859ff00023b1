#pragma once

#include <array>
#include <string_view>

#include "chess/board/piece.h"

/// The codes of the fourteen images, by which their files and the choosers' answers go: 0 and 7 are the light
/// and the dark square, 1 to 6 White's pawn, knight, bishop, rook, queen and king, 8 to 13 Black's. Whoever
/// asks what stands on a square asks for a Piece instead.
namespace velmora {

/// The numbers of one side are those of PieceKind, so a code is a kind and an offset, and no table stands
/// between.
constexpr int light_square_image = 0;
constexpr int dark_square_image = 7;
constexpr int image_count = 14;

/// By code, the file of the image below the directory of the images.
constexpr std::array<std::string_view, image_count> image_files{
    "wood_l.svg",      "WhitePawn.svg", "WhiteKnight.svg", "WhiteBishop.svg", "WhiteRook.svg",
    "WhiteQueen.svg",  "WhiteKing.svg", "wood_d.svg",      "BlackPawn.svg",   "BlackKnight.svg",
    "BlackBishop.svg", "BlackRook.svg", "BlackQueen.svg",  "BlackKing.svg"};

/// The code of a piece's image. REQUIRES: a piece.
constexpr int image_code(Piece piece) {
    return static_cast<int>(piece.kind()) + (piece.is_white() ? light_square_image : dark_square_image);
}

/// The piece that an image shows; none for those of empty squares and for what is no code.
constexpr Piece piece_of_image(int code) {
    if (code <= light_square_image || code >= image_count || code == dark_square_image) return no_piece;
    return {static_cast<PieceKind>(code % dark_square_image),
            code < dark_square_image ? Side::white : Side::black};
}

}  // namespace velmora
