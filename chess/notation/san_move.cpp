#include "chess/notation/san_move.h"

#include "chess/notation/san_reader.h"
#include "chess/notation/san_writer.h"

namespace velmora {

SanMove::SanMove(const ChessPosition& position, const Move& move)
    : Move(move), m_position(&position), m_san(write_san(position, move)) {}

SanMove::SanMove(const ChessPosition& position, std::string_view text)
    : Move(read_san(position, text)), m_position(&position), m_san(text) {}

SanMove& SanMove::operator=(const Move& move) {
    Move::operator=(move);
    m_san = write_san(*m_position, move);
    return *this;
}

SanMove& SanMove::operator=(std::string_view text) {
    Move::operator=(read_san(*m_position, text));
    m_san = text;
    return *this;
}

bool SanMove::is_legal(Square from, Square to) const {
    return counts_for_disambiguation(*m_position, from, to);
}

}  // namespace velmora
