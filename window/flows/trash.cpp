#include "window/flows/trash.h"

#include <filesystem>

#include <giomm/file.h>

#include "base/backup_file.h"

namespace velmora {

void put_away(const std::string& path) {
    try {
        Gio::File::create_for_path(path)->trash();
    } catch (const Glib::Error&) {
        std::filesystem::rename(path, backup_path(path));
    }
}

}  // namespace velmora
