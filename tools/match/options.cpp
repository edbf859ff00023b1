#include "tools/match/options.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>

#include "base/text.h"
#include "engine/store/installed_engines.h"

namespace velmora {

namespace {

using Words = std::vector<std::string>;

/// Letters to add, take away or change (Levenshtein).
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

template <class Rows>
[[noreturn]] void unknown(const std::string& what, std::string_view word, const Rows& rows) {
    const auto& nearest = *std::min_element(rows.begin(), rows.end(), [word](const auto& a, const auto& b) {
        return distance(word, a.name) < distance(word, b.name);
    });
    throw UsageError(what + " \"" + std::string(word) + "\"; the nearest is \"" + std::string(nearest.name) +
                     "\"");
}

double real(std::string_view what, std::string_view value) {
    text::WordReader reader(value);
    const auto number = reader.real();
    if (!number || !reader.rest().empty() || !std::isfinite(*number)) {
        throw UsageError(std::string(what) + " wants a number, not \"" + std::string(value) + "\"");
    }
    return *number;
}

template <class T>
T whole(std::string_view what, std::string_view value, T least, T most = std::numeric_limits<T>::max()) {
    const auto number = text::strict_integer<T>(value);
    if (!number || *number < least || *number > most) {
        throw UsageError(std::string(what) + " wants a whole number of at least " + std::to_string(least) +
                         ", not \"" + std::string(value) + "\"");
    }
    return *number;
}

template <class T>
T one_of(std::string_view what, std::string_view value,
         std::initializer_list<std::pair<std::string_view, T>> choices) {
    std::string all;
    for (const auto& [word, meaning] : choices) {
        if (word == value) return meaning;
        all.append(all.empty() ? "" : ", ").append(word);
    }
    throw UsageError(std::string(what) + " is one of " + all + ", not \"" + std::string(value) + "\"");
}

std::int32_t ms_of_seconds(std::string_view what, std::string_view value) {
    const double ms = real(what, value) * 1000;
    if (ms <= 0 || ms > Level::endless_ms) throw UsageError(std::string(what) + " wants a time in seconds");
    return static_cast<std::int32_t>(std::lround(ms));
}

using Setup = MatchEngineSetup;

struct EngineKey {
    std::string_view name;
    void (*read)(Setup&, const std::string& value);
};

void read_time_control(Setup& setup, const std::string& value) {
    const auto level = level_of_time_control(value);
    if (!level) throw UsageError("tc wants moves/time+increment or inf, not \"" + value + '"');
    setup.level = *level;
    setup.endless = value == "inf";
}

constexpr auto engine_keys = std::to_array<EngineKey>({
    {"name", [](Setup& s, const std::string& v) { s.name = v; }},
    {"cmd", [](Setup& s, const std::string& v) { s.call.path = v; }},
    {"args",
     [](Setup& s, const std::string& v) {
         for (const auto word : text::words(v)) s.call.arguments.emplace_back(word);
     }},
    {"arg", [](Setup& s, const std::string& v) { s.call.arguments.push_back(v); }},
    {"dir", [](Setup& s, const std::string& v) { s.call.directory = v; }},
    {"proto",
     [](Setup& s, const std::string& v) {
         s.protocol = one_of<Protocol>("proto", v, {{"uci", Protocol::uci}, {"xboard", Protocol::xboard_v2},
                                                    {"auto", Protocol::autodetect}});
     }},
    {"tc", read_time_control},
    {"st", [](Setup& s, const std::string& v) {
         s.level = Level("fixed_movetime 1");
         s.level.set_movetime(ms_of_seconds("st", v));
     }},
    {"depth", [](Setup& s, const std::string& v) {
         s.level = Level("fixed_depth " + std::to_string(whole<std::int32_t>("depth", v, 1)));
     }},
    {"nodes", [](Setup& s, const std::string& v) {
         s.level = Level("fixed_nodes " + std::to_string(whole<std::int32_t>("nodes", v, 1)));
     }},
    {"timemargin", [](Setup& s, const std::string& v) {
         s.time_margin = std::chrono::milliseconds(whole<std::int32_t>("timemargin", v, 0));
     }},
    {"restart", [](Setup& s, const std::string& v) {
         s.restart = one_of<Setup::Restart>("restart", v, {{"auto", Setup::Restart::automatic},
                                                           {"on", Setup::Restart::on},
                                                           {"off", Setup::Restart::off}});
     }},
    {"conf", [](Setup& s, const std::string& v) { configure_installed(s, v); }},
    {"option.NAME", [](Setup&, const std::string&) {}},
});

void read_engine_word(Setup& setup, const std::string& word) {
    const auto equals = word.find('=');
    const std::string key = word.substr(0, equals);
    if (equals == std::string::npos) unknown("-engine has no", key, engine_keys);
    const std::string value = word.substr(equals + 1);
    constexpr std::string_view option = "option.";
    if (key.starts_with(option)) {
        setup.options.emplace_back(key.substr(option.size()), value);
        return;
    }
    const auto* const row = std::find_if(engine_keys.begin(), engine_keys.end(),
                                         [&](const EngineKey& k) { return k.name == key; });
    if (row == engine_keys.end()) unknown("-engine has no", key, engine_keys);
    row->read(setup, value);
}

/// A key of an option that has some: "elo0" of "-sprt".
struct Key {
    std::string_view name;
    std::function<void(const std::string&)> read;
};

void read_keys(const std::string& option, const Words& words, const std::vector<Key>& keys) {
    for (const auto& word : words) {
        const auto equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const auto row = std::find_if(keys.begin(), keys.end(), [&](const Key& k) { return k.name == name; });
        if (row == keys.end() || equals == std::string::npos) unknown(option + " has no", name, keys);
        row->read(word.substr(equals + 1));
    }
}

/// The command line as it is read: -each is for all engines, also for those that stand behind it.
struct Reading {
    MatchOptions options;
    std::vector<Words> engines;
    Words each;
};

using std::string;

void read_openings(Reading& r, const Words& words) {
    auto& o = r.options.openings;
    string format;
    read_keys("-openings", words,
              {{"file", [&](const string& v) { o.file = v; }},
               {"format",
                [&](const string& v) {
                    format = one_of<string>("format", v, {{"pgn", ".pgn"}, {"epd", ".epd"}});
                }},
               {"order",
                [&](const string& v) {
                    o.random = one_of<bool>("order", v, {{"sequential", false}, {"random", true}});
                }},
               {"plies", [&](const string& v) { o.plies = whole<std::uint32_t>("plies", v, 0); }},
               {"start", [&](const string& v) { o.start = whole<std::uint32_t>("start", v, 1); }}});
    if (!format.empty() && !o.file.ends_with(format)) {
        throw UsageError("-openings: the name of a file in this format ends with " + format);
    }
}

void read_sprt(Reading& r, const Words& words) {
    auto& s = r.options.sprt.emplace();
    const auto number = [](double& place, std::string_view name) {
        return Key{name, [&place, name](const string& v) { place = real(name, v); }};
    };
    read_keys("-sprt", words,
              {number(s.elo0, "elo0"),
               number(s.elo1, "elo1"),
               number(s.alpha, "alpha"),
               number(s.beta, "beta"),
               {"model", [&](const string& v) {
                    s.model = one_of<Sprt::Model>(
                        "model", v,
                        {{"logistic", Sprt::Model::logistic}, {"normalized", Sprt::Model::normalized}});
                }}});
    if (!s.is_valid()) {
        throw UsageError("-sprt wants elo0 below elo1, alpha and beta above 0 and below 1 together");
    }
}

void read_draw(Reading& r, const Words& words) {
    auto& a = r.options.pool.adjudication;
    a.draw_count = 1;
    read_keys(
        "-draw", words,
        {{"movenumber", [&](const string& v) { a.draw_move = whole<std::uint32_t>("movenumber", v, 0); }},
         {"movecount", [&](const string& v) { a.draw_count = whole<std::uint32_t>("movecount", v, 1); }},
         {"score", [&](const string& v) { a.draw_score = whole<std::int32_t>("score", v, 0); }}});
}

void read_resign(Reading& r, const Words& words) {
    auto& a = r.options.pool.adjudication;
    a.resign_count = 1;
    read_keys(
        "-resign", words,
        {{"movecount", [&](const string& v) { a.resign_count = whole<std::uint32_t>("movecount", v, 1); }},
         {"score", [&](const string& v) { a.resign_score = whole<std::int32_t>("score", v, 1); }},
         {"twosided", [&](const string& v) {
              a.resign_two_sided = one_of<bool>("twosided", v, {{"true", true}, {"false", false}});
          }}});
    if (a.resign_score == 0) throw UsageError("-resign wants score=");
}

void read_pgn(Reading& r, const Words& words) {
    r.options.pgn.path = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        // Games that were broken off are never in the record, with "fi" or without: they are played again.
        if (one_of<bool>("-pgnout", words[i], {{"min", true}, {"fi", false}})) r.options.pgn.minimal = true;
    }
}

void read_shard(Reading& r, const Words& words) {
    const auto slash = words.front().find('/');
    auto& s = r.options.schedule;
    s.shards =
        whole<std::uint64_t>("--shard", slash == string::npos ? "" : words.front().substr(slash + 1), 1);
    s.shard = whole<std::uint64_t>("--shard", words.front().substr(0, slash), 1, s.shards) - 1;
}

struct OptionRow {
    std::string_view name;
    std::size_t least, most;  // words behind it
    void (*read)(Reading&, const Words&);
};

constexpr std::size_t any = 1000;
constexpr auto rows = std::to_array<OptionRow>({
    {"-engine", 1, any, [](Reading& r, const Words& w) { r.engines.push_back(w); }},
    {"-each", 1, any, [](Reading& r, const Words& w) { r.each.insert(r.each.end(), w.begin(), w.end()); }},
    {"-rounds", 1, 1,
     [](Reading& r, const Words& w) {
         r.options.schedule.rounds = whole<std::uint64_t>("-rounds", w[0], 1, 1'000'000'000);
     }},
    {"-games", 1, 1,
     [](Reading& r, const Words& w) {
         r.options.schedule.games = whole<std::uint64_t>("-games", w[0], 1, 1'000'000);
     }},
    {"-repeat", 0, 1, [](Reading& r, const Words&) { r.options.schedule.repeat = true; }},
    {"-noswap", 0, 0, [](Reading& r, const Words&) { r.options.schedule.swap = false; }},
    {"-tournament", 1, 1,
     [](Reading& r, const Words& w) {
         using Kind = ScheduleSettings::Kind;
         r.options.schedule.kind = one_of<Kind>(
             "-tournament", w[0], {{"round-robin", Kind::round_robin}, {"gauntlet", Kind::gauntlet}});
     }},
    {"-concurrency", 1, 1,
     [](Reading& r, const Words& w) {
         r.options.pool.concurrency = whole<unsigned>("-concurrency", w[0], 1, 1024);
     }},
    {"-openings", 1, any, read_openings},
    {"-srand", 1, 1,
     [](Reading& r, const Words& w) { r.options.openings.seed = whole<std::uint64_t>("-srand", w[0], 0); }},
    {"-variant", 1, 1,
     [](Reading& r, const Words& w) {
         r.options.pool.chess960 =
             one_of<bool>("-variant", w[0], {{"standard", false}, {"fischerandom", true}});
     }},
    {"-pgnout", 1, 3, read_pgn},
    {"-epdout", 1, 1, [](Reading& r, const Words& w) { r.options.end_positions = w[0]; }},
    {"-event", 1, 1, [](Reading& r, const Words& w) { r.options.pgn.event = w[0]; }},
    {"-site", 1, 1, [](Reading& r, const Words& w) { r.options.pgn.site = w[0]; }},
    {"-draw", 1, 3, read_draw},
    {"-resign", 1, 3, read_resign},
    {"-maxmoves", 1, 1,
     [](Reading& r, const Words& w) {
         r.options.pool.adjudication.most_moves = whole<std::uint32_t>("-maxmoves", w[0], 0);
     }},
    {"-sprt", 2, 5, read_sprt},
    {"-ratinginterval", 1, 1,
     [](Reading& r,
        const Words& w) { r.options.rating_interval = whole<std::uint64_t>("-ratinginterval", w[0], 0); }},
    {"-recover", 0, 0, [](Reading& r, const Words&) { r.options.pool.recover = true; }},
    {"-wait", 1, 1,
     [](Reading& r,
        const Words&
            w) { r.options.pool.wait = std::chrono::milliseconds(whole<std::uint32_t>("-wait", w[0], 0)); }},
    {"-log", 0, 0, [](Reading& r, const Words&) { r.options.pool.logs = true; }},
    {"-use-affinity", 0, 0, [](Reading& r, const Words&) { r.options.pool.use_affinity = true; }},
    {"-config", 1, 1, [](Reading& r, const Words& w) { r.options.state = w[0]; }},
    {"-resume", 1, 1, [](Reading& r, const Words& w) { r.options.resume = w[0]; }},
    {"--shard", 1, 1, read_shard},
    {"-trn", 1, 1, [](Reading& r, const Words& w) { r.options.tournament = w[0]; }},
    {"--json", 0, 0, [](Reading& r, const Words&) { r.options.json = true; }},
    {"-help", 0, 0, [](Reading& r, const Words&) { r.options.help = true; }},
    {"--help", 0, 0, [](Reading& r, const Words&) { r.options.help = true; }},
});

void read_engines(Reading& reading) {
    for (const Words& words : reading.engines) {
        Setup setup;
        setup.level = Level("sudden_death 0 0 0");
        for (const auto& word : reading.each) read_engine_word(setup, word);
        for (const auto& word : words) read_engine_word(setup, word);
        if (setup.call.path.empty()) throw UsageError("-engine wants cmd= or conf=");
        if (!setup.endless && setup.level.base_ms() == 0) {
            throw UsageError("-engine wants tc=, st=, depth= or nodes=: " + setup.call.path);
        }
        reading.options.pool.engines.push_back(std::move(setup));
    }
    auto& engines = reading.options.pool.engines;
    if (engines.size() < 2)
        throw UsageError("a match wants two engines or more: -engine cmd=PROGRAM tc=TIME");
    if (reading.options.sprt && engines.size() != 2) throw UsageError("-sprt is for two engines");
}

}  // namespace

void configure_installed(MatchEngineSetup& setup, const std::string& name) {
    InstalledEngines installed;
    installed.read_engines_cfg();
    const auto found = installed.engines().find(name);
    if (found == installed.engines().end())
        throw UsageError("conf: no engine is installed as \"" + name + '"');
    setup.name = name;
    setup.call.path = found->second.filename;
    setup.protocol = found->second.protocol;
    for (const auto& [option, value] : found->second.options) setup.options.emplace_back(option, value.value);
}

std::optional<Level> level_of_time_control(std::string_view text) {
    Level level("sudden_death 0 0 0");
    level.set_base(Level::endless_ms);
    if (text == "inf") return level;
    const auto slash = text.find('/');
    if (slash != std::string_view::npos) {
        const auto moves = text::strict_integer<std::int32_t>(text.substr(0, slash));
        if (!moves || *moves < 1) return {};
        level = Level("sessions 1 0 0");
        level.set_moves(*moves);
        text.remove_prefix(slash + 1);
    }
    const auto seconds = [](std::string_view word) -> std::optional<double> {
        text::WordReader reader(word);
        const auto number = reader.real();
        if (!number || !reader.rest().empty() || !(*number >= 0) || *number > 1e6) return {};
        return number;
    };
    const auto plus = text.find('+');
    if (plus != std::string_view::npos) {
        const auto increment = seconds(text.substr(plus + 1));
        if (!increment) return {};
        level.set_inc(static_cast<std::int32_t>(std::lround(*increment * 1000)));
        text = text.substr(0, plus);
    }
    double minutes = 0;
    if (const auto colon = text.find(':'); colon != std::string_view::npos) {
        const auto number = seconds(text.substr(0, colon));
        if (!number) return {};
        minutes = *number;
        text.remove_prefix(colon + 1);
    }
    const auto rest = seconds(text);
    if (!rest || minutes * 60 + *rest <= 0 || minutes * 60 + *rest > 1e6) return {};
    level.set_base(static_cast<std::int32_t>(std::lround((minutes * 60 + *rest) * 1000)));
    return level;
}

MatchOptions MatchOptions::parse(const Words& words) {
    Reading reading;
    for (std::size_t i = 0; i < words.size();) {
        const std::string& word = words[i++];
        const auto is_option = [](const std::string& w) {
            return std::any_of(rows.begin(), rows.end(), [&](const OptionRow& row) { return row.name == w; });
        };
        const auto* const row =
            std::find_if(rows.begin(), rows.end(), [&](const OptionRow& r) { return r.name == word; });
        if (row == rows.end()) unknown("no option", word, rows);
        Words values;
        while (i < words.size() && values.size() < row->most && !is_option(words[i]) &&
               !(words[i].starts_with('-') && values.size() >= row->least)) {
            values.push_back(words[i++]);
        }
        if (values.size() < row->least) throw UsageError(word + " wants a value");
        row->read(reading, values);
    }
    const auto& options = reading.options;
    if (!options.tournament.empty() && (!reading.engines.empty() || !options.state.empty())) {
        throw UsageError("-trn takes its engines and keeps its results in the tournament");
    }
    if (!options.help && options.resume.empty() && options.tournament.empty()) read_engines(reading);
    return std::move(reading.options);
}

std::string_view MatchOptions::help_text() {
    return "velmora-match -engine cmd=PROGRAM tc=TIME -engine ... [options]\n"
           "velmora-match -resume FILE          go on with a match that was ended by anything\n"
           "velmora-match merge FILE...         join what several machines have played\n"
           "\n"
           "-engine / -each  name= cmd= conf= args= arg= dir= proto=uci|xboard|auto tc= st= depth= nodes=\n"
           "                 timemargin= restart=auto|on|off option.NAME=\n"
           "-rounds N -games N -repeat -noswap -tournament round-robin|gauntlet -concurrency N\n"
           "-openings file= format=pgn|epd order=sequential|random plies= start=   -srand N\n"
           "-variant standard|fischerandom\n"
           "-pgnout FILE [min] [fi]   -epdout FILE   -event TEXT   -site TEXT\n"
           "-draw movenumber= movecount= score=   -resign movecount= score= twosided=   -maxmoves N\n"
           "-sprt elo0= elo1= alpha= beta= model=logistic|normalized   -ratinginterval N\n"
           "-trn NAME        plays a tournament of the window's list\n"
           "-recover -wait MS -log -use-affinity -config FILE --shard K/N --json\n"
           "\n"
           "Times are in seconds: tc=40/60+0.6 is 40 moves in a minute with 0.6 seconds a move.\n";
}

}  // namespace velmora
