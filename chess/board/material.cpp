#include "chess/board/material.h"

#include "chess/board/board_position.h"

namespace velmora {

namespace {

/// What one piece adds to the counts and to the worth of the pieces, and XORs into the key; zero for a king
/// and for a code that is no piece.
struct Unit {
    std::uint64_t count = 0;
    std::uint32_t key = 0;
    std::int32_t worth = 0;
};

// By piece code. The key constants are arbitrary and fixed.
constexpr std::array<Unit, piece_codes> units = {{
    {},
    {std::uint64_t{1} << 32, 0xD091BB5C, 0},
    {std::uint64_t{1} << 36, 0x22AE9EF6, 300},
    {std::uint64_t{1} << 40, 0xE7E1FAEE, 300},
    {std::uint64_t{1} << 44, 0xD5C31F79, 500},
    {std::uint64_t{1} << 48, 0x2082352C, 900},
    {},
    {},
    {},
    {std::uint64_t{1} << 0, 0xF807B7DF, 0},
    {std::uint64_t{1} << 4, 0xE9D30005, 300},
    {std::uint64_t{1} << 8, 0x3895AFE1, 300},
    {std::uint64_t{1} << 12, 0xA1E24BBA, 500},
    {std::uint64_t{1} << 16, 0x4EE4092B, 900},
    {},
    {},
}};

constexpr const Unit& unit(Piece piece) { return units[piece.code() & 15]; }

/// What a promotion adds to the counts and XORs into the key: the new piece in the pawn's place.
constexpr Unit promotion(Move move) {
    const Side side = move.piece().side();
    const Unit& piece = unit(Piece(promoted_kind(move.code()), side));
    const Unit& pawn = unit(Piece(PieceKind::pawn, side));
    return {piece.count - pawn.count, piece.key ^ pawn.key, piece.worth};
}

// The worth of the pieces from which on the phase is that of the opening, and the phase without any.
constexpr std::int32_t opening_phase = 6200;
constexpr std::int32_t bare_board = 1024;

constexpr std::array<PieceKind, 5> kinds = {PieceKind::queen, PieceKind::rook, PieceKind::bishop,
                                            PieceKind::knight, PieceKind::pawn};

}  // namespace

void Material::count(const BoardPosition& board) {
    clear();
    for (const Side side : {Side::white, Side::black}) {
        for (const PieceKind kind : kinds) set(Piece(kind, side), board.pieces(Piece(kind, side)).count());
    }
    find_phase();
}

void Material::set(Piece piece, std::int32_t count) {
    // A nibble holds 15; a board with more of a kind is counted as 15 and disturbs no other kind.
    const auto n = static_cast<std::uint32_t>(count < 15 ? count : 15);
    m_counts |= n * unit(piece).count;
    m_key ^= n * unit(piece).key;
    m_pieces_worth += static_cast<std::int32_t>(n) * unit(piece).worth;
}

void Material::add(Piece piece) {
    m_counts += unit(piece).count;
    m_key ^= unit(piece).key;
    m_pieces_worth += unit(piece).worth;
}

void Material::remove(Piece piece) {
    m_counts -= unit(piece).count;
    m_key ^= unit(piece).key;
    m_pieces_worth -= unit(piece).worth;
}

void Material::make_change(Move move) {
    remove(move.capture());
    if (is_promotion(move.code())) {
        const Unit change = promotion(move);
        m_counts += change.count;
        m_key ^= change.key;
        m_pieces_worth += change.worth;
    }
    find_phase();
}

void Material::take_back_change(Move move) {
    if (is_promotion(move.code())) {
        const Unit change = promotion(move);
        m_counts -= change.count;
        m_key ^= change.key;
        m_pieces_worth -= change.worth;
    }
    add(move.capture());
    find_phase();
}

std::int32_t Material::number_of(Piece piece) const {
    const std::uint64_t count = unit(piece).count;
    return count == 0 ? 0 : static_cast<std::int32_t>(m_counts / count & 15);
}

std::string Material::signature() const {
    std::string text;
    for (const Side side : {Side::white, Side::black}) {
        text += Piece(PieceKind::king, side).letter();
        for (const PieceKind kind : kinds) {
            const Piece piece(kind, side);
            text.append(static_cast<std::size_t>(number_of(piece)), piece.letter());
        }
    }
    return text;
}

void Material::find_phase() {
    m_phase = m_pieces_worth >= opening_phase ? 0 : bare_board - m_pieces_worth * bare_board / opening_phase;
}

}  // namespace velmora
