#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "chess/board/side.h"

namespace velmora {

/// What a piece is, whatever its colour: the low three bits of a piece code.
enum class PieceKind : std::uint32_t { none = 0, pawn, knight, bishop, rook, queen, king };

/// "pawn"; empty for none. Throws std::out_of_range for a kind that does not exist.
std::string_view kind_name(PieceKind kind);

/// A piece, or none: 0 none, 1 to 6 white pawn, knight, bishop, rook, queen, king, 9 to 14 the same for
/// Black.
///
/// Bit 3 is the colour. Colour tests look at that bit alone, so the empty piece counts as white.
///
/// The codes are those of the board's sets and of a move's word, so no table translates between them; that
/// a colour is one bit makes turning a piece's colour an exclusive or.
class Piece {
public:
    constexpr Piece() = default;
    constexpr explicit Piece(std::uint32_t code) : m_code(code) {}
    constexpr Piece(PieceKind kind, Side side)
        : m_code(static_cast<std::uint32_t>(kind) | (side == Side::black ? 8U : 0U)) {}

    constexpr std::uint32_t code() const { return m_code; }
    constexpr PieceKind kind() const { return static_cast<PieceKind>(m_code & 7); }
    constexpr Side side() const { return is_white() ? Side::white : Side::black; }
    constexpr bool empty() const { return m_code == 0; }

    /// Worth in hundredths of a pawn, negative for Black; a bishop and a knight are worth the same on
    /// purpose. A code that is no piece is named on standard output and throws std::logic_error.
    std::int32_t value() const;

    /// Worth without the sign, by kind. Throws std::logic_error for a kind that does not exist.
    std::int32_t abs_value() const;

    /// "white pawn", "no piece". Throws std::logic_error for a code that is no piece.
    std::string name() const;

    /// The letter of FEN: upper case for White, '?' when there is no piece.
    char letter() const;

    constexpr bool is_white() const { return (m_code & 8) == 0; }
    constexpr bool is_black() const { return !is_white(); }

    constexpr bool is_pawn() const { return kind() == PieceKind::pawn; }
    constexpr bool is_knight() const { return kind() == PieceKind::knight; }
    constexpr bool is_bishop() const { return kind() == PieceKind::bishop; }
    constexpr bool is_rook() const { return kind() == PieceKind::rook; }
    constexpr bool is_queen() const { return kind() == PieceKind::queen; }
    constexpr bool is_king() const { return kind() == PieceKind::king; }

    constexpr bool is_white_pawn() const { return m_code == 1; }
    constexpr bool is_white_knight() const { return m_code == 2; }
    constexpr bool is_white_bishop() const { return m_code == 3; }
    constexpr bool is_white_rook() const { return m_code == 4; }
    constexpr bool is_white_queen() const { return m_code == 5; }
    constexpr bool is_white_king() const { return m_code == 6; }
    constexpr bool is_black_pawn() const { return m_code == 9; }
    constexpr bool is_black_knight() const { return m_code == 10; }
    constexpr bool is_black_bishop() const { return m_code == 11; }
    constexpr bool is_black_rook() const { return m_code == 12; }
    constexpr bool is_black_queen() const { return m_code == 13; }
    constexpr bool is_black_king() const { return m_code == 14; }

    constexpr void set_none() { m_code = 0; }
    constexpr void set_white_pawn() { m_code = 1; }
    constexpr void set_white_knight() { m_code = 2; }
    constexpr void set_white_bishop() { m_code = 3; }
    constexpr void set_white_rook() { m_code = 4; }
    constexpr void set_white_queen() { m_code = 5; }
    constexpr void set_white_king() { m_code = 6; }
    constexpr void set_black_pawn() { m_code = 9; }
    constexpr void set_black_knight() { m_code = 10; }
    constexpr void set_black_bishop() { m_code = 11; }
    constexpr void set_black_rook() { m_code = 12; }
    constexpr void set_black_queen() { m_code = 13; }
    constexpr void set_black_king() { m_code = 14; }

    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads a defaulted comparison
    friend constexpr auto operator<=>(Piece, Piece) = default;

private:
    std::uint32_t m_code = 0;
};

static_assert(sizeof(Piece) == 4);

inline constexpr Piece no_piece{};

/// The piece that a letter of FEN stands for; `no_piece` for any other character.
///
/// The letters of the PGN standard, 16.1.3.1.
constexpr Piece piece_of_letter(char letter) {
    constexpr std::string_view letters = "PNBRQKpnbrqk";
    const auto i = static_cast<std::uint32_t>(letters.find(letter));
    if (i >= letters.size()) return no_piece;
    return i < 6 ? Piece(i + 1) : Piece(i + 3);
}

/// The number of piece codes that four bits can hold; tables by code have this size, so that no code can
/// index beyond them.
inline constexpr std::size_t piece_codes = 16;

}  // namespace velmora
