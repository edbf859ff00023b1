// Plays the conversations of transcripts/*.txt. Each case runs in a referee and a working directory of its
// own; $DIR is that directory, $ID1 the instance id of the first engine loaded, and so on.
//
//   > command     the window says it           >> line       anybody puts it on the queue
//   < line        the referee's next line      <~ regex      the next line matches
//   <* line       some line from here on       poke line     the next line, "wake_up" being said meanwhile
//   engine name   a scripted engine            install name  the same, and in the list of installed engines
//   load name     loads it into seat 1         kill name     ends its process (needs the log: debug true)
//   file, remove  writes or takes away a file  book file     a Polyglot book: moves played > moves known
//   sent name     what it was sent, a regex    log file      what it says, without stamps and drivers
//   is file       the file's whole text        stderr        what went to standard error, at the end
//   pipe name     makes a pipe without a writer
//
// Milliseconds after "wtime", "btime" and "emt" read "#". At its end a case has no line left over.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <glib.h>

#include <gtest/gtest.h>

#include "base/text.h"
#include "chess/moves/position.h"
#include "game/game_result.h"
#include "tests/manager/referee.h"
#include "tests/support/transcript_file.h"

namespace velmora {
namespace {

using test::joined;

template <class Dropped>
std::string without(const std::string& text, const Dropped& dropped) {
    std::istringstream lines(text);
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        if (!dropped(line)) kept += line + '\n';
    }
    return kept;
}

bool matches(const std::string& text, const std::string& regex) {
    return g_regex_match_simple(regex.c_str(), text.c_str(), {}, {}) != FALSE;
}

/// A log without the drivers' lines, "readyok", and all stamps.
std::string without_noise(const std::string& log) {
    const auto is_noise = [](std::string_view line) {
        return line.find("()") != std::string_view::npos || line.ends_with(" readyok");
    };
    std::istringstream lines(without(log, is_noise));
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        const auto blank = std::min(line.find(' '), line.size());
        kept += line.substr(blank, line.find(" TS=") - blank) + '\n';
    }
    return kept;
}

std::string big_endian(std::uint64_t value, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text += static_cast<char>(value >> shift & 0xFF);
    return text;
}

/// Lines "moves played > moves known" as a Polyglot book.
std::string polyglot_book(const std::vector<std::string>& lines) {
    std::multimap<std::uint64_t, std::string> records;
    for (const auto& line : lines) {
        ChessPosition position;
        position.new_game();
        bool known = false;
        for (const auto word : text::words(line)) {
            const Move move = parse_move(position, word);
            if (!known && word != ">") play_if_legal(position, move);
            if (known) {
                const auto squares = static_cast<std::uint64_t>(move.from().value() << 6 | move.to().value());
                const auto key = position.key();
                records.emplace(key, big_endian(key, 8) + big_endian(squares, 2) + std::string(6, '\0'));
            }
            known = known || word == ">";
        }
    }
    std::string book;
    for (const auto& [key, record] : records) book += record;
    return book;
}

class Transcript : public ::testing::TestWithParam<test::Transcript> {
protected:
    void run(const test::Directive& directive) {
        const std::string line = filled_in(directive.text);
        const auto word = line.substr(0, line.find(' '));
        const std::string rest = line.size() > word.size() ? line.substr(word.size() + 1) : "";
        const std::string block = filled_in(joined(directive.block));
        const auto& place = m_referee.workplace;
        if (word == ">") {
            m_referee.say(rest);
        } else if (word == ">>") {
            m_referee.manager().put_command(rest);
            m_referee.manager().flush();
        } else if (word == "<") {
            ASSERT_EQ(m_referee.next_line(), rest);
        } else if (word == "<~") {
            const std::string said = m_referee.next_line();
            ASSERT_TRUE(matches(said, "^(" + rest + ")$")) << said;
        } else if (word == "<*") {
            const auto said = m_referee.take_until(rest);
            ASSERT_TRUE(!said.empty() && said.back() == rest) << ::testing::PrintToString(said);
        } else if (word == "poke") {
            test::Workplace::wait_for([&] {
                m_referee.say("wake_up");
                return m_referee.window().has_line();
            });
            ASSERT_EQ(m_referee.next_line(), rest);
        } else if (word == "engine") {
            place.add_engine(rest, block);
        } else if (word == "install") {
            place.install_engine(rest, block);
        } else if (word == "load") {
            m_referee.say("load 1 filename " + place.path(rest + ".engine"));
            ASSERT_TRUE(m_referee.next_line().starts_with("engine1name "));
        } else if (word == "kill") {
            // What was said before is done when the log has this line, which is no command.
            m_referee.say("settled");
            test::Workplace::wait_for(
                [&] { return place.read("manager.log").find("0 settled") != std::string::npos; });
            place.kill_engine(rest);
            test::Workplace::wait_for(
                [&] { return place.read("engine1.log").find("crashed") != std::string::npos; });
        } else if (word == "file") {
            std::filesystem::create_directories(std::filesystem::path(rest).parent_path() / ".");
            place.write(rest, block);
        } else if (word == "remove") {
            std::filesystem::remove(rest);
        } else if (word == "pipe") {
            ::mkfifo(rest.c_str(), 0600);
        } else if (word == "book") {
            place.write(rest, polyglot_book(directive.block));
        } else if (word == "sent") {
            std::string sent;
            test::Workplace::wait_for([&] {
                sent = without(place.sent_to(rest), [](const std::string& said) { return said == "quit"; });
                return matches(sent, block);
            });
            ASSERT_TRUE(matches(sent, block)) << sent;
        } else if (word == "is") {
            ASSERT_EQ(place.read(rest), block);
        } else if (word == "log") {
            std::string log;
            test::Workplace::wait_for([&] { return (log = without_noise(place.read(rest))) == block; });
            ASSERT_EQ(log, block);
        } else if (word == "stderr") {
            m_expected_errors = block;
        } else {
            FAIL() << "unknown directive: " << line;
        }
    }

    std::string filled_in(std::string text) const {
        const auto replace = [&text](const std::string& name, const std::string& value) {
            for (auto at = text.find(name); at != std::string::npos; at = text.find(name)) {
                text.replace(at, name.size(), value);
            }
        };
        std::mt19937_64 ids(12345);
        for (const auto* name : {"$ID1", "$ID2"}) replace(name, std::to_string(ids()));
        std::string directory = m_referee.workplace.path("");
        directory.pop_back();
        replace("$DIR", directory);
        return text;
    }

    test::Referee m_referee;
    std::string m_expected_errors;
};

TEST_P(Transcript, IsSpoken) {
    ::testing::internal::CaptureStderr();
    for (const auto& directive : GetParam().directives) {
        run(directive);
        if (HasFatalFailure()) break;
    }
    if (!HasFatalFailure()) {
        EXPECT_EQ(m_referee.quit(), test::Lines({"quit"}));
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), m_expected_errors);
}

INSTANTIATE_TEST_SUITE_P(Files, Transcript, ::testing::ValuesIn(test::read_transcripts(TRANSCRIPTS)),
                         [](const auto& of) {
                             std::string name = of.param.name;
                             for (char& c : name) c = g_ascii_isalnum(c) != FALSE ? c : '_';
                             return name;
                         });

}  // namespace
}  // namespace velmora
