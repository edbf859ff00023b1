#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "base/text.h"
#include "chess/board/square.h"

/// How a line of the channel is written and read, told once beside the fields of its struct:
///
///     struct SetArrow {
///         Square from, to;
///         static constexpr auto form = line("set_arrow", square(&SetArrow::from), square(&SetArrow::to));
///     };
///
/// Writing puts the word and the fields one behind the other, so that a line has one spelling. Reading is as
/// lenient as formatted stream input: blanks don't count between fields, a number that cannot be read is 0
/// and a missing word is empty.
///
/// A pair of functions for each line would say the same thing twice, and could come apart unnoticed until
/// somebody's line is misread. Here a form is a constant that both directions walk through; fields are
/// members by pointer, so that the compiler checks their types and unfolds the walk, and nothing is looked
/// up at run time but the first word.
///
/// Reading is lenient because people type these lines, too, at the console, and because a line that is
/// half understood is better answered than lost without a word.
namespace velmora::line_form {

/// A field of one word.
///
/// Blanks within it can't travel, so texts that may hold some are the last field of their line or have
/// marks around them (NamedValue).
template <class Member>
struct Token {
    Member member;

    void write(const auto& line, std::string& text) const { (text += ' ') += line.*member; }
    bool read(auto& line, text::WordReader& reader) const {
        line.*member = reader.word();
        return true;
    }
};
template <class Member>
constexpr auto token(Member member) {
    return Token<Member>{member};
}

/// A field that is an integer.
template <class Member>
struct Number {
    Member member;

    void write(const auto& line, std::string& text) const { (text += ' ') += std::to_string(line.*member); }
    bool read(auto& line, text::WordReader& reader) const {
        using T = std::remove_reference_t<decltype(line.*member)>;
        line.*member = reader.template integer<T>().value_or(0);
        return true;
    }
};
template <class Member>
constexpr auto number(Member member) {
    return Number<Member>{member};
}

/// A square by its number.
template <class Member>
struct SquareNumber {
    Member member;

    void write(const auto& line, std::string& text) const {
        (text += ' ') += std::to_string((line.*member).value());
    }
    bool read(auto& line, text::WordReader& reader) const {
        line.*member = Square(reader.integer<int>().value_or(0));
        return true;
    }
};
template <class Member>
constexpr auto square(Member member) {
    return SquareNumber<Member>{member};
}

/// What of the line's remainder belongs to a field.
enum class Cut { leading_blanks, blanks, nothing };

/// A field that goes to the end of the line. One of which nothing is cut has its leading blank itself.
template <class Member, Cut cut>
struct Remainder {
    Member member;

    void write(const auto& line, std::string& text) const {
        if (cut != Cut::nothing) text += ' ';
        text += line.*member;
    }
    bool read(auto& line, text::WordReader& reader) const {
        const auto rest = reader.rest();
        line.*member = cut == Cut::nothing  ? rest
                       : cut == Cut::blanks ? text::trim_blanks(rest)
                                            : text::trim_leading_blanks(rest);
        return true;
    }
};
/// Leading blanks don't belong to it.
template <class Member>
constexpr auto rest(Member member) {
    return Remainder<Member, Cut::leading_blanks>{member};
}
/// Blanks at both ends don't belong to it.
template <class Member>
constexpr auto trimmed_rest(Member member) {
    return Remainder<Member, Cut::blanks>{member};
}
/// All that stands behind the last word belongs to it.
template <class Member>
constexpr auto verbatim_rest(Member member) {
    return Remainder<Member, Cut::nothing>{member};
}

/// A comment in braces, to the end of the line.
template <class Member>
struct Comment {
    Member member;

    void write(const auto& line, std::string& text) const { ((text += " {") += line.*member) += '}'; }
    bool read(auto& line, text::WordReader& reader) const {
        auto comment = text::trim_blanks(reader.rest());
        if (comment.starts_with('{')) comment.remove_prefix(1);
        if (comment.ends_with('}')) comment.remove_suffix(1);
        line.*member = comment;
        return true;
    }
};
template <class Member>
constexpr auto comment(Member member) {
    return Comment<Member>{member};
}

/// A word that must stand there.
///
/// With another word there the line is none of the language.
struct Literal {
    std::string_view word;

    void write(const auto& /*line*/, std::string& text) const { (text += ' ') += word; }
    bool read(auto& /*line*/, text::WordReader& reader) const { return reader.word() == word; }
};
constexpr Literal literal(std::string_view word) { return {word}; }

template <class Value>
struct Named {
    std::string_view word;
    Value value;
};

/// A value that travels as one of some words, the last of which stands for every other word, too. At the head
/// of a line it makes the words that the line may begin with.
template <class Member, class Value, std::size_t size>
struct Choice {
    Member member;
    std::array<Named<Value>, size> names;

    std::string_view word(const auto& line) const {
        for (const auto& name : names) {
            if (name.value == line.*member) return name.word;
        }
        return names.back().word;
    }
    void write(const auto& line, std::string& text) const { (text += ' ') += word(line); }
    bool read(auto& line, text::WordReader& reader) const {
        take(line, reader.word());
        return true;
    }

    constexpr bool begins_with(std::string_view word) const {
        for (const auto& name : names) {
            if (name.word == word) return true;
        }
        return false;
    }
    void take(auto& line, std::string_view word) const {
        line.*member = names.back().value;
        for (const auto& name : names) {
            if (name.word == word) line.*member = name.value;
        }
    }
};
template <class Value, class Member, std::size_t size>
constexpr auto one_of(Member member, const Named<Value> (&names)[size]) {
    return Choice<Member, Value, size>{member, std::to_array(names)};
}

/// Two texts of several words, a marking word ahead of each. They are read with single blanks between their
/// words; both are empty where the first mark is missing.
template <class First, class Second>
struct NamedValue {
    std::string_view first_mark;
    First first;
    std::string_view second_mark;
    Second second;

    void write(const auto& line, std::string& text) const {
        (((text += ' ') += first_mark) += ' ') += line.*first;
        (((text += ' ') += second_mark) += ' ') += line.*second;
    }
    bool read(auto& line, text::WordReader& reader) const {
        if (reader.word() != first_mark) return true;
        std::vector<std::string_view> words;
        auto word = reader.word();
        for (; !word.empty() && word != second_mark; word = reader.word()) words.push_back(word);
        line.*first = text::join(words);
        line.*second = text::join(text::words(reader.rest()));
        return true;
    }
};
template <class First, class Second>
constexpr auto named_value(std::string_view first_mark, First first, std::string_view second_mark,
                           Second second) {
    return NamedValue<First, Second>{first_mark, first, second_mark, second};
}

/// The one word that a line begins with.
///
/// The alternative to a Choice at the head of a line.
struct Head {
    std::string_view only;

    std::string_view word(const auto& /*line*/) const { return only; }
    constexpr bool begins_with(std::string_view word) const { return word == only; }
    void take(auto& /*line*/, std::string_view /*word*/) const {}
};

template <class Beginning, class... Fields>
struct Form {
    Beginning head;
    std::tuple<Fields...> fields;
};
template <class... Fields>
constexpr auto line(std::string_view word, Fields... fields) {
    return Form<Head, Fields...>{{word}, {fields...}};
}
template <class Member, class Value, std::size_t size, class... Fields>
constexpr auto line(Choice<Member, Value, size> head, Fields... fields) {
    return Form<Choice<Member, Value, size>, Fields...>{head, {fields...}};
}

/// The text of a line.
template <class Line>
std::string write(const Line& line) {
    std::string text(Line::form.head.word(line));
    std::apply([&](const auto&... fields) { (fields.write(line, text), ...); }, Line::form.fields);
    return text;
}

/// The fields of a line whose first word is `word`; nothing when they say that it isn't one.
template <class Line>
std::optional<Line> read(std::string_view word, text::WordReader reader) {
    Line line;
    Line::form.head.take(line, word);
    const auto read_all = [&](const auto&... fields) { return (fields.read(line, reader) && ...); };
    if (!std::apply(read_all, Line::form.fields)) return std::nullopt;
    return line;
}

/// All lines of one direction: the alternatives of a variant.
///
/// A variant lists its alternatives already; so the language is told by that list alone. The search for a
/// word is one by one: some twenty comparisons, most of which end at the first letter.
template <class Variant>
struct Vocabulary;

template <class... Lines>
struct Vocabulary<std::variant<Lines...>> {
    using Variant = std::variant<Lines...>;

    static std::string write(const Variant& line) {
        return std::visit([](const auto& of) { return line_form::write(of); }, line);
    }

    /// Nothing for a text that none of the lines begins with.
    static std::optional<Variant> read(std::string_view text) {
        text::WordReader reader(text);
        const auto word = reader.word();
        std::optional<Variant> found;
        find(word, [&]<class Line>() {
            if (auto line = line_form::read<Line>(word, reader)) found = *std::move(line);
        });
        return found;
    }

    /// The constant `effects` of the line that begins with a word; one without effects where there is none.
    template <class Effects>
    static Effects effects_of(std::string_view word) {
        Effects effects;
        find(word, [&]<class Line>() {
            if constexpr (requires { Line::effects; }) effects = Line::effects;
        });
        return effects;
    }

private:
    /// Calls `use` with the line that begins with a word, if there is one.
    static void find(std::string_view word, auto use) {
        const auto try_one = [&]<class Line>(std::type_identity<Line>) {
            if (!Line::form.head.begins_with(word)) return false;
            use.template operator()<Line>();
            return true;
        };
        static_cast<void>((try_one(std::type_identity<Lines>()) || ...));
    }
};

}  // namespace velmora::line_form
