#pragma once

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

namespace velmora::test {

/// One step of a conversation, and the lines that belong to it.
struct Directive {
    std::string text;
    std::vector<std::string> block;
};

struct Transcript {
    std::string name;  ///< the file's and the case's
    std::vector<Directive> directives;
};

inline void PrintTo(const Transcript& transcript, std::ostream* out) { *out << transcript.name; }

/// The cases of the files of a directory. A case begins with "== name"; lines that begin with two blanks
/// belong to the directive above them, and those that begin with # say nothing.
inline std::vector<Transcript> read_transcripts(const std::string& directory) {
    std::vector<Transcript> cases;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with("== ")) {
                cases.push_back({entry.path().stem().string() + "_" + line.substr(3), {}});
            } else if (line.starts_with("  ")) {
                cases.back().directives.back().block.push_back(line.substr(2));
            } else if (!line.empty() && !line.starts_with('#')) {
                cases.back().directives.push_back({line, {}});
            }
        }
    }
    return cases;
}

inline std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + '\n';
    return text;
}

}  // namespace velmora::test
