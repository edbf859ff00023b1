#include "tournament/tournament_store.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace velmora::tournament_store {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extension = ".trn";

}  // namespace

std::string path(const std::string& directory, const std::string& name) {
    return directory + name + std::string(extension);
}

std::vector<std::string> names(const std::string& directory) {
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code status_error;
        if (entry->path().extension() != extension || !entry->is_regular_file(status_error)) continue;
        found.push_back(entry->path().stem().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::optional<std::string> name_fault(std::string_view event) {
    constexpr std::size_t longest_file_name = 255;  // bytes, on every file system of note
    const std::string fixed = "The event is also the name of the tournament's file, so it ";
    if (event.empty()) return fixed + "must not be empty.";
    if (event.find('/') != std::string_view::npos) return fixed + "must not contain a slash.";
    if (event.find('\0') != std::string_view::npos) return fixed + "must not contain a zero byte.";
    if (event.find_first_not_of('.') == std::string_view::npos) return fixed + "must not consist of dots.";
    if (event.size() + extension.size() > longest_file_name) return fixed + "must be shorter.";
    return std::nullopt;
}

}  // namespace velmora::tournament_store
