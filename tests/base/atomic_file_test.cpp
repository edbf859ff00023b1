#include "base/atomic_file.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

class AtomicFileTest : public testing::Test, public ScratchDirectory {
protected:
    /// The reason without the path ahead of it, empty when the write succeeds.
    std::string failure(const std::string& name, std::string_view text) const {
        try {
            m_write(path(name), text);
        } catch (const std::runtime_error& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(path(name) + ": ")) << error.what();
            return std::string(error.what()).substr(path(name).size() + 2);
        }
        return "";
    }
    std::ptrdiff_t entries() const {
        return std::distance(fs::directory_iterator(path("")), fs::directory_iterator());
    }

    void (*m_write)(const std::string& path, std::string_view text) = write_file_atomically;
};

TEST_F(AtomicFileTest, MakesAndReplacesAFileAndKeepsItsPermissions) {
    write_file_atomically(path("x"), "one\n");
    EXPECT_EQ(content("x"), "one\n");
    fs::permissions(path("x"), fs::perms(0640));
    write_file_atomically(path("x"), "2");
    EXPECT_EQ(content("x"), "2");
    EXPECT_EQ(fs::status(path("x")).permissions(), fs::perms(0640));
    EXPECT_EQ(entries(), 1);
}

TEST_F(AtomicFileTest, ALinkStaysALink) {
    fs::create_directory(path("far"));
    fs::create_symlink("far/target", path("link"));
    write_file_atomically(path("link"), "text");
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(content("far/target"), "text");
}

TEST_F(AtomicFileTest, NamesTheReasonAndLeavesNothingBehind) {
    fs::create_directory(path("directory"));
    ::mkfifo(path("pipe").c_str(), 0600);
    fs::create_symlink("circle", path("circle"));
    const struct {
        std::string name, reason;
    } rows[] = {{"missing/x", "No such file or directory"},
                {"directory", "Is a directory"},
                {"pipe", "Invalid argument"},
                {"circle", "Too many levels of symbolic links"},
                {std::string(256, 'n'), "File name too long"}};
    for (const auto& row : rows) EXPECT_EQ(failure(row.name, "text"), row.reason) << row.name;
    EXPECT_EQ(entries(), 3);
    EXPECT_EQ(failure(std::string(255, 'n'), "text"), "") << "the longest name that a file can have";
}

TEST_F(AtomicFileTest, AppendsAndNamesTheReason) {
    m_write = append_to_file;
    for (const char* line : {"one\n", "two\n"}) EXPECT_EQ(failure("x", line), "");
    EXPECT_EQ(content("x"), "one\ntwo\n");
    fs::create_symlink("far", path("link"));
    EXPECT_EQ(failure("link", "text"), "");
    EXPECT_EQ(content("far"), "text");
    fs::create_directory(path("directory"));
    ::mkfifo(path("pipe").c_str(), 0600);
    fs::create_symlink("/dev/full", path("full"));
    const std::pair<const char*, const char*> rows[] = {{"missing/x", "No such file or directory"},
                                                        {"directory", "Is a directory"},
                                                        {"pipe", "No such device or address"},
                                                        {"full", "No space left on device"}};
    for (const auto& [name, reason] : rows) EXPECT_EQ(failure(name, "text"), reason) << name;
}

TEST_F(AtomicFileTest, ADiskThatIsFullLeavesTheOldFileWhole) {
    write_file_atomically(path("x"), "old");
    // A limit on the size of files stands for the full disk: the write is cut short, then refused.
    const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{4096, limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    std::string reasons;
    for (const auto write : {write_file_atomically, append_to_file}) {
        m_write = write;
        for (const char* name : {"x", "new"}) reasons += failure(name, std::string(10000, 'n')) + ". ";
    }
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, old_handler);
    EXPECT_EQ(reasons, "File too large. File too large. File too large. File too large. ");
    EXPECT_EQ(content("x"), "old");
    EXPECT_EQ(entries(), 1);
}

TEST_F(AtomicFileTest, TheNextWriteRemovesWhatAKillHasLeft) {
    const pid_t killed = ::fork();
    if (killed == 0) {
        std::signal(SIGXFSZ, SIG_DFL);
        const rlimit none{0, 0}, small{4096, 4096};
        ::setrlimit(RLIMIT_CORE, &none);
        ::setrlimit(RLIMIT_FSIZE, &small);
        write_file_atomically(path("x"), std::string(10000, 'n'));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(killed, &status, 0), killed);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(entries(), 1);
    const fs::path left = fs::directory_iterator(path(""))->path();
    // Without its target's name, as of a process that is gone and of one that lives.
    write(".velmora-" + std::to_string(killed) + "-0", "");
    write(".velmora-" + std::to_string(::getpid()) + "-0", "");

    write_file_atomically(path("y"), "another file's");
    EXPECT_TRUE(fs::exists(left));
    const int writer = ::open(left.c_str(), O_RDONLY | O_CLOEXEC);
    ::flock(writer, LOCK_EX);
    write_file_atomically(path("x"), "1");
    EXPECT_TRUE(fs::exists(left)) << "somebody is writing it";
    ::close(writer);
    write_file_atomically(path("x"), "2");
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(entries(), 3) << "the two files, and the living process's neighbour";
}

}  // namespace
}  // namespace velmora
