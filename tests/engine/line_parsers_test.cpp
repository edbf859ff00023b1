
#include <gtest/gtest.h>

#include "engine/drivers/stopped_searches.h"
#include "engine/drivers/xboard_feature.h"
#include "engine/process/line_splitter.h"
#include "engine/store/engine_variables.h"
#include "engine/store/option.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

/// All fields in one text.
std::string fields(const Option& option) {
    std::string text = option.name + '|' + option.type + '|' + option.default_value + '|' + option.min + '|' +
                       option.max + '|' + option.value;
    for (const std::string& choice : option.vars) text += '|' + choice;
    return text;
}

TEST(Option, ReadsOptionLines) {
    struct Row {
        const char *line, *fields;
    };
    const Row rows[] = {
        {"option name Hash type spin default 16 min 1 max 1024", "Hash|spin|16|1|1024|16"},
        {"option name Style type combo default Normal var Solid var Normal var Very Risky",
         "Style|combo|Normal|||Normal|Solid|Normal|Very Risky"},
        {"option  name  Book   File\ttype string default <empty>", "Book File|string|<empty>|||<empty>"},
        {"option name A type combo var var default x value y", "A|combo|x|||x|var"},
        {"option default 3 name A unknown type", "A unknown||3|||3"},
        {"option name A type combo var", "A|combo||||"},
        {"option name", "|||||"},
    };
    for (const Row& row : rows) EXPECT_EQ(fields(Option(row.line)), row.fields) << row.line;
}

TEST(Option, RefusesOtherLines) {
    for (const char* line : {"", "options name A", "setoption name A"}) {
        EXPECT_EQ(test::thrown_text<std::runtime_error>([line] { Option{std::string_view(line)}; }),
                  "Option:Option  argument not an option");
    }
}

TEST(EngineVariables, AddingAnOptionAgainKeepsWhetherItWasTouched) {
    EngineVariables engine;
    engine.add_option(Option("option name A type spin default 1"));
    engine.options.at("A").changed = true;
    engine.add_option(Option("option name A type check default true"));
    EXPECT_EQ(fields(engine.options.at("A")), "A|check|true|||true");
    EXPECT_TRUE(engine.options.at("A").changed);
}

TEST(XboardFeature, TakesPairAfterPair) {
    struct Row {
        const char *line, *pairs;
    };
    const Row rows[] = {
        {" ping=1 setboard=0", "<ping:1><setboard:0>"},
        {"myname=\"Alpha 1.0\" done=1", "<myname:Alpha 1.0><done:1>"},
        {"option=\"Clear -button\"  sigint=0 ", "<option:Clear -button><sigint:0>"},
        {"myname=\"cut", "<myname:cut>"},
        {R"(a=""b="c")", "<a:><b:c>"},
    };
    for (const Row& row : rows) {
        std::string_view rest = row.line;
        std::string pairs;
        while (const auto feature = take_feature(rest))
            pairs += '<' + feature->name + ':' + feature->value + '>';
        EXPECT_EQ(pairs, row.pairs) << row.line;
    }
}

TEST(XboardFeature, StoresWhatIsOfUse) {
    EngineVariables engine;
    for (const char* name : {"ping", "san", "smp", "memory", "variants", "option", "made_up"}) {
        apply_feature({name, "1"}, engine);
    }
    apply_feature({"colors", "2"}, engine);
    apply_feature({"ping", "0"}, engine);
    apply_feature({"egt", "syzygy"}, engine);
    apply_feature({"myname", std::string(EngineVariables::longest_name - 1, 'x') + "\u00e9"}, engine);
    EXPECT_EQ(engine.features, (XboardFeatures{.san = true, .colors = false, .smp = true, .memory = true}));
    EXPECT_EQ(engine.egt, "syzygy");
    EXPECT_EQ(engine.engine_name, std::string(EngineVariables::longest_name - 1, 'x'));
    EXPECT_EQ(engine.name, engine.engine_name);
    EXPECT_EQ(fields(engine.options.at("xboard_memory")), "xboard_memory|spin|128|16|1024|128");
    EXPECT_EQ(fields(engine.options.at("xboard_threads")), "xboard_threads|spin|1|1|64|1");
    EXPECT_EQ(engine.options.size(), 2U);
}

/// The lines that come out behind each piece, "<line>", with "~" for a carriage return, pieces divided by
/// "/".
std::string split(const std::vector<std::string>& pieces) {
    LineSplitter splitter;
    std::string result;
    for (const std::string& piece : pieces) {
        splitter.append(piece);
        while (const auto line = splitter.next()) {
            result.append("<").append(line->text).append(line->carriage_return ? "~>" : ">");
        }
        result += '/';
    }
    return result;
}

TEST(LineSplitter, CutsAtLineFeeds) {
    EXPECT_EQ(split({"a\nbc\n"}), "<a><bc>/");
    EXPECT_EQ(split({"a\nb", "c", "d\ne\n"}), "//<a><bcd><e>/")
        << "a partial line holds back those ahead of it";
    EXPECT_EQ(split({"\n\r\n\ra\r\r\n"}), "<><~><\ra~>/");
    EXPECT_EQ(split({"", std::string("\0a\xff\r\0\n", 6)}), "/<a\xff~>/") << "zero bytes are dropped";
    const std::string longest(LineSplitter::longest_line - 1, 'x');
    EXPECT_EQ(split({longest + "\u00e9y\nz\n"}), '<' + longest + "><z>/") << "cut at a character";
}

TEST(LineSplitter, GivesUpWholeLinesAtTheEndAndBeyondTheLimit) {
    LineSplitter splitter;
    splitter.append("a\nb");
    EXPECT_FALSE(splitter.next());
    splitter.finish();
    EXPECT_EQ(splitter.next()->text, "a");
    EXPECT_FALSE(splitter.next());

    const std::string line(999, 'x');
    std::size_t lines = 0;
    for (int i = 0; i < 5000; ++i) {
        splitter.append(line);
        splitter.append("\nx");
        while (splitter.next()) ++lines;
        ASSERT_FALSE(splitter.overflown());
    }
    EXPECT_GT(lines, 3000U) << "though no piece ever ended with a line";
    splitter.append(std::string(LineSplitter::limit + 1, 'y'));
    while (splitter.next()) ++lines;
    EXPECT_EQ(lines, 5000U);
    EXPECT_TRUE(splitter.overflown());
}

std::chrono::nanoseconds fake_time{0};

TEST(StoppedSearches, PaysTheOldestThatHasNotLapsed) {
    StoppedSearches searches(+[] { return fake_time; });
    EXPECT_FALSE(searches.pay());
    searches.add(1);
    fake_time += std::chrono::seconds(3);
    searches.add(2);
    searches.add(3);
    EXPECT_EQ(searches.pay(), 1U);
    fake_time += std::chrono::seconds(5);
    EXPECT_EQ(searches.pay(), 2U);
    fake_time += std::chrono::milliseconds(1);
    EXPECT_FALSE(searches.pay());
}

}  // namespace
}  // namespace velmora
