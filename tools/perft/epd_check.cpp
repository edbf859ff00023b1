#include "tools/perft/epd_check.h"

#include <charconv>
#include <istream>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "chess/moves/perft.h"

namespace velmora {

namespace {

struct Expectation {
    int depth = 0;
    std::uint64_t nodes = 0;
};

/// "D4 197281", blanks around it allowed.
std::optional<Expectation> read_expectation(std::string_view text) {
    const auto skip_blanks = [&text] {
        text.remove_prefix(std::min(text.find_first_not_of(" \t\r"), text.size()));
    };
    const auto read = [&text](auto& number) {
        const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        return result.ec == std::errc();
    };
    Expectation expected;
    skip_blanks();
    if (!text.starts_with('D')) return std::nullopt;
    text.remove_prefix(1);
    if (!read(expected.depth)) return std::nullopt;
    skip_blanks();
    if (!read(expected.nodes)) return std::nullopt;
    skip_blanks();
    if (!text.empty()) return std::nullopt;
    return expected;
}

class EpdCheck {
public:
    EpdCheck(std::ostream& out, std::uint64_t limit) : m_out(out), m_limit(limit) {}

    void check_line(std::string_view line) {
        const std::size_t end = line.find(';');
        const std::string_view fen = line.substr(0, end);
        try {
            m_position.fen(fen);
        } catch (const std::logic_error& error) {
            fault(error.what());
            return;
        }
        while (end != std::string_view::npos && line.find(';') != std::string_view::npos) {
            line.remove_prefix(line.find(';') + 1);
            check_count(fen, line.substr(0, line.find(';')));
        }
    }

    bool good() const { return m_faults == 0 && m_counts > 0; }

    void summarise() const {
        m_out << m_counts << " counts, " << m_faults << " faults, " << m_nodes << " nodes\n";
    }

private:
    void check_count(std::string_view fen, std::string_view text) {
        const std::optional<Expectation> expected = read_expectation(text);
        if (!expected) {
            fault("not a count: " + std::string(text));
            return;
        }
        if (expected->nodes > m_limit) return;
        const std::uint64_t nodes = perft(m_position, expected->depth);
        ++m_counts;
        m_nodes += nodes;
        if (nodes == expected->nodes) return;
        fault(std::string(fen) + " depth " + std::to_string(expected->depth) + ": " + std::to_string(nodes) +
              " nodes, expected " + std::to_string(expected->nodes));
    }

    void fault(const std::string& text) {
        ++m_faults;
        m_out << text << '\n';
    }

    std::ostream& m_out;
    const std::uint64_t m_limit;
    ChessPosition m_position;
    int m_counts = 0;
    int m_faults = 0;
    std::uint64_t m_nodes = 0;
};

}  // namespace

bool check_epd(std::istream& in, std::ostream& out, std::uint64_t limit) {
    EpdCheck check(out, limit);
    for (std::string line; std::getline(in, line);) {
        if (line.find_first_not_of(" \t\r") != std::string::npos && line[0] != '#') check.check_line(line);
    }
    check.summarise();
    return check.good();
}

}  // namespace velmora
