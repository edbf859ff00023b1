#include "engine/store/option.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/text.h"

namespace velmora {

namespace {

/// The words that end a run of text, in a name or a default as well: "Skill spin" is read as "Skill".
/// The grammar of UCI has no quotes, so a keyword in a name can't be told from the next field.
constexpr auto keywords = std::to_array<std::string_view>(
    {"name", "type", "value", "default", "min", "max", "var", "check", "combo", "spin", "button", "string"});

bool is_keyword(std::string_view word) {
    return std::find(keywords.begin(), keywords.end(), word) != keywords.end();
}

/// Reads an option line keyword by keyword; `m_word` is always the word to look at next, empty at the end.
class OptionReader {
public:
    explicit OptionReader(std::string_view line) : m_reader(line) { next(); }

    std::string_view word() const { return m_word; }
    void next() { m_word = m_reader.word(); }

    /// The words behind the present keyword up to the next one, joined by single blanks.
    std::string run() {
        std::string result;
        for (next(); !m_word.empty() && !is_keyword(m_word); next()) append(result);
        return result;
    }

    /// The word behind the present keyword, whatever it is.
    std::string single() {
        next();
        std::string result(m_word);
        next();
        return result;
    }

    /// As run(), but the first word belongs to it even if it is a keyword.
    std::string run_of_one_or_more() {
        std::string result = single();
        for (; !m_word.empty() && !is_keyword(m_word); next()) append(result);
        return result;
    }

private:
    void append(std::string& text) const {
        if (!text.empty()) text += ' ';
        text += m_word;
    }

    text::WordReader m_reader;
    std::string_view m_word;
};

}  // namespace

Option::Option(std::string_view line) {
    OptionReader reader(line);
    if (reader.word() != "option") throw std::runtime_error("Option:Option  argument not an option");
    reader.next();
    while (!reader.word().empty()) {
        if (reader.word() == "name") {
            name = reader.run();
        } else if (reader.word() == "type") {
            type = reader.single();
        } else if (reader.word() == "default") {
            default_value = reader.run();
        } else if (reader.word() == "min") {
            min = reader.run();
        } else if (reader.word() == "max") {
            max = reader.run();
        } else if (reader.word() == "value") {
            reader.run();
        } else if (reader.word() == "var") {
            if (std::string choice = reader.run_of_one_or_more(); !choice.empty()) {
                vars.push_back(std::move(choice));
            }
        } else {
            reader.next();
        }
    }
    // Whatever a "value" keyword says, an option that has just been announced stands at its default.
    value = default_value;
}

}  // namespace velmora
