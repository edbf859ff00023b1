#include "engine/drivers/xboard_lines.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/text.h"
#include "chess/board/piece.h"
#include "chess/board/side.h"

namespace velmora::xboard {

namespace {

/// A castling move is spelt with O, o or 0 throughout, joined by - or _ throughout.
bool is_castling(std::string_view word, std::size_t letters) {
    if (word.size() != 2 * letters - 1) return false;
    if (std::string_view("Oo0").find(word[0]) == std::string_view::npos) return false;
    if (word[1] != '-' && word[1] != '_') return false;
    for (std::size_t i = 2; i < word.size(); ++i) {
        if (word[i] != word[i % 2]) return false;
    }
    return true;
}

/// Nodes a second; the time of the protocol is in hundredths.
std::int64_t speed(std::int64_t nodes, std::int64_t hundredths) {
    if (hundredths <= 0) return 0;
    const float each = static_cast<float>(nodes) / static_cast<float>(hundredths) * 100.0F;
    constexpr float most = 9.2e18F;  // what 64 bits hold
    return static_cast<std::int64_t>(std::clamp(each, -most, most));
}

}  // namespace

std::string level_command(const Level& level) {
    switch (level.level_t()) {
        case LevelType::fixed_depth:
            return "sd " + std::to_string(level.depth());
        case LevelType::fixed_nodes:
            // The protocol knows no node limit; depth 2 stands in for it.
            return "sd 2";
        case LevelType::fixed_movetime:
            // In milliseconds, the number that UCI engines get, whatever an engine makes of it.
            return "st " + std::to_string(level.movetime());
        case LevelType::sudden_death:
            return "level 0 " + level.base_text() + ' ' + level.increment_text();
        case LevelType::sessions:
            break;
    }
    return "level " + std::to_string(level.moves()) + ' ' + level.base_text() + ' ' + level.increment_text();
}

std::string normalised_castling(std::string_view word, bool white_to_move, bool san) {
    if (is_castling(word, 2)) return san ? "O-O" : white_to_move ? "e1g1" : "e8g8";
    if (is_castling(word, 3)) return san ? "O-O-O" : white_to_move ? "e1c1" : "e8c8";
    return std::string(word);
}

std::optional<std::string_view> old_style_move(std::string_view line) {
    text::WordReader reader(line);
    if (reader.word() != "My" || reader.word() != "move") return std::nullopt;
    const auto is = reader.word();
    if (is != "is:" && (is != "is" || reader.word() != ":")) return std::nullopt;
    return reader.word();
}

std::string thinking_as_info(std::string_view line) {
    text::WordReader reader(line);
    const auto number = [&reader] { return reader.integer<std::int64_t>().value_or(0); };
    const auto depth = number();
    const auto score = number();
    const auto time = number();
    const auto nodes = number();
    std::string info = "info depth " + std::to_string(depth) + " score cp " + std::to_string(score) +
                       " time " + std::to_string(time) + " nodes " + std::to_string(nodes) + " nps " +
                       std::to_string(speed(nodes, time)) + ' ';
    return info.append(reader.rest());
}

std::vector<std::string> edit_commands(const ChessPosition& position) {
    struct EditedPiece {
        char letter;
        PieceKind kind;
    };
    static constexpr std::array<EditedPiece, 6> pieces{{{'K', PieceKind::king},
                                                        {'Q', PieceKind::queen},
                                                        {'R', PieceKind::rook},
                                                        {'B', PieceKind::bishop},
                                                        {'N', PieceKind::knight},
                                                        {'P', PieceKind::pawn}}};
    std::vector<std::string> commands{"edit", "#"};
    for (const Side side : {Side::white, Side::black}) {
        if (side == Side::black) commands.emplace_back("c");
        for (const EditedPiece& piece : pieces) {
            for (Square square(0); square < no_square; ++square) {
                if (position.piece_on(square) == Piece(piece.kind, side)) {
                    commands.push_back(piece.letter + square.name());
                }
            }
        }
    }
    commands.emplace_back(".");
    return commands;
}

}  // namespace velmora::xboard
