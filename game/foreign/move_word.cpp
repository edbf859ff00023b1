#include "game/foreign/move_word.h"

#include <algorithm>
#include <array>

#include "chess/moves/legal_moves.h"
#include "game/foreign/encoding.h"
#include "game/foreign/result_word.h"

namespace velmora {

namespace {

/// No move in any of the spellings has more bytes; what is longer is prose.
constexpr std::size_t longest_word = 48;

bool names_file(char c) { return c >= 'a' && c <= 'h'; }
bool names_rank(char c) { return c >= '1' && c <= '8'; }
bool names_square(std::string_view text) {
    return text.size() == 2 && names_file(text[0]) && names_rank(text[1]);
}

struct Sign {
    std::string_view text;
    std::string_view glyph;
};

/// Longer ones first: each is looked for at the end of a word. The glyphs are numbered by section 10 of the
/// PGN standard, the signs those of books and of the Informant.
constexpr auto signs = std::to_array<Sign>({
    {"+/-", "$16"},
    {"-/+", "$17"},
    {"+/=", "$14"},
    {"=/+", "$15"},
    {"--+", "$19"},
    {"+--", "$18"},
    {"!!", "$3"},
    {"??", "$4"},
    {"!?", "$5"},
    {"?!", "$6"},
    {"+=", "$14"},
    {"=+", "$15"},
    {"+-", "$18"},
    {"-+", "$19"},
    {"!", "$1"},
    {"?", "$2"},
    {"=", "$10"},
    {"~", "$13"},
});

/// What a character beyond ASCII stands for in a move; nothing for one that has no place there.
std::optional<std::string_view> plain_text(char32_t character) {
    constexpr char32_t white_king = 0x2654;
    constexpr char32_t black_pawn = 0x265F;
    constexpr std::array<std::string_view, 6> letters{"K", "Q", "R", "B", "N", ""};
    if (character >= white_king && character <= black_pawn) return letters[(character - white_king) % 6];
    switch (character) {
        case 0xB1:  // plus-minus
            return "+/-";
        case 0x2213:  // minus-or-plus
            return "-/+";
        case 0x2A72:  // plus above equals
            return "+/=";
        case 0x2A71:  // equals above plus
            return "=/+";
        case 0x221E:  // infinity
            return "~";
        case 0x203C:
            return "!!";
        case 0x2047:
            return "??";
        case 0x2048:
            return "?!";
        case 0x2049:
            return "!?";
        case 0x2020:  // daggers, for check and mate
        case 0x2021:
            return "+";
        case 0x200B:  // spaces and joiners without width, marks of how a figurine is drawn
        case 0x200D:
        case 0xFE0E:
        case 0xFE0F:
        case 0xFEFF:
            return "";
        default:
            return std::nullopt;
    }
}

bool is_figurine(char32_t character) { return character >= 0x2654 && character <= 0x265F; }

/// Takes the parts off a word's end, until what is left is the move.
class MoveWordReader {
public:
    explicit MoveWordReader(std::string_view word) {
        if (word.size() > longest_word || !write_plainly(word)) m_text.clear();
    }

    MoveWord read() {
        if (is_null_word()) {
            m_word.is_null = true;
            return m_word;
        }
        take_suffixes();
        if (m_text.empty() || read_castling()) return m_word;
        take_promotion();
        if (has_destination()) m_word.move = m_text;
        return m_word;
    }

private:
    /// False for a character that no move has.
    bool write_plainly(std::string_view word) {
        for (std::size_t at = 0; at < word.size();) {
            const auto next = first_character(word.substr(at));
            at += next.size;
            if (next.character < 0x80) {
                m_text += static_cast<char>(next.character);
            } else if (const char plain = plain_form(next.character)) {
                m_text += plain;
                note(RemarkKind::move_form);
            } else if (const auto text = plain_text(next.character)) {
                m_text += *text;
                if (is_figurine(next.character)) note(RemarkKind::figurine);
            } else {
                return false;
            }
        }
        return true;
    }

    void note(RemarkKind kind) {
        if (std::ranges::find(m_word.spelling, kind) == m_word.spelling.end())
            m_word.spelling.push_back(kind);
    }

    bool is_null_word() const {
        constexpr auto words =
            std::to_array<std::string_view>({"--", "Z0", "null", "Null", "NULL", "@@@@", "0000"});
        return std::ranges::find(words, m_text) != words.end();
    }

    bool take_end(std::string_view end) {
        if (!m_text.ends_with(end)) return false;
        m_text.resize(m_text.size() - end.size());
        return true;
    }

    /// Signs, marks of check and what stands behind moves in books, in any order.
    void take_suffixes() {
        while (!m_text.empty()) {
            if (take_end("e.p.") || take_end("e.p") || take_end("ep")) {
                note(RemarkKind::en_passant);
            } else if (!take_sign() && !take_end("+") && !take_end("#") && !take_end(",") && !take_end(".")) {
                break;
            }
        }
        std::ranges::reverse(m_word.glyphs);
    }

    bool take_sign() {
        const auto found =
            std::ranges::find_if(signs, [this](const Sign& sign) { return m_text.ends_with(sign.text); });
        if (found == signs.end()) return false;
        m_text.resize(m_text.size() - found->text.size());
        m_word.glyphs.emplace_back(found->glyph);
        const bool is_suffix = found->text.find_first_not_of("!?") == std::string_view::npos;
        if (!is_suffix) note(RemarkKind::sign);
        return true;
    }

    bool read_castling() {
        std::string letters;
        for (const char c : m_text) {
            if (c == '0' || c == 'O' || c == 'o') {
                letters += 'O';
            } else if (c != '-') {
                return false;
            }
        }
        if (letters.size() != 2 && letters.size() != 3) return false;
        m_word.castling = static_cast<std::uint8_t>(letters.size());
        if (m_text != (letters.size() == 2 ? "O-O" : "O-O-O")) note(RemarkKind::castling);
        return true;
    }

    /// "=Q", "Q", "(Q)", "/Q", and each with a small letter; behind the rank of a square only.
    void take_promotion() {
        std::string_view rest = m_text;
        const bool in_parentheses = rest.ends_with(')');
        if (in_parentheses) rest.remove_suffix(1);
        if (rest.empty()) return;
        const char letter = rest.back();
        constexpr std::string_view letters = "QRBNqrbn";
        const auto index = letters.find(letter);
        if (index == std::string_view::npos) return;
        rest.remove_suffix(1);
        if (in_parentheses) {
            if (!rest.ends_with('(')) return;
            rest.remove_suffix(1);
        }
        const bool has_mark = rest.ends_with('=') || rest.ends_with('/');
        const bool is_san = rest.ends_with('=') && !in_parentheses && index < 4;
        if (has_mark) rest.remove_suffix(1);
        if (rest.size() < 2 || (rest.back() != '1' && rest.back() != '8')) return;
        m_word.promotion = letters[index % 4];
        if (!is_san) note(RemarkKind::promotion);
        m_text.resize(rest.size());
    }

    /// A square at the end, or two files, as in "exd".
    bool has_destination() const {
        const std::string_view text = m_text;
        if (text.size() < 2) return false;
        if (names_square(text.substr(text.size() - 2))) return true;
        return text.size() <= 3 && names_file(text.front()) && names_file(text.back()) &&
               (text.size() == 2 || text[1] == 'x');
    }

    std::string m_text;
    MoveWord m_word;
};

/// A move's text as what it asks of the move; what isn't told is 0.
struct MovePattern {
    char piece = 0;  // 'P' for a pawn
    char from_file = 0, from_rank = 0;
    char to_file = 0, to_rank = 0;
};

/// Nothing for a text of another form.
std::optional<MovePattern> pattern_of(std::string_view text, std::vector<char>& unusual) {
    MovePattern pattern;
    if (names_rank(text.back())) {
        pattern.to_rank = text.back();
        text.remove_suffix(1);
    }
    pattern.to_file = text.back();
    text.remove_suffix(1);
    if (!text.empty() && std::string_view("x:-").find(text.back()) != std::string_view::npos) {
        if (text.back() != 'x') unusual.push_back(text.back());
        text.remove_suffix(1);
    }
    if (!text.empty() && names_rank(text.back())) {
        pattern.from_rank = text.back();
        text.remove_suffix(1);
    }
    if (!text.empty() && names_file(text.back())) {
        pattern.from_file = text.back();
        text.remove_suffix(1);
    }
    if (text.empty()) return pattern;
    constexpr std::string_view letters = "KQRBNPkqrnp";  // a small b is a file
    if (text.size() > 1 || letters.find(text.front()) == std::string_view::npos) return std::nullopt;
    const bool is_small = text.front() >= 'a';
    if (is_small || text.front() == 'P') unusual.push_back(text.front());
    pattern.piece = is_small ? static_cast<char>(text.front() - 'a' + 'A') : text.front();
    return pattern;
}

char file_letter(Square square) { return static_cast<char>('a' + square.value() % 8); }
char rank_digit(Square square) { return static_cast<char>('1' + square.value() / 8); }

char piece_letter(Piece piece) {
    switch (piece.kind()) {
        case PieceKind::king:
            return 'K';
        case PieceKind::queen:
            return 'Q';
        case PieceKind::rook:
            return 'R';
        case PieceKind::bishop:
            return 'B';
        case PieceKind::knight:
            return 'N';
        default:
            return 'P';
    }
}

char promotion_letter(Move move) {
    switch (move.code()) {
        case MoveCode::promo_queen:
            return 'Q';
        case MoveCode::promo_rook:
            return 'R';
        case MoveCode::promo_bishop:
            return 'B';
        case MoveCode::promo_knight:
            return 'N';
        default:
            return 0;
    }
}

bool fits(char wanted, char has) { return wanted == 0 || wanted == has; }

bool is_named(Move move, const MovePattern& pattern, char promotion) {
    const bool has_origin = pattern.from_file != 0 && pattern.from_rank != 0;
    if (!fits(pattern.from_file, file_letter(move.from())) ||
        !fits(pattern.from_rank, rank_digit(move.from())))
        return false;
    if (move.code() == MoveCode::castling) {
        // As UCI writes it in classic games: the king goes to the g-file or the c-file.
        const char king_file = move.to().value() > move.from().value() ? 'g' : 'c';
        return has_origin && fits(pattern.piece, 'K') && pattern.to_file == king_file &&
               pattern.to_rank == rank_digit(move.from());
    }
    // A text with both squares needs no letter.
    const char piece = pattern.piece == 0 && !has_origin ? 'P' : pattern.piece;
    return fits(piece, piece_letter(move.piece())) && pattern.to_file == file_letter(move.to()) &&
           fits(pattern.to_rank, rank_digit(move.to())) && promotion == promotion_letter(move);
}

}  // namespace

MoveWord take_apart(std::string_view word) {
    auto read = MoveWordReader(word).read();
    if (read.move.empty()) return read;
    std::vector<char> unusual;
    const auto pattern = pattern_of(read.move, unusual);
    if (!pattern) {
        read.move.clear();
        return read;
    }
    const bool is_long = pattern->piece == 0 && pattern->from_file != 0 && pattern->from_rank != 0;
    if (is_long || pattern->to_rank == 0 || !unusual.empty()) read.spelling.push_back(RemarkKind::move_form);
    return read;
}

std::optional<Move> find_move(const ChessPosition& position, const MoveWord& word, bool& several) {
    several = false;
    if (!word.may_be_move()) return std::nullopt;
    std::vector<char> unusual;
    const auto pattern = word.castling == 0 ? pattern_of(word.move, unusual) : MovePattern();
    std::optional<Move> found;
    if (!pattern) return found;
    const bool to_king_side = word.castling == 2;
    for (const auto& move : legal_moves(position)) {
        const bool castles = move.code() == MoveCode::castling;
        const bool fits_word = word.castling == 0
                                   ? is_named(move, *pattern, word.promotion)
                                   : castles && (move.to().value() > move.from().value()) == to_king_side;
        if (!fits_word) continue;
        if (found) {
            several = true;
            return std::nullopt;
        }
        found = move;
    }
    return found;
}

}  // namespace velmora
