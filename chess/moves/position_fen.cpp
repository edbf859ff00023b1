#include <stdexcept>

#include "chess/board/fen_fields.h"
#include "chess/moves/position.h"

namespace velmora {

namespace {

/// The rook files of a colour in the order in which a classic letter looks for the rook. The walk leaves out
/// the two files at its far end; `past` is the file after its last, whose right is set when no rook was
/// found.
struct RookWalk {
    int first;
    int step;
    int past;
};
constexpr RookWalk king_side_walk{7, -1, 1};
constexpr RookWalk queen_side_walk{0, 1, 6};

std::uint16_t right(int file, Side side) {
    return static_cast<std::uint16_t>(1U << (side == Side::white ? file : file + 8));
}

/// A classic letter means the outermost rook of its wing (as in X-FEN), so that positions of Chess960 can
/// be written with KQkq where that is unambiguous.
std::uint16_t right_by_walk(const BoardPosition& board, RookWalk walk, Side side) {
    const int back_rank = side == Side::white ? 0 : 56;
    int file = walk.first;
    while (file != walk.past && board.piece_on(Square(back_rank + file)) != Piece(PieceKind::rook, side)) {
        file += walk.step;
    }
    return right(file, side);
}

Square ep_square_of(std::string_view field) {
    if (field.empty() || field[0] < 'a' || field[0] > 'h') return no_square;
    const int rank = field.size() > 1 && field[1] == '3' ? 2 : 5;
    return Square(rank * 8 + field[0] - 'a');
}

std::string number_of_kings_error(std::string_view text) {
    return "ChessPosition::fen(" + std::string(text) + ")   error number of kings";
}

}  // namespace

void ChessPosition::set_fen(std::string_view text) {
    const std::string before = fen();
    try {
        fen(text);
        return;
    } catch (const std::logic_error&) {  // the old position is put back below
    }
    try {
        fen(before);
    } catch (const std::logic_error&) {
        clear();  // the empty board's own FEN has no kings and cannot be read
    }
}

void ChessPosition::fen(std::string_view text) {
    const std::string copy(text);  // the text may be this object's own start FEN
    clear();
    const FenFields fields = split_fen(copy);
    int white_kings = 0;
    int black_kings = 0;
    for (const char letter : fields.board) {
        white_kings += letter == 'K' ? 1 : 0;
        black_kings += letter == 'k' ? 1 : 0;
    }
    if (white_kings != 1 || black_kings != 1) throw std::logic_error(number_of_kings_error(copy));
    if (fields.castling.empty()) throw std::logic_error("ChessPosition::fen(string)   error castle field");
    if (fields.en_passant.empty()) throw std::logic_error("ChessPosition::fen(string)   error EP field");
    m_fen = fields.joined();

    m_board.fen(copy);
    if (m_board.white_king().empty() || m_board.black_king().empty()) {
        throw std::logic_error(number_of_kings_error(copy));  // one was replaced by a later piece
    }
    PositionState state;
    state.rights = rights_from_letters(fields.castling);
    state.ep_square = ep_square_of(fields.en_passant);
    state.halfmoves = fields.halfmoves_number();
    m_states.back() = state;
    m_fullmove = fields.fullmove_number();
    start_history();
}

std::uint16_t ChessPosition::rights_from_letters(std::string_view letters) const {
    std::uint16_t rights = 0;
    for (const char letter : letters) {
        if (letter >= 'A' && letter <= 'H') rights |= right(letter - 'A', Side::white);
        if (letter >= 'a' && letter <= 'h') rights |= right(letter - 'a', Side::black);
        if (letter == 'K') rights |= right_by_walk(m_board, king_side_walk, Side::white);
        if (letter == 'Q') rights |= right_by_walk(m_board, queen_side_walk, Side::white);
        if (letter == 'k') rights |= right_by_walk(m_board, king_side_walk, Side::black);
        if (letter == 'q') rights |= right_by_walk(m_board, queen_side_walk, Side::black);
    }
    return rights;
}

std::string ChessPosition::rights_letters() const {
    if (rights() == 0) return "-";
    std::string letters;
    if (m_xfen || (rights() & chess960_rights) != 0) {
        for (int bit = 0; bit < 16; ++bit) {
            if ((rights() >> bit & 1) != 0) letters += "ABCDEFGHabcdefgh"[bit];
        }
        return letters;
    }
    struct ClassicRight {
        int bit;
        char letter;
    };
    for (const ClassicRight classic : {ClassicRight{7, 'K'}, {0, 'Q'}, {15, 'k'}, {8, 'q'}}) {
        if ((rights() >> classic.bit & 1) != 0) letters += classic.letter;
    }
    return letters;
}

std::string ChessPosition::fen() const {
    std::string text;
    text.reserve(96);
    for (int rank = 7; rank >= 0; --rank) {
        int empty = 0;
        for (int file = 0; file < 8; ++file) {
            const Piece piece = piece_on(Square(rank * 8 + file));
            if (piece.empty()) {
                ++empty;
                continue;
            }
            if (empty > 0) text += static_cast<char>('0' + empty);
            text += piece.letter();
            empty = 0;
        }
        if (empty > 0) text += static_cast<char>('0' + empty);
        if (rank > 0) text += '/';
    }
    text += side_to_move() == Side::white ? " w " : " b ";
    text += rights_letters();
    text += ep_square() == no_square ? " - " : " " + ep_square().name() + " ";
    text += std::to_string(halfmoves()) + " " + std::to_string(m_fullmove);
    return text;
}

}  // namespace velmora
