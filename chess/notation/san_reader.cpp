#include "chess/notation/san_reader.h"

#include <stdexcept>

#include "chess/board/attack_maps.h"
#include "chess/board/bit_tables.h"

namespace velmora {

namespace {

bool is_file(char letter) { return letter >= 'a' && letter <= 'h'; }
bool is_rank(char letter) { return letter >= '1' && letter <= '8'; }

/// Takes one text apart, from its right end to its left.
class SanReader {
public:
    SanReader(const ChessPosition& position, std::string_view text)
        : m_position(position), m_us(position.side_to_move()), m_text(text), m_rest(text) {}

    Move move() {
        const bool check = take_suffixes();
        Move move = is_castling("O-O") ? castling(1) : is_castling("O-O-O") ? castling(-1) : ordinary_move();
        move.set_check(check);
        return move;
    }

private:
    /// The castling rook is the first piece met beside the king.
    Move castling(std::int32_t step) const {
        const Square king = m_position.king(m_us);
        const Square edge = step > 0 ? Square(king.value() | 7) : Square(king.value() & ~7);
        const Piece rook(PieceKind::rook, m_us);
        for (Square square = king; king.on_board() && square != edge;) {
            square += step;
            const Piece piece = m_position.piece_on(square);
            if (piece == rook)
                return {king, square, MoveCode::castling, Piece(PieceKind::king, m_us), no_piece};
            if (!piece.empty()) break;
        }
        throw std::logic_error("SanMove operator=(string): illegal move \"" + std::string(m_text) +
                               "\"\nfen()=" + m_position.fen());
    }

    Move ordinary_move() {
        if (!m_rest.empty() && m_rest.back() == ')') {
            throw std::logic_error("SanMove operator=(): Illegal character found");
        }
        MoveCode code = take_promotion();
        const Square to = take_destination();
        Piece capture = m_position.piece_on(to);
        const bool marked_capture = take_last('x');
        if (marked_capture && capture.empty()) {
            code = MoveCode::en_passant;  // whatever piece the text names
            capture = Piece(PieceKind::pawn, opposite(m_us));
        }
        const Piece piece = moving_piece();
        const Bitboard origins = take_origins();
        const bool push = piece.is_pawn() && !marked_capture;
        const Bitboard candidates = push ? pushing_pawn(to) : attackers(piece, to) & origins;
        return {choose(candidates, to), to, code, piece, capture};
    }

    /// Blanks, "!" and "?" at the end, then one mark of check or mate; returns whether there was one.
    bool take_suffixes() {
        while (take_last(' ') || take_last('!') || take_last('?')) {
        }
        return take_last('+') || take_last('#');
    }

    /// Castling is known by the whole text as it came, so a comment mark behind it spoils it.
    bool is_castling(std::string_view word) const {
        if (!m_text.starts_with(word)) return false;
        const std::string_view suffix = m_text.substr(word.size());
        return suffix.empty() || suffix == "+" || suffix == "#";
    }

    MoveCode take_promotion() {
        if (m_rest.size() < 2 || m_rest[m_rest.size() - 2] != '=') return MoveCode::normal_move;
        const char letter = m_rest.back();
        m_rest.remove_suffix(2);
        switch (letter) {
            case 'Q':
                return MoveCode::promo_queen;
            case 'R':
                return MoveCode::promo_rook;
            case 'B':
                return MoveCode::promo_bishop;
            case 'N':
                return MoveCode::promo_knight;
            default:
                throw std::logic_error("SanMove operator=(): wrong promotion format");
        }
    }

    /// A file or a rank that is missing is the first.
    Square take_destination() {
        std::int32_t rank = 0;
        std::int32_t file = 0;
        if (!m_rest.empty() && is_rank(m_rest.back())) rank = take_character() - '1';
        if (!m_rest.empty() && is_file(m_rest.back())) file = take_character() - 'a';
        return Square(rank * 8 + file);
    }

    /// By the first character of the text as it came; any but a piece letter is a pawn.
    Piece moving_piece() const {
        switch (m_text.empty() ? ' ' : m_text.front()) {
            case 'N':
                return {PieceKind::knight, m_us};
            case 'B':
                return {PieceKind::bishop, m_us};
            case 'R':
                return {PieceKind::rook, m_us};
            case 'Q':
                return {PieceKind::queen, m_us};
            case 'K':
                return {PieceKind::king, m_us};
            default:
                return {PieceKind::pawn, m_us};
        }
    }

    /// The squares that the text leaves for the origin: file, rank, both, or all.
    Bitboard take_origins() {
        Bitboard origins = all_squares;
        if (!m_rest.empty() && is_rank(m_rest.back()))
            origins &= Square((take_character() - '1') * 8).rank_mask();
        if (!m_rest.empty() && is_file(m_rest.back())) origins &= Square(take_character() - 'a').file_mask();
        return origins;
    }

    /// The pawn one rank behind or, when none stands there, two ranks behind.
    Bitboard pushing_pawn(Square to) const {
        const Bitboard pawns = pieces(Piece(PieceKind::pawn, m_us));
        const Square one = behind(to, m_us);
        const Bitboard near = one.bit() & pawns;
        return near.any() ? near : behind(one, m_us).bit() & pawns;
    }

    /// The pieces like `piece` that attack the square: what such a piece would attack from there, the other
    /// way round.
    Bitboard attackers(Piece piece, Square to) const {
        const Piece back = piece.is_pawn() ? Piece(PieceKind::pawn, opposite(m_us)) : piece;
        return attacks_of(back, to, m_position.board().occupied()) & pieces(piece);
    }

    /// Texts leave out a distinction that a pin makes needless (8.2.3.4 of the PGN standard asks for
    /// that), so candidates that can't leave their line are passed over before the text counts as
    /// ambiguous.
    Square choose(Bitboard candidates, Square to) const {
        if (candidates.more_than_one()) {
            const Bitboard free = candidates & ~m_position.pinned();
            if (free.more_than_one()) throw std::logic_error(ambiguous_error());
            candidates = free.any() ? free : on_pin_line(candidates, to);
        }
        if (candidates.empty()) throw std::logic_error(no_piece_error());
        return candidates.first_square();
    }

    /// The first of several pinned pieces that can go to `to` along the line of its pin.
    Bitboard on_pin_line(Bitboard candidates, Square to) const {
        const Square king = m_position.king(m_us);
        while (king.on_board() && candidates.any()) {
            const Bitboard candidate = candidates.pop_bit();
            if (bit_tables.ray_through(king, candidate.first_square()).contains(to)) return candidate;
        }
        return no_squares;
    }

    Bitboard pieces(Piece piece) const { return m_position.board().pieces(piece); }

    bool take_last(char character) {
        if (m_rest.empty() || m_rest.back() != character) return false;
        m_rest.remove_suffix(1);
        return true;
    }

    char take_character() {
        const char last = m_rest.back();
        m_rest.remove_suffix(1);
        return last;
    }

    std::string no_piece_error() const {
        return "SanMove operator=(string \"" + std::string(m_text) +
               "\"): no moving piece found(2) \nfen   " + m_position.fen() + "\n";
    }
    std::string ambiguous_error() const {
        return "SanMove operator=(): ambigue sanmove found: " + std::string(m_text) + "\nfen   " +
               m_position.fen() + "\n";
    }

    const ChessPosition& m_position;
    const Side m_us;
    const std::string_view m_text;  // as it came
    std::string_view m_rest;        // what is not taken off yet
};

}  // namespace

Move read_san(const ChessPosition& position, std::string_view text) {
    return SanReader(position, text).move();
}

}  // namespace velmora
