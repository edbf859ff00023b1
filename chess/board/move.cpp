#include "chess/board/move.h"

#include <array>
#include <ostream>
#include <string_view>

namespace velmora {

namespace {

using namespace std::string_view_literals;

// By code; the trailing blanks belong to the texts.
constexpr auto code_texts = std::to_array<std::string_view>({
    "nullmove  "sv,
    "normal_move  "sv,
    "promo_queen  "sv,
    "promo_rook  "sv,
    "promo_bishop  "sv,
    "promo_knight  "sv,
    "castling  "sv,
    "en_passant  "sv,
});

// By xcode.
constexpr auto xcode_texts = std::to_array<std::string_view>({
    "hashtable_move"sv,
    "mate_attack"sv,
    "promotion"sv,
    "threat_move"sv,
    "extended_move"sv,
    "good_capture"sv,
    "safe_check"sv,
    "killer"sv,
    "castle"sv,
    "counter_move"sv,
    "checking move"sv,
    "pawn_race"sv,
    "losing_capture"sv,
    "historical_move"sv,
    "xnormal_move"sv,
    "no_xmove_t"sv,
});

struct CastlingText {
    std::string_view takes_rook;
    std::string_view classic;
};
constexpr auto castling_texts =
    std::to_array<CastlingText>({{"e1h1", "e1g1"}, {"e1a1", "e1c1"}, {"e8h8", "e8g8"}, {"e8a8", "e8c8"}});

}  // namespace

std::string Move::to_string(bool chess960) const {
    if (empty()) return "0000";
    std::string text = {from().file_char(), from().rank_char(), to().file_char(), to().rank_char()};
    if (is_promotion(code())) text += "qrbn"[static_cast<std::uint32_t>(code()) - 2];
    if (code() == MoveCode::castling && !chess960) {
        for (const CastlingText& row : castling_texts) {
            if (text == row.takes_rook) return std::string(row.classic);
        }
    }
    return text;
}

std::string Move::dump() const {
    std::string text = "from:" + from().name() + "  to:" + to().name() + "  code:";
    text += code_texts[static_cast<std::size_t>(code())];
    text += "piece:" + piece().name() + "  capture:" + capture().name();
    text += check() ? "  check:true   xcode:" : "  check:false   xcode:";
    if (static_cast<std::size_t>(xcode()) < xcode_texts.size())
        text += xcode_texts[static_cast<std::size_t>(xcode())];
    return text;
}

std::ostream& operator<<(std::ostream& out, const Move& move) { return out << move.to_string(false); }

}  // namespace velmora
