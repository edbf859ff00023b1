#include "game/annotations.h"

#include <cstddef>

#include "channel/text.h"

namespace velmora {

namespace {

/// In bytes. Readers give a game up at a comment of more than 1024; the rest is for what the program itself
/// appends, and for line ends.
constexpr std::size_t user_comment_limit = 900;

/// The index behind the annotation that begins at `at`, or the length of the comment.
std::size_t end_of_annotation(std::string_view comment, std::size_t at) {
    bool quoted = false;
    for (; at < comment.size(); ++at) {
        if (comment[at] == '"') quoted = !quoted;
        if (comment[at] == ']' && !quoted) return at + 1;
    }
    return at;
}

}  // namespace

std::string without_annotations(std::string_view comment) {
    std::string rest;
    for (std::size_t at = 0; at < comment.size();) {
        if (comment.substr(at, 2) == "[%") {
            at = end_of_annotation(comment, at);
        } else {
            if (comment[at] != '\n') rest += comment[at];
            ++at;
        }
    }
    rest.erase(rest.find_last_not_of(" \t\n;") + 1);
    return rest;
}

std::string comment_from_user(std::string_view text) {
    std::string comment(text::utf8_prefix(text, user_comment_limit));
    for (std::size_t i = 0; i < comment.size(); ++i) {
        if (comment[i] == '{') comment[i] = '(';
        if (comment[i] == '}') comment[i] = ')';
        if (comment[i] == '\n' && comment.substr(i + 1, 1) == "%") comment[i] = ' ';
    }
    return comment;
}

}  // namespace velmora
