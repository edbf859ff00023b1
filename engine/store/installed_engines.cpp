#include "engine/store/installed_engines.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "base/atomic_file.h"
#include "base/backup_file.h"
#include "base/regular_file.h"
#include "base/text.h"
#include "engine/store/home_dir.h"

namespace velmora {

namespace {

/// The words of the protocols; a row is searched for them in this order.
constexpr auto protocol_words =
    std::to_array<std::string_view>({"autodetect", "uci", "xboard_v1", "xboard_v2"});

/// Reads the rows of the file into a map, block by block.
class RowReader {
public:
    explicit RowReader(InstalledEngines::Map& engines) : m_engines(engines) {}

    void read_row(std::string_view line) {
        text::WordReader reader(line);
        const auto word = reader.word();
        const auto row =
            std::find_if(rows.begin(), rows.end(), [word](const Row& known) { return known.word == word; });
        if (row != rows.end()) (this->*row->read)(reader);
    }

private:
    /// The entry of the block; rows ahead of any "name" row go to an entry without a name.
    EngineVariables& entry() { return m_engines[m_key]; }

    static std::string stripped_rest(const text::WordReader& reader) {
        return std::string(text::trim_white_space(reader.rest()));
    }

    void read_name(text::WordReader& reader) {
        m_key = stripped_rest(reader);
        entry() = EngineVariables();
        entry().name = entry().player_name = m_key;
    }

    /// The word is searched for anywhere in the row, in the order of the table; a row without one leaves
    /// the protocol as it is.
    void read_protocol(text::WordReader& reader) {
        const auto found = std::find_if(
            protocol_words.begin(), protocol_words.end(),
            [&reader](std::string_view word) { return reader.rest().find(word) != std::string_view::npos; });
        if (found == protocol_words.end()) return;
        entry().protocol = static_cast<Protocol>(found - protocol_words.begin());
    }

    void read_option(text::WordReader& reader) {
        if (reader.word() != "name") return;
        Option option;
        for (auto word = reader.word(); !word.empty() && word != "value"; word = reader.word()) {
            if (!option.name.empty()) option.name += ' ';
            option.name += word;
        }
        option.value = stripped_rest(reader);
        entry().add_option(option);
    }

    template <auto field>
    void read_text(text::WordReader& reader) {
        entry().*field = stripped_rest(reader);
    }

    struct Row {
        std::string_view word;
        void (RowReader::*read)(text::WordReader&);
    };
    static constexpr std::array<Row, 6> rows{{
        {"name", &RowReader::read_name},
        {"filename", &RowReader::read_text<&EngineIdentity::filename>},
        {"protocol", &RowReader::read_protocol},
        {"elo", &RowReader::read_text<&EngineIdentity::elo>},
        {"handicap", &RowReader::read_text<&EngineConfiguration::handicap>},
        {"setoption", &RowReader::read_option},
    }};

    InstalledEngines::Map& m_engines;
    std::string m_key;
};

void write_row(std::ostream& out, const char* word, const std::string& value) {
    if (!value.empty()) out << word << ' ' << value << '\n';
}

}  // namespace

InstalledEngines::InstalledEngines() {
    try {
        *this = InstalledEngines(HomeDir().path());
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
}

InstalledEngines::InstalledEngines(const std::string& home) : m_cfg_path(home + "engines.cfg") {}

void InstalledEngines::find_home() {
    if (!m_cfg_path.empty()) return;
    InstalledEngines found(HomeDir().path());
    found.m_engines = std::move(m_engines);
    *this = std::move(found);
}

void InstalledEngines::read_engines_cfg() {
    try {
        find_home();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return;
    }
    RegularFileStream file(m_cfg_path);
    if (file.is_missing()) return;
    if (!file) throw std::runtime_error(m_cfg_path + ": " + file.fault());
    read(file);
}

void InstalledEngines::write_engines_cfg() {
    find_home();
    std::ostringstream text;
    write(text);
    try {
        back_up(m_cfg_path);
    } catch (const std::runtime_error& error) {
        std::cerr << error.what() << '\n';  // no reason to keep the user from saving
    }
    try {
        write_file_atomically(m_cfg_path, text.str());
    } catch (const std::runtime_error&) {
        throw std::runtime_error("InstalledEngines::write_engines_cfg()   open file error");
    }
}

void InstalledEngines::add_engine(const EngineVariables& engine) {
    if (engine.name.empty()) return;
    const bool reads_back = text::trim_white_space(engine.filename) == engine.filename &&
                            engine.filename.find('\n') == std::string::npos;
    if (!reads_back) {
        throw std::invalid_argument(
            "The program's path must not have a line feed in it, nor white space at its ends: "
            "the list of engines has one line for it.");
    }
    m_engines[engine.name] = engine;
}

void InstalledEngines::remove_engine(const std::string& name) { m_engines.erase(name); }

void InstalledEngines::remove_engine(const EngineVariables& engine) { remove_engine(engine.name); }

void InstalledEngines::read(std::istream& in) {
    RowReader rows(m_engines);
    for (std::string line; std::getline(in, line);) rows.read_row(line);
}

void InstalledEngines::write(std::ostream& out) const {
    out << "#                       Installed engines\n#\n";
    for (const auto& [key, engine] : m_engines) {
        out << "\nname " << key << '\n';
        write_row(out, "filename", engine.filename);
        out << "protocol " << protocol_words[static_cast<std::size_t>(engine.protocol)] << '\n';
        write_row(out, "elo", engine.elo);
        write_row(out, "handicap", engine.handicap);
        for (const auto& [name, option] : engine.options) {
            out << "setoption name " << name << " value " << option.value << '\n';
        }
    }
}

}  // namespace velmora
