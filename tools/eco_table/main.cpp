// Writes the table of named positions as C++: reads lines "code | opening | variation | moves", replays the
// moves from the start position and keeps the key of the position that ends the line.
//
// Run by the build. The lines are what a person can read and mend; the table is what the program can search
// without parsing anything at its start. A line that can't be replayed breaks the build: a wrong key would
// never be noticed, since nothing but a missing name comes of it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"

namespace {

using namespace velmora;

struct Row {
    std::string code;
    std::string opening;
    std::string variation;
    std::uint64_t key = 0;
};

std::vector<std::string> fields_of(std::string_view line) {
    std::vector<std::string> fields;
    while (true) {
        const auto bar = line.find('|');
        fields.emplace_back(text::trim_blanks(line.substr(0, bar)));
        if (bar == std::string_view::npos) return fields;
        line.remove_prefix(bar + 1);
    }
}

/// The key after moves such as "1.e4 e5 2.Nf3".
///
/// Replayed by the program's own rules, so that the table can't have another idea of a key than the
/// lookup.
std::uint64_t key_after(std::string_view moves) {
    ChessPosition position;
    position.new_game();
    for (auto word : text::words(moves)) {
        word.remove_prefix(word.rfind('.') + 1);
        const auto move = find_legal(position, SanMove(position, word));
        if (!move) throw std::runtime_error("illegal move " + std::string(word));
        position.do_move(*move);
    }
    return position.key();
}

Row row_of(std::string_view line) {
    const auto fields = fields_of(line);
    if (fields.size() != 4) throw std::runtime_error("not four fields");
    const auto& code = fields[0];
    if (code.size() != 3 || code[0] < 'A' || code[0] > 'E' ||
        !text::strict_integer<unsigned>(code.substr(1))) {
        throw std::runtime_error("no ECO code");
    }
    return {code, fields[1], fields[2], key_after(fields[3])};
}

std::vector<Row> read_rows(std::istream& lines) {
    std::vector<Row> rows;
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.empty() || line.front() == '#') continue;
        try {
            rows.push_back(row_of(line));
            if (rows.size() > 1 && rows[rows.size() - 2].code > rows.back().code) {
                throw std::runtime_error("codes out of order");
            }
        } catch (const std::exception& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    return rows;
}

/// The rows by ascending key, of equal keys the last row alone.
std::vector<std::size_t> order_by_key(const std::vector<Row>& rows) {
    std::vector<std::size_t> order(rows.size());
    std::iota(order.rbegin(), order.rend(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&rows](auto a, auto b) { return rows[a].key < rows[b].key; });
    const auto same_key = [&rows](auto a, auto b) { return rows[a].key == rows[b].key; };
    order.erase(std::unique(order.begin(), order.end(), same_key), order.end());
    return order;
}

void write_table(std::ostream& out, const std::vector<Row>& rows) {
    out << "// Made by the build from openings/eco_lines.txt.\n\n"
           "#include \"openings/eco_table.h\"\n\n"
           "namespace velmora {\n\nnamespace {\n\n"
           "constexpr EcoRow rows[] = {\n";
    for (const auto& row : rows) {
        out << "    {" << std::quoted(row.variation) << ", " << std::quoted(row.opening) << ", "
            << std::quoted(row.code) << ", 0x" << std::hex << std::uppercase << std::setw(16)
            << std::setfill('0') << row.key << std::dec << "},\n";
    }
    out << "};\n\nconstexpr std::uint16_t by_key[] = {\n";
    for (const auto row : order_by_key(rows)) out << "    " << row << ",\n";
    out << "};\n\n}  // namespace\n\n"
           "std::span<const EcoRow> eco_rows() { return rows; }\n\n"
           "std::span<const std::uint16_t> eco_rows_by_key() { return by_key; }\n\n"
           "}  // namespace velmora\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: velmora_eco_table <lines> <table.cpp>\n";
        return 2;
    }
    try {
        std::ifstream lines(argv[1]);
        if (!lines) throw std::runtime_error("can't be opened");
        const auto rows = read_rows(lines);
        std::ofstream table(argv[2]);
        write_table(table, rows);
        table.close();
        if (!table) throw std::runtime_error(std::string("can't write ") + argv[2]);
    } catch (const std::exception& error) {
        std::cerr << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
