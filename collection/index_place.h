#pragma once

#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#include "collection/index_manifest.h"

namespace velmora {

/// The user's directory of collections: `velmora/collections` below `$XDG_CACHE_HOME`, or below `~/.cache`
/// where that is unset or not absolute (XDG Base Directory Specification 0.8).
std::string collections_directory();

/// Where the index of one PGN file lies: a manifest, a lock and a directory with the files that the manifest
/// names, each called by a sum of the PGN file's path.
class IndexPlace {
public:
    /// Makes the directory. Throws std::runtime_error with path and reason when that can't be done.
    IndexPlace(const std::string& pgn_path, const std::string& directory);

    /// The PGN file, absolute and with links followed.
    const std::string& pgn_path() const { return m_pgn_path; }

    /// The present state; nothing when there is none, or none of this file.
    std::optional<IndexManifest> manifest() const;
    /// Makes a state the present one.
    void publish(const IndexManifest& manifest) const;
    /// Takes a damaged state back, so that it is made anew the next time.
    void withdraw() const;

    /// The path of a file of the index.
    std::string path_of(const IndexManifest& manifest, const std::string& file) const;

    /// A name for a directory that isn't there, which is made.
    std::string make_directory() const;
    /// Removes all that belongs to this PGN file's index, but for what the manifest names. What another
    /// program has open stays readable for it. REQUIRES: the lock is held.
    void remove_all_but(const IndexManifest& manifest) const;

    /// Held while an index is written; it goes with its process.
    class Lock {
    public:
        explicit Lock(int descriptor) : m_descriptor(descriptor) {}
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        int m_descriptor;
    };

    /// Waits for whoever writes the same index, or until it is stopped: then null. Throws std::runtime_error.
    std::unique_ptr<Lock> lock(const std::stop_token& stop) const;

private:
    std::string m_pgn_path;
    std::string m_directory;  // with a slash at its end
    std::string m_name;       // of all that belongs to the index: what it begins with
};

}  // namespace velmora
