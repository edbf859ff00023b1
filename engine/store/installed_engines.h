#pragma once

#include <iosfwd>
#include <map>
#include <string>

#include "engine/store/engine_variables.h"

namespace velmora {

/// The engines that the user has installed, with their settings: the file "engines.cfg" of the user's
/// directory as a map.
///
/// Nothing watches the file; whoever writes last wins. Belongs to the thread that made it.
///
/// The file is rows of a word and a value, one block for each engine:
///
///     name Some Engine
///     filename /usr/games/some-engine
///     protocol uci
///     elo 2800
///     handicap 50
///     setoption name Hash value 64
///
/// The protocol is kept so that loading need not try the others. Of an option only name and value are kept:
/// type and limits are announced at every start and may change with the program. Missing rows, empty ones
/// and those of another word are no errors, since people edit the file.
class InstalledEngines {
public:
    /// By the name under which the engine is installed.
    using Map = std::map<std::string, EngineVariables>;

    /// An empty list beside the user's directory. Where that directory cannot be made this is reported on
    /// standard error, and reading and writing try again.
    InstalledEngines();
    /// An empty list that reads and writes below `home`, a path with a trailing slash.
    explicit InstalledEngines(const std::string& home);

    /// Adds what the file holds to the map. A file that isn't there adds nothing. Throws
    /// std::runtime_error with path and reason for one that is there and can't be read, such as a pipe: taken
    /// for an empty list, it would be replaced by one at the next write.
    void read_engines_cfg();

    /// Replaces the file; the version before is left as "engines.cfg~". The old list stays whole until the
    /// new one is complete on the disk. Throws std::runtime_error when the file cannot be written.
    void write_engines_cfg();

    /// Stores a copy under its name, replacing an entry of that name; nothing for an empty name, under which
    /// it could never be loaded again. Throws std::invalid_argument with words for the user when the
    /// program's path wouldn't be read back as it is, a line feed in it above all.
    void add_engine(const EngineVariables& engine);
    void remove_engine(const std::string& name);
    void remove_engine(const EngineVariables& engine);

    const Map& engines() const { return m_engines; }

    /// The file's text form. Rows that cannot be read are skipped.
    void read(std::istream& in);
    void write(std::ostream& out) const;

private:
    void find_home();

    std::string m_cfg_path;  // empty until the user's directory has been found
    Map m_engines;
};

}  // namespace velmora
