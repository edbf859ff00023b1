#include "base/regular_file.h"

#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

TEST(RegularFile, OpensPlainFilesAndWaitsForNothing) {
    const ScratchDirectory files;
    files.write("plain", "text");
    std::filesystem::create_symlink("plain", files.path("link"));
    std::filesystem::create_symlink("nowhere", files.path("dangling"));
    ::mkfifo(files.path("pipe").c_str(), 0600);
    const struct {
        std::string path, content, fault;
        bool missing;
    } rows[] = {
        {files.path("plain"), "text", "", false},
        {files.path("link"), "text", "", false},
        {files.path("pipe"), "", "not a regular file", false},
        {"/dev/zero", "", "not a regular file", false},
        {files.path("none"), "", "No such file or directory", true},
        {files.path("dangling"), "", "No such file or directory", true},
        {files.path("plain/none"), "", "Not a directory", true},
        {files.path(std::string(300, 'x')), "", "File name too long", true},
    };
    for (const auto& row : rows) {
        RegularFileStream stream(row.path);
        EXPECT_EQ(stream.good(), row.fault.empty()) << row.path;
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), row.content) << row.path;
        EXPECT_EQ(stream.fault(), row.fault) << row.path;
        EXPECT_EQ(stream.is_missing(), row.missing) << row.path;
        EXPECT_EQ(stream.file_size(), row.content.size()) << row.path;
        const bool told = !row.fault.empty() && !row.missing;
        EXPECT_EQ(reading_fault(row.path).value_or(""), told ? row.path + ": " + row.fault : "");
    }
}

}  // namespace
}  // namespace velmora
