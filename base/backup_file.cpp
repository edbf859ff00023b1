#include "base/backup_file.h"

#include <iterator>
#include <stdexcept>

#include "base/atomic_file.h"
#include "base/regular_file.h"

namespace velmora {

void back_up(const std::string& path) {
    RegularFileStream file(path);
    if (file.is_missing()) return;
    if (!file) throw std::runtime_error(path + ": " + file.fault());
    const std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    write_file_atomically(backup_path(path), content);
}

}  // namespace velmora
