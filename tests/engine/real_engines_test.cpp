#include <filesystem>

#include "channel/text.h"
#include "chess/legal_moves.h"
#include "chess/position.h"
#include "engine/gui_engine.h"
#include "tests/engine/engine_fixture.h"

namespace velmora {

namespace {

struct RealEngine {
    const char* name;
    Protocol protocol;
};

void PrintTo(const RealEngine& engine, std::ostream* out) { *out << engine.name; }

/// Engines of other makers, from Debian's packages.
class RealEngineTest : public EngineTest, public testing::WithParamInterface<RealEngine> {
protected:
    void SetUp() override {
        m_path = std::string("/usr/games/") + GetParam().name;
        if (!std::filesystem::exists(m_path)) GTEST_SKIP() << m_path << " is not installed";
    }

    void load(std::uint32_t seat, Protocol protocol) {
        GuiEngine& engine = m_engines[seat - 1];
        engine.load_engine(&m_sink, seat, m_path, protocol);
        ASSERT_TRUE(engine.is_alive());
        EXPECT_EQ(engine.protocol(), GetParam().protocol);
        make_ready(engine, seat);
    }

    void make_ready(GuiEngine& engine, std::uint32_t seat) {
        engine.set_instance_id(seat);
        engine.set_level(Level("sessions 40 0:02 0"));
        engine.set_white(seat == 1);
        engine.new_game();
    }

    /// Plays moves by both seats in turn, White's engine first, and gives the position reached.
    ChessPosition play(int plies) {
        ChessPosition position;
        position.new_game();
        for (int ply = 0; ply < plies; ++ply) {
            const std::uint32_t seat = ply % 2 == 0 ? 1 : 2;
            GuiEngine& engine = m_engines[seat - 1];
            const auto before = m_sink.size();
            engine.set_position(position);
            engine.go();
            const std::string prefix = std::to_string(seat) + ' ' + std::to_string(seat) + " bestmove ";
            std::string move;
            EXPECT_TRUE(wait_until([&] {
                const auto lines = m_sink.lines();
                for (auto i = before; i < lines.size(); ++i) {
                    if (lines[i].starts_with(prefix)) move = text::first_word(lines[i].substr(prefix.size()));
                }
                return !move.empty() || !engine.is_alive();
            })) << "ply "
                << ply << " of " << position.moves_text();
            const auto legal = find_legal(position, position.convert_to_move(move));
            if (!legal) {
                ADD_FAILURE() << move << " after " << position.moves_text();
                break;
            }
            position.do_move(*legal);
        }
        return position;
    }

    void TearDown() override {
        for (GuiEngine& engine : m_engines) engine.unload_engine();
        EngineTest::TearDown();
    }

    std::string m_path;
    RecordingSink m_sink;
    GuiEngine m_engines[2]{GuiEngine(std::chrono::milliseconds(20)),
                           GuiEngine(std::chrono::milliseconds(20))};
};

TEST_P(RealEngineTest, IsFoundPlaysIsReloadedAndLeavesNothingBehind) {
    load(1, Protocol::autodetect);
    load(2, GetParam().protocol);
    EXPECT_EQ(play(12).moves().size(), 12U);
    m_engines[0].reload_engine();
    ASSERT_TRUE(m_engines[0].is_alive());
    make_ready(m_engines[0], 1);
    m_engines[1].reload_engine();
    make_ready(m_engines[1], 2);
    EXPECT_EQ(play(4).moves().size(), 4U);
}

INSTANTIATE_TEST_SUITE_P(All, RealEngineTest,
                         testing::Values(RealEngine{"stockfish", Protocol::uci},
                                         RealEngine{"toga2", Protocol::uci},
                                         RealEngine{"fairymax", Protocol::xboard_v2},
                                         RealEngine{"phalanx", Protocol::xboard_v2},
                                         RealEngine{"gnuchess", Protocol::xboard_v2}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace

}  // namespace velmora
