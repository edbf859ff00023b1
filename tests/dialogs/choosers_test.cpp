#include "dialogs/files/fen_list.h"
#include "dialogs/files/game_list.h"
#include "game/foreign/foreign_file.h"
#include "game/pgn_file.h"
#include "tests/dialogs/dialog_test.h"

namespace velmora {
namespace {

const std::string start_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

std::string pgn_game(const std::string& white, const std::string& rest = "[Date \"1927.09.16\"]\n") {
    return "[Event \"Match\"]\n[White \"" + white + "\"]\n[Black \"Caf\xE9\"]\n[Result \"1-0\"]\n" + rest +
           "\n1. e4 {a comment [with] brackets} e5 1-0\n\n";
}

class ChoosersTest : public DialogTest {
protected:
    /// The texts of a row, joined by "|".
    static std::string row_text(Gtk::TreeView& view, std::size_t row) {
        const auto cells = view.get_model()->children()[static_cast<unsigned>(row)];
        int number = 0;
        cells.get_value(0, number);
        std::string text = std::to_string(number);
        for (int column = 1; column < view.get_model()->get_n_columns(); ++column) {
            Glib::ustring cell;
            cells.get_value(column, cell);
            text += "|" + cell.raw();
        }
        return text;
    }
    static std::size_t rows(Gtk::TreeView& view) { return view.get_model()->children().size(); }
    static void wait_for_rows(Gtk::TreeView& view, std::size_t count) {
        EXPECT_TRUE(gui::pump_until([&] { return rows(view) >= count; }, std::chrono::seconds(30)));
    }
};

TEST_F(ChoosersTest, ListsTheHeadersOfAFileAndGivesTheOffsetOfTheChoice) {
    const std::string path =
        write("x.pgn", "\xEF\xBB\xBF; a comment\n" + pgn_game("Capablanca") + pgn_game("Lasker", ""));
    GameList list;
    const int number = answering(
        [&](Gtk::Dialog& dialog) {
            Gtk::TreeView& view = list_in(dialog);
            EXPECT_TRUE(gui::pump_until([&] { return gui::find_labelled<Gtk::Label>(dialog, "2 games"); }));
            EXPECT_EQ(row_text(view, 0), "1|Capablanca|Caf?|1-0|1927.09.16");
            EXPECT_EQ(row_text(view, 1), "2|Lasker|Caf?|1-0|") << "an absent tag is an empty cell";
            click_row(view, 1);
            press(dialog, "OK");
        },
        [&] { return list.choose_game(m_parent, path); });
    EXPECT_EQ(number, 2);
    PgnFile file;
    file.open(path);
    EXPECT_NE(file.read_game_at(list.chosen_offset()).find("Lasker"), std::string::npos);
}

TEST_F(ChoosersTest, AnswersByMouseAndKeyboard) {
    const std::string path = write("x.pgn", pgn_game("a") + pgn_game("b") + pgn_game("c"));
    const struct {
        const char* name;
        std::function<void(Gtk::Dialog&)> reply;
        int expected;
    } replies[] = {
        {"OK takes the first row", pressing("OK"), 1},
        {"CANCEL", pressing("CANCEL"), 0},
        {"Escape", [](Gtk::Dialog& dialog) { escape(dialog); }, 0},
        {"a double click is OK",
         [](Gtk::Dialog& dialog) {
             gui::double_click(list_in(dialog).get_bin_window(), middle_of_row(list_in(dialog), 2));
         },
         3},
        {"Enter in the list, one row further down",
         [](Gtk::Dialog& dialog) {
             give_keyboard(dialog);
             gui::press_key(dialog, GDK_KEY_Down);
             enter(dialog);
         },
         2},
        {"without a selection",
         [](Gtk::Dialog& dialog) {
             list_in(dialog).get_selection()->unselect_all();
             press(dialog, "OK");
         },
         0},
    };
    GameList list;
    for (const auto& row : replies) {
        EXPECT_EQ(answering(row.reply, [&] { return list.choose_game(m_parent, path); }), row.expected)
            << row.name;
    }
}

TEST_F(ChoosersTest, TypingSearchesAllColumns) {
    const std::string path = write("x.pgn", pgn_game("Anderssen", "") + pgn_game("Steinitz", "") +
                                                pgn_game("Lasker", "[Date \"1921.03.15\"]\n"));
    const struct {
        const char* key;
        int expected;
    } rows[] = {{"stein", 2}, {"1921", 3}, {"2", 2}, {"x", 0}};
    for (const auto& row : rows) {
        GameList list;
        const auto reply = [&](Gtk::Dialog& dialog) {
            Gtk::TreeView& view = list_in(dialog);
            give_keyboard(dialog);
            bool open = false;
            g_signal_emit_by_name(view.gobj(), "start-interactive-search", &open);
            Gtk::Entry* entry = nullptr;
            for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
                if (window != &dialog && window->get_mapped()) {
                    if (auto* found = gui::find_widget<Gtk::Entry>(*window)) entry = found;
                }
            }
            ASSERT_NE(entry, nullptr);
            entry->set_text(row.key);
            gui::pump_pending();
            press(dialog, "OK");
        };
        EXPECT_EQ(answering(reply, [&] { return list.choose_game(m_parent, path); }), row.expected)
            << row.key;
    }
}

TEST_F(ChoosersTest, WrongFilesGiveAnEmptyListAndNoChoice) {
    const std::string fifo = m_directory + "pipe";
    ::mkfifo(fifo.c_str(), 0600);
    const std::string binary = write("binary", std::string(100'000, '\0') + "\n\xFF[\n");
    for (const std::string& path : {m_directory + "none", m_directory, write("empty", ""), fifo, binary}) {
        GameList games;
        EXPECT_EQ(answering(pressing("OK"), [&] { return games.choose_game(m_parent, path); }), 0) << path;
        FenList positions;
        std::string fen = "as it was";
        answering(pressing("CANCEL"), [&] { return positions.choose_position(m_parent, path, fen); });
        EXPECT_EQ(fen, "as it was") << path;
    }
}

TEST_F(ChoosersTest, ListsTheLinesOfAFileOfPositions) {
    const std::string epd = "8/8/8/4k3/8/8/4P3/4K3 w - - id \"Caf\xE9\";";
    const std::string path = write("x.epd", "\r\n" + start_fen + "\r\n\n" + epd);
    FenList list;
    std::string fen;
    const auto reply = [&](Gtk::Dialog& dialog) {
        Gtk::TreeView& view = list_in(dialog);
        wait_for_rows(view, 2);
        EXPECT_EQ(row_text(view, 0), "1|" + start_fen) << "empty lines are not counted";
        EXPECT_EQ(row_text(view, 1), "2|8/8/8/4k3/8/8/4P3/4K3 w - - id \"Caf?\";");
        click_row(view, 1);
        press(dialog, "OK");
    };
    EXPECT_EQ(answering(reply, [&] { return list.choose_position(m_parent, path, fen); }), 2);
    EXPECT_EQ(fen, epd) << "as it stands in the file";
}

TEST_F(ChoosersTest, ALongFileIsListedToItsEnd) {
    static constexpr std::size_t lines = 50'000;
    static const Gtk::TreeModel::Path row_60("60");
    std::string text;
    for (std::size_t i = 1; i <= lines; ++i) text += start_fen + " id \"" + std::to_string(i) + "\";\n";
    const std::string path = write("long.fen", text);
    for (const bool selects : {true, false}) {
        FenList list;
        std::string fen;
        const auto the_last = [&](Gtk::Dialog& dialog) {
            Gtk::TreeView& view = list_in(dialog);
            const auto sees_row_60 = [&] {
                Gtk::TreeModel::Path first, last;
                return view.get_visible_range(first, last) && first <= row_60 && row_60 <= last;
            };
            wait_for_rows(view, 61);
            if (selects) {
                view.set_cursor(row_60);  // the list fills while it scrolls there
            } else {
                gui::pump_pending();  // a user scrolls what has been drawn
                view.scroll_to_row(row_60, 0);
                EXPECT_TRUE(gui::pump_until(sees_row_60));
            }
            wait_for_rows(view, lines);
            EXPECT_TRUE(gui::pump_until([&] {
                auto* label = gui::find_labelled<Gtk::Label>(dialog, "50\u202F000 positions");
                auto* bar = gui::find_widget<Gtk::ProgressBar>(dialog);
                return label && bar && bar->get_opacity() == 0;
            }));
            EXPECT_TRUE(view.get_selection()->is_selected(selects ? row_60 : Gtk::TreeModel::Path("0")))
                << "filling leaves the selection alone";
            EXPECT_TRUE(gui::pump_until(sees_row_60)) << "and what is on the screen";
            view.set_cursor(Gtk::TreeModel::Path(std::to_string(lines - 1)));
            press(dialog, "OK");
        };
        EXPECT_EQ(answering(the_last, [&] { return list.choose_position(m_parent, path, fen); }), int(lines));
        EXPECT_EQ(fen, start_fen + " id \"50000\";");
    }
}

TEST_F(ChoosersTest, TellsWhichGamesWereRepaired) {
    const std::string game = "[Event \"Match\"]\n[White \"";
    const std::string text =
        game + "Ann\"]\n\n1. e4 e5 *\n\n" + game + "Bo\"]\n\n1. f4 f5 2. 0-0 *\n\n" + game +
        "Cid\"]\n\n1. \u2658f3 1\u20130\n\n[White \"Dan\"]\n[Black \"Eve\"]\n\n1. d4 d5 1-0\n";
    std::string utf16 = "\xFF\xFE";
    for (const char c : game + "Ann\"]\n\n1. e4 e5 *\n") utf16.append({c, '\0'});
    const struct {
        std::string path;
        const char *found, *last_row, *remark;
    } cases[] = {
        {write("x.pgn", text), "1 game is repaired, 1 game can't be read whole", "4|Dan|Eve|1-0|????.??.??",
         "1|2|Bo - ?|line 9, column 13, move 2.: no move that can be made, which ends the line; the rest of "
         "it is "
         "a comment: 0-0"},
        {write("utf16.pgn", utf16), "1 game is repaired", "1|Ann|?|*|????.??.??",
         "1|1|Ann - ?|line 1, column 1: text in another encoding than UTF-8"},
    };
    for (const auto& each : cases) {
        GameList list;
        const auto reply = [&](Gtk::Dialog& dialog) {
            Gtk::TreeView& view = list_in(dialog);
            const auto is_told = [&] {
                return gui::find_labelled<Gtk::Label>(dialog, each.found) != nullptr;
            };
            EXPECT_TRUE(gui::pump_until(is_told)) << each.path;
            EXPECT_EQ(row_text(view, rows(view) - 1), each.last_row);
            sigc::connection reader = Glib::signal_timeout().connect(
                [&] {
                    for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
                        if (!window->get_mapped() || window->get_title() != "Repaired Games") continue;
                        EXPECT_EQ(row_text(list_in(*window), 0), each.remark);
                        press(*window, "CLOSE");
                        return false;
                    }
                    return true;
                },
                10);
            press(dialog, "Why...");
            EXPECT_FALSE(reader.connected()) << "the remarks were shown";
            reader.disconnect();
            view.set_cursor(Gtk::TreeModel::Path(std::to_string(rows(view) - 1)));
            press(dialog, "OK");
        };
        const auto number = answering(reply, [&] { return list.choose_game(m_parent, each.path); });
        EXPECT_EQ(number, each.last_row[0] - '0');
        EXPECT_NE(read_any_game(each.path, list.chosen_offset()).text.find(std::string(each.last_row, 2, 3)),
                  std::string::npos);
    }
}

/// A file without end.
class EndlessSource : public EntrySource {
public:
    bool next(FileEntry& entry) override {
        entry = {m_count, {"entry"}, "text " + std::to_string(m_count + 1)};
        ++m_count;
        return true;
    }
    std::uint64_t position() const override { return 1; }
    std::uint64_t file_size() const override { return 2; }

private:
    std::uint64_t m_count = 0;
};

class EndlessList : public ChooserList {
public:
    EndlessList() : EndlessList(FenList::ModelColumns()) {}
    using ChooserList::choose;

private:
    explicit EndlessList(const FenList::ModelColumns& columns)
        : ChooserList(columns, {{columns.fen, "Entry", 10, true}}, "entries") {}
};

TEST_F(ChoosersTest, AListMayBeAnsweredBeforeItIsComplete) {
    EndlessList list;
    const auto early = [&](Gtk::Dialog& dialog) {
        wait_for_rows(list_in(dialog), 100);
        EXPECT_EQ(gui::find_widget<Gtk::ProgressBar>(dialog)->get_opacity(), 1);
        list_in(dialog).set_cursor(Gtk::TreeModel::Path("59"));
        press(dialog, "OK");
    };
    const auto choice = answering(early, [&] {
        return list.choose(m_parent, "Endless", [] { return std::make_unique<EndlessSource>(); });
    });
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->number, 60);
    EXPECT_EQ(choice->entry.text, "text 60");
}

TEST(EntryReader, ASourceThatThrowsEndsTheList) {
    testing::internal::CaptureStderr();
    EntryReader reader([]() -> std::unique_ptr<EntrySource> { throw std::runtime_error("no memory"); });
    reader.wait_for(1, std::chrono::seconds(10));
    std::vector<FileEntry> entries;
    EXPECT_FALSE(reader.take(entries));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "EntryReader: no memory\n");
}

}  // namespace
}  // namespace velmora
