#pragma once

#include <array>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace velmora::test {

/// A slow chess board of letters that shares nothing with the library: moves are walked square by square,
/// made on a copy, and dropped when the king stands attacked. What it says is held against the library.
class Mailbox {
public:
    /// From, to, move code, whether it gives check.
    using SlowMove = std::tuple<int, int, int, bool>;

    explicit Mailbox(const std::string& fen) {
        std::istringstream in(fen);
        std::string pieces, side, castling, ep;
        in >> pieces >> side >> castling >> ep;
        int square = 56;
        for (const char c : pieces) {
            if (c == '/')
                square -= 16;
            else if (std::isdigit(c) != 0)
                square += c - '0';
            else
                m_board.at(static_cast<std::size_t>(square++)) = c;
        }
        m_white = side == "w";
        m_ep = ep == "-" ? -1 : ep[0] - 'a' + (ep[1] - '1') * 8;
        for (const char c : castling) add_right(c);
    }

    std::multiset<SlowMove> legal_moves() const {
        std::multiset<SlowMove> result;
        for (const Step& step : pseudo_moves()) {
            const Mailbox after = made(step);
            if (after.attacked(after.king(m_white), !m_white)) continue;
            result.emplace(step.from, step.to, step.code, after.attacked(after.king(!m_white), m_white));
        }
        return result;
    }

    /// The squares, as bits, of the colour's pieces that attack the square.
    std::uint64_t attackers(int square, bool white) const {
        std::uint64_t result = 0;
        for (int from = 0; from < 64; ++from) {
            if (at(from) == '.' || is_white(at(from)) != white) continue;
            for (const int to : attacks(from)) {
                if (to == square) result |= std::uint64_t{1} << from;
            }
        }
        return result;
    }
    bool attacked(int square, bool white) const { return attackers(square, white) != 0; }
    bool in_check() const { return attacked(king(m_white), !m_white); }

private:
    struct Step {
        int from, to, code;
    };

    static bool is_white(char piece) { return std::isupper(piece) != 0; }
    char at(int square) const { return m_board[static_cast<std::size_t>(square)]; }
    char& at(int square) { return m_board[static_cast<std::size_t>(square)]; }
    bool own(int square) const { return at(square) != '.' && is_white(at(square)) == m_white; }
    int king(bool white) const {
        int square = 0;
        while (at(square) != (white ? 'K' : 'k')) ++square;
        return square;
    }

    void add_right(char letter) {
        const bool white = is_white(letter);
        const int rank = white ? 0 : 56;
        const char rook = white ? 'R' : 'r';
        const char upper = static_cast<char>(std::toupper(letter));
        int file = upper - 'A';
        if (upper == 'K')
            for (file = 7; at(rank + file) != rook; --file) {
            }
        if (upper == 'Q')
            for (file = 0; at(rank + file) != rook; ++file) {
            }
        if (letter != '-') m_castling_rooks.push_back(rank + file);
    }

    /// The squares on a walk of (files, ranks) steps, up to and including the first piece.
    void walk(int from, int files, int ranks, int steps, std::vector<int>& squares) const {
        int file = from % 8 + files;
        int rank = from / 8 + ranks;
        for (; steps-- > 0 && file >= 0 && file < 8 && rank >= 0 && rank < 8; file += files, rank += ranks) {
            squares.push_back(rank * 8 + file);
            if (at(squares.back()) != '.') return;
        }
    }

    std::vector<int> attacks(int from) const {
        std::vector<int> squares;
        const char piece = at(from);
        const char kind = static_cast<char>(std::toupper(piece));
        if (kind == 'P') {
            for (const int files : {-1, 1}) walk(from, files, is_white(piece) ? 1 : -1, 1, squares);
        } else if (kind == 'N') {
            for (const int a : {-2, -1, 1, 2}) {
                for (const int b : {-2, -1, 1, 2}) {
                    if (std::abs(a) != std::abs(b)) walk(from, a, b, 1, squares);
                }
            }
        } else {
            const int steps = kind == 'K' ? 1 : 7;
            for (int files = -1; files <= 1; ++files) {
                for (int ranks = -1; ranks <= 1; ++ranks) {
                    const bool straight = files == 0 || ranks == 0;
                    if ((files == 0 && ranks == 0) || (kind == 'B' && straight) || (kind == 'R' && !straight))
                        continue;
                    walk(from, files, ranks, steps, squares);
                }
            }
        }
        return squares;
    }

    void add_pawn_step(int from, int to, std::vector<Step>& steps) const {
        if (to / 8 == 0 || to / 8 == 7) {
            for (int code = 2; code <= 5; ++code) steps.push_back({from, to, code});
        } else {
            steps.push_back({from, to, 1});
        }
    }

    void add_pawn_moves(int from, std::vector<Step>& steps) const {
        const int up = m_white ? 8 : -8;
        for (const int to : attacks(from)) {
            if (at(to) != '.' && !own(to) && std::toupper(at(to)) != 'K') add_pawn_step(from, to, steps);
            if (to == m_ep && at(to) == '.' && at(to - up) == (m_white ? 'p' : 'P'))
                steps.push_back({from, to, 7});
        }
        if (at(from + up) != '.') return;
        add_pawn_step(from, from + up, steps);
        if (from / 8 == (m_white ? 1 : 6) && at(from + 2 * up) == '.')
            steps.push_back({from, from + 2 * up, 1});
    }

    void add_castling(int rook, std::vector<Step>& steps) const {
        const int from = king(m_white);
        const int rank = m_white ? 0 : 56;
        if (!own(rook) || std::toupper(at(rook)) != 'R' || rook / 8 != rank / 8 || from / 8 != rank / 8)
            return;
        const int king_to = rank + (rook > from ? 6 : 2);
        const int rook_to = rank + (rook > from ? 5 : 3);
        for (int square = rank; square < rank + 8; ++square) {
            const auto on_way = [square](int a, int b) {
                return square >= std::min(a, b) && square <= std::max(a, b);
            };
            const bool crossed = on_way(from, king_to) || on_way(rook, rook_to);
            if (crossed && square != from && square != rook && at(square) != '.') return;
            if (on_way(from, king_to) && attacked(square, !m_white)) return;
        }
        steps.push_back({from, rook, 6});
    }

    std::vector<Step> pseudo_moves() const {
        std::vector<Step> steps;
        for (int from = 0; from < 64; ++from) {
            if (!own(from)) continue;
            if (std::toupper(at(from)) == 'P') {
                add_pawn_moves(from, steps);
                continue;
            }
            for (const int to : attacks(from)) {
                if (!own(to) && std::toupper(at(to)) != 'K') steps.push_back({from, to, 1});
            }
        }
        for (const int rook : m_castling_rooks) add_castling(rook, steps);
        return steps;
    }

    Mailbox made(const Step& step) const {
        Mailbox after(*this);
        const char piece = at(step.from);
        after.at(step.from) = '.';
        if (step.code == 6) {
            const int rank = m_white ? 0 : 56;
            after.at(step.to) = '.';
            after.at(rank + (step.to > step.from ? 6 : 2)) = piece;
            after.at(rank + (step.to > step.from ? 5 : 3)) = m_white ? 'R' : 'r';
            return after;
        }
        if (step.code == 7) after.at(step.to + (m_white ? -8 : 8)) = '.';
        const char promoted = step.code >= 2 && step.code <= 5 ? "QRBN"[step.code - 2] : piece;
        after.at(step.to) = m_white ? promoted : static_cast<char>(std::tolower(promoted));
        return after;
    }

    std::array<char, 64> m_board = [] {
        std::array<char, 64> empty{};
        empty.fill('.');
        return empty;
    }();
    bool m_white = true;
    int m_ep = -1;
    std::vector<int> m_castling_rooks;
};

}  // namespace velmora::test
