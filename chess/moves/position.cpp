#include "chess/moves/position.h"

#include "chess/board/chess960.h"
#include "chess/board/pins.h"
#include "chess/moves/move_generator.h"
#include "chess/moves/move_list.h"

namespace velmora {

namespace {

constexpr std::string_view empty_board_fen = "8/8/8/8/8/8/8/8 w - - 0 1";
constexpr std::string_view start_position_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

}  // namespace

void ChessPosition::clear() {
    m_board.clear();
    m_fen = empty_board_fen;
    m_states.assign(1, PositionState{});
    m_fullmove = 1;
    start_history();
}

void ChessPosition::new_game() {
    fen(start_position_fen);
    m_fen = fen();
}

void ChessPosition::new_chess960(std::uint32_t number) {
    const Chess960Rank rank = chess960_rank(number < chess960_positions ? number : random_chess960_number());
    clear();
    for (int file = 0; file < 8; ++file) {
        for (const Side side : {Side::white, Side::black}) {
            const Square back(side == Side::white ? file : 56 + file);
            const Square pawn(side == Side::white ? 8 + file : 48 + file);
            m_board.put(back, Piece(rank[static_cast<std::size_t>(file)], side));
            m_board.put(pawn, Piece(PieceKind::pawn, side));
        }
    }
    m_board.update();
    const std::uint64_t rooks = (m_board.white_rooks() | m_board.black_rooks() >> 48).value();
    m_states.back().rights = static_cast<std::uint16_t>(rooks);
    fen(fen());
}

std::string ChessPosition::epd() const {
    std::string text = fen();
    text.resize(text.rfind(' ', text.rfind(' ') - 1));
    return text;
}

std::vector<Move> ChessPosition::moves() const {
    std::vector<Move> result;
    result.reserve(m_states.size() - 1);
    for (auto state = m_states.begin() + 1; state != m_states.end(); ++state)
        result.push_back(state->last_move);
    return result;
}

std::string ChessPosition::moves_text() const {
    std::string text;
    for (const Move& move : moves()) {
        if (!text.empty()) text += ' ';
        text += move.to_string(false);
    }
    return text;
}

void ChessPosition::add_piece(Square square, Piece piece) {
    maps();  // an edit does not reach the maps, whether they were completed or not
    m_board.put(square, piece);
    m_board.update();
}

void ChessPosition::remove_piece(Square square, Piece piece) {
    maps();
    m_board.take(square, piece);
    m_board.update();
}

Bitboard ChessPosition::attackers(Square square, Side side) const {
    return attackers_to(m_board, square, side, m_board.occupied());
}

bool ChessPosition::is_mate() const {
    if (!in_check()) return false;
    MoveList list;
    MoveGenerator::generate_all(*this, list);
    return list.empty();
}

const AttackMaps& ChessPosition::maps() const {
    if (!m_maps.complete()) init_maps();
    return m_maps;
}

void ChessPosition::mirror_colours() {
    m_board.mirror_colours();
    PositionState& state = m_states.back();
    state.rights = static_cast<std::uint16_t>(state.rights << 8 | state.rights >> 8);
    if (state.ep_square != no_square) state.ep_square = state.ep_square.mirror_vertical();
    reread();
}

void ChessPosition::mirror_files() {
    m_board.mirror_files();
    PositionState& state = m_states.back();
    state.rights = static_cast<std::uint16_t>(Bitboard(state.rights).mirror_horizontal().value());
    if (state.ep_square != no_square) state.ep_square = state.ep_square.mirror_horizontal();
    reread();
}

/// Makes the position the start of a history by reading it back; a board that has no FEN keeps its pieces.
void ChessPosition::reread() {
    const BoardPosition board = m_board;
    const PositionState state = m_states.back();
    const std::uint16_t fullmove = m_fullmove;
    const std::string text = fen();
    try {
        fen(text);
    } catch (const std::logic_error&) {
        clear();
        m_board = board;
        m_states.back() = state;
        m_states.back().last_move = {};
        m_fullmove = fullmove;
        m_fen = text;
        start_history();
    }
}

/// Pins, keys and material from the board; everything that came before is forgotten.
void ChessPosition::start_history() {
    find_pins(m_board, m_states.back());
    m_hash.reset(m_board, m_states.back());
    m_material.count(m_board);
    m_maps.drop();
}

bool operator==(const ChessPosition& a, const ChessPosition& b) {
    return a.m_board == b.m_board && a.m_fullmove == b.m_fullmove && a.halfmoves() == b.halfmoves() &&
           a.rights() == b.rights() && a.ep_square() == b.ep_square() && a.pinned() == b.pinned() &&
           a.discovering() == b.discovering();
}

std::string ChessPosition::dump() const {
    return m_board.dump() + "total moves: " + std::to_string(m_states.size() - 1) +
           "\nhash: " + std::to_string(key()) + "\npinned pieces: " + pinned().to_string() +
           "discovering pieces: " + discovering().to_string();
}

}  // namespace velmora
