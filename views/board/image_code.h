#pragma once

#include <array>
#include <optional>
#include <string_view>

/// The codes of the fourteen images, which are also what a square of the drawing holds: 0 and 7 are the light
/// and the dark square, empty; 1 to 6 White's pawn, knight, bishop, rook, queen and king; 8 to 13 Black's.
namespace velmora {

constexpr int light_square_code = 0;
constexpr int dark_square_code = 7;
constexpr int image_count = 14;

/// By code, the file of the image below the directory of the images.
constexpr std::array<std::string_view, image_count> image_files{
    "wood_l.svg",      "WhitePawn.svg", "WhiteKnight.svg", "WhiteBishop.svg", "WhiteRook.svg",
    "WhiteQueen.svg",  "WhiteKing.svg", "wood_d.svg",      "BlackPawn.svg",   "BlackKnight.svg",
    "BlackBishop.svg", "BlackRook.svg", "BlackQueen.svg",  "BlackKing.svg"};

/// By code, the letter that stands for it in a FEN; a blank for the empty squares.
constexpr std::string_view image_letters = " PNBRQK pnbrqk";

/// By code, what a screen reader says; empty for the empty squares.
constexpr std::array<std::string_view, image_count> image_names{
    "", "white pawn", "white knight", "white bishop", "white rook", "white queen", "white king",
    "", "black pawn", "black knight", "black bishop", "black rook", "black queen", "black king"};

constexpr bool is_piece(int code) { return code % 7 != 0; }
constexpr bool is_black_piece(int code) { return code > dark_square_code; }

/// The code of a piece by its FEN letter; nothing for any other character.
constexpr std::optional<int> piece_code(char letter) {
    const auto code = image_letters.find(letter);
    return letter != ' ' && code != std::string_view::npos ? std::optional(int(code)) : std::nullopt;
}

}  // namespace velmora
