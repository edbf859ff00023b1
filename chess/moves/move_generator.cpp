#include "chess/moves/move_generator.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "chess/board/bit_tables.h"
#include "chess/board/check_test.h"
#include "chess/board/magic_moves.h"
#include "chess/moves/capture_order.h"
#include "chess/moves/position.h"

namespace velmora {

namespace {

// The fields of a move's word, laid out as in Move.
constexpr std::uint32_t to_bits(Square to) { return static_cast<std::uint32_t>(to.value()); }
constexpr std::uint32_t capture_bits(Piece piece) { return piece.code() << 16; }
constexpr std::uint32_t check_bit(Bitboard checks, Square to) {
    return static_cast<std::uint32_t>(checks.value() >> to.value() & 1) << 15;
}

enum class Stages { captures, all };

/// One run over a position for the side to move.
///
/// What is legal and what checks is found as sets once a position: a piece other than the king must land in
/// m_check_mask, a pinned piece stays on the line of its king, and each kind has the squares from which it
/// checks. Only en passant is tested move by move.
template <Side us, Stages stages>
class Generation {
public:
    Generation(const BoardPosition& board, const PositionState& state, MoveList& list)
        : m_board(board),
          m_magics(magic_moves()),
          m_out(list),
          m_king(state.kings[us]),
          m_enemy_king(state.kings[them]),
          m_ep_square(state.ep_square),
          m_rights(us == Side::white ? state.rights & 0xFFU : state.rights >> 8),
          m_occupied(board.occupied()),
          m_targets(board.all(them) & ~board.pieces(PieceKind::king, them)),
          m_pinned(state.pinned & board.all(us)),
          m_discovering(state.discovering & board.all(us)),
          m_checkers(checkers(board, state, us)) {}

    void run(MoveList& list) {
        Move* const first = list.end();
        if (!m_checkers.more_than_one()) {
            if (m_checkers.any()) {
                m_check_mask = bit_tables.between_inclusive(m_king, m_checkers.first_square());
            }
            pawn_captures();
            other_captures();
        }
        find_king_moves();
        king_moves(m_king_steps & m_targets);
        m_out.finish();
        if (list.end() - first > 1) sort_captures(first, list.end());
        if constexpr (stages == Stages::all) {
            other_quiet_moves();
            if (!m_checkers.more_than_one()) pawn_pushes();
            king_moves(m_king_steps & ~m_targets);
            castlings();
            m_out.finish();
        }
    }

private:
    static constexpr Side them = opposite(us);
    static constexpr std::int32_t up = us == Side::white ? 8 : -8;
    static constexpr Bitboard last_rank = us == Side::white ? rank_8 : rank_1;
    static constexpr Bitboard before_last_rank = us == Side::white ? rank_7 : rank_2;
    static constexpr Bitboard single_step_rank = us == Side::white ? rank_3 : rank_6;
    static constexpr std::int32_t back_rank = us == Side::white ? 0 : 56;

    /// A piece and some of its moves, kept to be written later. Plain numbers, so that the room for them is
    /// not cleared at each run.
    struct Mover {
        std::uint64_t targets;
        std::uint64_t checks;
        std::uint32_t base;
    };

    static constexpr Bitboard forward(Bitboard squares) {
        return us == Side::white ? squares << 8 : squares >> 8;
    }
    static constexpr Bitboard backward(Bitboard squares) {
        return us == Side::white ? squares >> 8 : squares << 8;
    }

    /// All of a move's word but to, capture and check.
    static constexpr std::uint32_t base(PieceKind kind, Square from, MoveCode code = MoveCode::normal_move) {
        return static_cast<std::uint32_t>(from.value()) << 6 | static_cast<std::uint32_t>(code) << 12 |
               Piece(kind, us).code() << 20 | static_cast<std::uint32_t>(XCode::xnormal_move) << 24;
    }

    Bitboard pieces(PieceKind kind) const { return m_board.pieces(kind, us); }

    /// Where a piece on `from` may land, as far as check and pin go.
    Bitboard landing(Square from) const {
        return m_pinned.contains(from) ? m_check_mask & bit_tables.ray_through(m_king, from) : m_check_mask;
    }

    /// The squares on which a piece from `from` checks: those of its kind, and all off the line that it
    /// uncovers.
    Bitboard checks_from(Square from, Bitboard checks_of_kind) const {
        return m_discovering.contains(from) ? checks_of_kind | ~bit_tables.ray_through(m_enemy_king, from)
                                            : checks_of_kind;
    }

    void put_captures(std::uint32_t base, Bitboard targets, Bitboard checks) {
        while (targets.any() && !m_out.full()) {
            const Square to = targets.pop_square();
            m_out.put(base | to_bits(to) | check_bit(checks, to) | capture_bits(m_board.piece_on(to)));
        }
    }

    void put_quiet(std::uint32_t base, Bitboard targets, Bitboard checks) {
        if (m_out.full()) return;
        if ((targets & checks).empty()) {
            m_out.put_each(base, targets);
            return;
        }
        while (targets.any()) {
            const Square to = targets.pop_square();
            m_out.put(base | to_bits(to) | check_bit(checks, to));
        }
    }

    // Stage one.

    void pawn_captures() {
        const Bitboard pawns = pieces(PieceKind::pawn);
        const Bitboard promotion_pushes = forward(pawns & before_last_rank) & ~m_occupied;
        const Bitboard ep_pawns = pawns_that_reach_ep();
        Bitboard movers = (pawns & pawn_attacks<them>(m_targets & m_check_mask)) |
                          backward(promotion_pushes & m_check_mask) | ep_pawns;
        const Bitboard checks_of_pawns = bit_tables.pawn_attacks(m_enemy_king, them);
        while (movers.any() && !m_out.full()) {
            const Square from = movers.pop_square();
            const Bitboard mask = landing(from);
            const Bitboard captures = bit_tables.pawn_attacks(from, us) & m_targets & mask;
            put_captures(base(PieceKind::pawn, from), captures & ~last_rank,
                         checks_from(from, checks_of_pawns));
            if (ep_pawns.contains(from)) put_en_passant(from);
            const Bitboard push = forward(from.bit()) & promotion_pushes & mask;
            put_promotions(from, (captures & last_rank) | push);
        }
    }

    /// An en passant square read from a FEN may be any: the target must be empty and an enemy pawn behind it.
    Bitboard pawns_that_reach_ep() const {
        if (!m_ep_square.on_board()) return no_squares;
        const Bitboard victim = backward(m_ep_square.bit()) & m_board.pieces(PieceKind::pawn, them);
        if (victim.empty() || m_occupied.contains(m_ep_square)) return no_squares;
        return bit_tables.pawn_attacks(m_ep_square, them) & pieces(PieceKind::pawn);
    }

    /// The one kind that is tested by itself, since two pawns leave their rank at once; it is rare enough.
    void put_en_passant(Square from) {
        const std::uint32_t word = base(PieceKind::pawn, from, MoveCode::en_passant) | to_bits(m_ep_square) |
                                   capture_bits(Piece(PieceKind::pawn, them));
        const Move move = Move::from_word(word);
        if (!is_legal_en_passant(m_board, move)) return;
        m_out.put(word | static_cast<std::uint32_t>(gives_check(m_board, move)) << 15);
    }

    void put_promotions(Square from, Bitboard targets) {
        if (targets.empty()) return;
        // The new piece looks along the line that its pawn has left.
        const Bitboard occupied = m_occupied & ~from.bit();
        const Bitboard diagonal = m_magics.bishop_attacks(m_enemy_king, occupied);
        const Bitboard straight = m_magics.rook_attacks(m_enemy_king, occupied);
        const Bitboard uncovered = checks_from(from, no_squares);
        const std::array<Bitboard, 4> checks = {diagonal | straight | uncovered, straight | uncovered,
                                                diagonal | uncovered,
                                                bit_tables.knight_moves(m_enemy_king) | uncovered};
        while (targets.any() && !m_out.full()) {
            const Square to = targets.pop_square();
            const std::uint32_t fields = to_bits(to) | capture_bits(m_board.piece_on(to));
            for (std::uint32_t i = 0; i < checks.size(); ++i) {
                const auto code =
                    static_cast<MoveCode>(static_cast<std::uint32_t>(MoveCode::promo_queen) + i);
                m_out.put(base(PieceKind::pawn, from, code) | fields | check_bit(checks[i], to));
            }
        }
    }

    void other_captures() {
        const Bitboard diagonal_checks = m_magics.bishop_attacks(m_enemy_king, m_occupied);
        const Bitboard straight_checks = m_magics.rook_attacks(m_enemy_king, m_occupied);
        // A pinned knight has no move.
        piece_captures(PieceKind::knight, pieces(PieceKind::knight) & ~m_pinned,
                       bit_tables.knight_moves(m_enemy_king),
                       [](Square from) { return bit_tables.knight_moves(from); });
        m_bishops = m_movers_end;
        piece_captures(PieceKind::bishop, pieces(PieceKind::bishop), diagonal_checks,
                       [this](Square from) { return m_magics.bishop_attacks(from, m_occupied); });
        m_rooks = m_movers_end;
        piece_captures(PieceKind::rook, pieces(PieceKind::rook), straight_checks,
                       [this](Square from) { return m_magics.rook_attacks(from, m_occupied); });
        m_queens = m_movers_end;
        piece_captures(PieceKind::queen, pieces(PieceKind::queen), diagonal_checks | straight_checks,
                       [this](Square from) { return m_magics.queen_attacks(from, m_occupied); });
    }

    template <class Attacks>
    void piece_captures(PieceKind kind, Bitboard from_squares, Bitboard checks_of_kind, Attacks attacks) {
        while (from_squares.any()) {
            const Square from = from_squares.pop_square();
            const Bitboard reach = attacks(from) & landing(from);
            const Bitboard checks = checks_from(from, checks_of_kind);
            put_captures(base(kind, from), reach & m_targets, checks);
            m_movers[m_movers_end++] = {(reach & ~m_occupied).value(), checks.value(), base(kind, from)};
        }
    }

    /// The king's steps that are safe, and what the enemy attacks of these and of the squares that castling
    /// crosses. The king is taken off the board, so that it cannot hide behind itself.
    void find_king_moves() {
        m_king_steps = bit_tables.king_moves(m_king) & (m_targets | ~m_occupied);
        Bitboard of_interest = m_king_steps;
        if constexpr (stages == Stages::all) {
            if (m_rights != 0 && m_checkers.empty()) of_interest |= find_castling_rooks();
        }
        if (of_interest.empty()) return;
        m_danger = attacked_by_enemy(of_interest);
        m_king_steps &= ~m_danger;
    }

    /// What the enemy attacks, exact within `of_interest`.
    ///
    /// Sliders that share no line with a square of interest are passed over, which is most of them.
    Bitboard attacked_by_enemy(Bitboard of_interest) const {
        const Bitboard occupied = m_occupied & ~m_king.bit();
        Bitboard attacked = pawn_attacks<them>(m_board.pieces(PieceKind::pawn, them)) |
                            knight_attacks(m_board.pieces(PieceKind::knight, them)) |
                            bit_tables.king_moves(m_enemy_king);
        for (Bitboard pieces = m_board.diagonal_sliders(them); pieces.any();) {
            const Square from = pieces.pop_square();
            if ((bit_tables.bishop_lines(from) & of_interest).empty()) continue;
            attacked |= m_magics.bishop_attacks(from, occupied);
        }
        for (Bitboard pieces = m_board.straight_sliders(them); pieces.any();) {
            const Square from = pieces.pop_square();
            if ((bit_tables.rook_lines(from) & of_interest).empty()) continue;
            attacked |= m_magics.rook_attacks(from, occupied);
        }
        return attacked;
    }

    void king_moves(Bitboard targets) {
        const Bitboard checks = checks_from(m_king, no_squares);
        put_captures(base(PieceKind::king, m_king), targets & m_occupied, checks);
        put_quiet(base(PieceKind::king, m_king), targets & ~m_occupied, checks);
    }

    // Stage two.

    void other_quiet_moves() {
        put_movers(m_queens, m_movers_end);
        put_movers(m_rooks, m_queens);
        put_movers(0, m_bishops);
        put_movers(m_bishops, m_rooks);
    }

    void put_movers(std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            put_quiet(m_movers[i].base, Bitboard(m_movers[i].targets), Bitboard(m_movers[i].checks));
        }
    }

    /// A pinned pawn can only push when its king stands on the same file.
    void pawn_pushes() {
        const Bitboard pawns = pieces(PieceKind::pawn) & ~before_last_rank & (~m_pinned | m_king.file_mask());
        const Bitboard single = forward(pawns) & ~m_occupied;
        const Bitboard single_legal = single & m_check_mask;
        const Bitboard double_legal = forward(single & single_step_rank) & ~m_occupied & m_check_mask;
        const Bitboard single_movers = backward(single_legal);
        const Bitboard double_movers = backward(backward(double_legal));
        const Bitboard checks_of_pawns = bit_tables.pawn_attacks(m_enemy_king, them);
        Bitboard movers = single_movers | double_movers;
        const bool none_checks =
            ((movers & m_discovering) | ((single_legal | double_legal) & checks_of_pawns)).empty();
        while (movers.any() && !m_out.full()) {
            const Square from = movers.pop_square();
            const Bitboard checks = none_checks ? no_squares : checks_from(from, checks_of_pawns);
            const std::uint32_t word = base(PieceKind::pawn, from);
            const auto put_step = [&](Bitboard step_movers, std::int32_t step) {
                const Square to(from.value() + step);
                const std::uint32_t check = none_checks ? 0 : check_bit(checks, Square(to.value() & 63));
                m_out.put_if((step_movers.value() >> from.value() & 1) != 0, (word + to_bits(to)) | check);
            };
            // Destinations ascend, which puts Black's double step first.
            if constexpr (us == Side::black) put_step(double_movers, 2 * up);
            put_step(single_movers, up);
            if constexpr (us == Side::white) put_step(double_movers, 2 * up);
        }
    }

    /// Keeps the rooks that have the right to castle and a free way; returns the king's ways. Rights are
    /// valid in a FEN without the rook, and without the king on its rank.
    Bitboard find_castling_rooks() {
        Bitboard king_ways;
        if (m_king.value() / 8 != back_rank / 8) return king_ways;
        for (Bitboard files(m_rights); files.any();) {
            const Square rook = files.pop_square() + back_rank;
            if (!pieces(PieceKind::rook).contains(rook)) continue;
            if ((bit_tables.between(m_king, rook) & m_occupied).any()) continue;  // part of both ways
            const CastlingTargets targets = castling_targets(m_king, rook, us);
            const Bitboard king_way = bit_tables.between_inclusive(m_king, targets.king);
            const Bitboard rook_way = bit_tables.between_inclusive(rook, targets.rook);
            const Bitboard others = m_occupied & ~m_king.bit() & ~rook.bit();
            if (((king_way | rook_way) & others).any()) continue;
            m_castling_rooks.set(rook);
            king_ways |= king_way;
        }
        return king_ways;
    }

    void castlings() {
        while (m_castling_rooks.any() && !m_out.full()) {
            const Square rook = m_castling_rooks.pop_square();
            const CastlingTargets targets = castling_targets(m_king, rook, us);
            if ((bit_tables.between_inclusive(m_king, targets.king) & m_danger).any()) continue;
            // The rook itself may have shielded the king's new square.
            const Bitboard others = m_occupied & ~m_king.bit() & ~rook.bit();
            const Bitboard unshielded = m_magics.rook_attacks(targets.king, others);
            if ((unshielded & m_board.straight_sliders(them)).any()) continue;

            const Bitboard occupied = others | targets.king.bit() | targets.rook.bit();
            const Bitboard straight = (m_board.straight_sliders(us) & ~rook.bit()) | targets.rook.bit();
            const bool checks =
                (m_magics.rook_attacks(m_enemy_king, occupied) & straight).any() ||
                (m_magics.bishop_attacks(m_enemy_king, occupied) & m_board.diagonal_sliders(us)).any();
            m_out.put(base(PieceKind::king, m_king, MoveCode::castling) | to_bits(rook) |
                      static_cast<std::uint32_t>(checks) << 15);
        }
    }

    // Constant during the run.
    const BoardPosition& m_board;
    const MagicMoves& m_magics;
    MoveList::Writer m_out;
    const Square m_king;
    const Square m_enemy_king;
    const Square m_ep_square;
    const std::uint32_t m_rights;  // of the own rooks, by file
    const Bitboard m_occupied;
    const Bitboard m_targets;  // the enemy's pieces but the king
    const Bitboard m_pinned;
    const Bitboard m_discovering;
    const Bitboard m_checkers;

    Bitboard m_check_mask = all_squares;
    Bitboard m_king_steps;
    Bitboard m_danger;
    Bitboard m_castling_rooks;
    std::size_t m_bishops = 0;  // where the bishops begin in m_movers; knights come first
    std::size_t m_rooks = 0;
    std::size_t m_queens = 0;
    std::size_t m_movers_end = 0;
    // Of four kinds, each of which may stand anywhere: an illegal move can leave two pieces on one square.
    std::array<Mover, std::size_t{4} * 64> m_movers;
};

/// When the side to move could take the enemy king, which only a set-up board allows, every move leaves or
/// uncovers that check, and the sets of a single mover do not tell.
void repair_check_bits(const BoardPosition& board, Move* first, Move* last) {
    for (Move* move = first; move < last; ++move) move->set_check(gives_check(board, *move));
}

template <Stages stages>
void generate(const ChessPosition& position, MoveList& list) {
    const BoardPosition& board = position.board();
    const PositionState& state = position.state();
    if (!state.kings.white.on_board() || !state.kings.black.on_board()) return;
    const std::size_t start = list.size();
    if (board.side_to_move() == Side::white) {
        Generation<Side::white, stages>(board, state, list).run(list);
    } else {
        Generation<Side::black, stages>(board, state, list).run(list);
    }
    if (checkers(board, state, opposite(board.side_to_move())).any()) {
        repair_check_bits(board, list.begin() + start, list.end());
    }
}

}  // namespace

void MoveGenerator::generate_all(const ChessPosition& position, MoveList& list) {
    if (list.generated()) return;
    generate<Stages::all>(position, list);
    list.set_generated(true);
}

void MoveGenerator::generate_captures(const ChessPosition& position, MoveList& list) {
    generate<Stages::captures>(position, list);
}

}  // namespace velmora
