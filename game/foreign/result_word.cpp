#include "game/foreign/result_word.h"

#include "game/foreign/encoding.h"

namespace velmora {

namespace {

constexpr char32_t half_sign = 0xBD;

bool may_follow_result(std::string_view rest) {
    return rest.empty() ||
           std::string_view(" \t\r\n\v\f{};()[]<>*,").find(rest.front()) != std::string_view::npos;
}

/// Takes the parts of a result off a text.
class ResultReader {
public:
    explicit ResultReader(std::string_view text) : m_rest(text) {}

    bool take(char wanted) {
        if (m_rest.empty()) return false;
        const auto next = first_character(m_rest);
        const bool fits = next.is_valid && (next.character == static_cast<unsigned char>(wanted) ||
                                            plain_form(next.character) == wanted);
        if (fits) m_rest.remove_prefix(next.size);
        return fits;
    }
    bool take_half() {
        if (m_rest.empty()) return false;
        if (const auto next = first_character(m_rest); next.is_valid && next.character == half_sign) {
            m_rest.remove_prefix(next.size);
            return true;
        }
        return take('1') && take('/') && take('2');
    }
    std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

}  // namespace

char plain_form(char32_t character) {
    switch (character) {
        case 0x2010:  // hyphen
        case 0x2011:  // non-breaking hyphen
        case 0x2012:  // figure dash
        case 0x2013:  // en dash
        case 0x2014:  // em dash
        case 0x2015:  // horizontal bar
        case 0x2212:  // minus sign
        case 0xFE63:  // small hyphen-minus
        case 0xFF0D:  // fullwidth hyphen-minus
            return '-';
        case 0x2044:  // fraction slash
            return '/';
        case 0xD7:    // multiplication sign
        case 0x2715:  // multiplication x
            return 'x';
        default:
            return 0;
    }
}

ResultWord result_at(std::string_view text) {
    if (text.starts_with('*')) return {"*", 1};
    const auto result = [text](std::string_view strict, const ResultReader& reader) {
        return may_follow_result(reader.rest()) ? ResultWord{strict, text.size() - reader.rest().size()}
                                                : ResultWord();
    };
    if (ResultReader reader(text); reader.take_half()) {
        ResultReader whole = reader;
        if (whole.take('-') && whole.take_half()) return result("1/2-1/2", whole);
        return result("1/2-1/2", reader);
    }
    if (ResultReader reader(text); reader.take('1') && reader.take('-') && reader.take('0'))
        return result("1-0", reader);
    if (ResultReader reader(text); reader.take('0') && reader.take('-') && reader.take('1'))
        return result("0-1", reader);
    return {};
}

}  // namespace velmora
