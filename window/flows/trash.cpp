#include "window/flows/trash.h"

#include <filesystem>
#include <gio/gio.h>
#include <memory>

#include "base/backup_file.h"

namespace velmora {

void put_away(const std::string& path) {
    const std::unique_ptr<GFile, decltype(&g_object_unref)> file(g_file_new_for_path(path.c_str()),
                                                                 g_object_unref);
    if (g_file_trash(file.get(), nullptr, nullptr) == FALSE) std::filesystem::rename(path, backup_path(path));
}

}  // namespace velmora
