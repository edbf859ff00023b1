#include "views/tournament/standings_summary.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

constexpr int summary_spacing = 6;          // pixels
constexpr int summary_column_spacing = 12;  // pixels
constexpr std::size_t most_shown = 8;

}  // namespace

StandingsSummary::StandingsSummary() : Gtk::Box(Gtk::ORIENTATION_VERTICAL, summary_spacing) {
    m_progress.set_xalign(0);
    m_progress.set_line_wrap();
    m_table.set_column_spacing(summary_column_spacing);
    m_table.get_accessible()->set_name("Standings");
    m_open.set_halign(Gtk::ALIGN_START);
    m_open.set_tooltip_text("Shows the whole table, the cross table and the open games");
    m_open.signal_clicked().connect(m_all.make_slot());
    pack_start(m_progress, Gtk::PACK_SHRINK);
    pack_start(m_table, Gtk::PACK_SHRINK);
    pack_start(m_open, Gtk::PACK_SHRINK);
    show_all_children();
}

void StandingsSummary::show_sheet(const StandingsSheet& sheet) {
    const std::string progress = sheet.progress();
    m_progress.set_text(progress.empty() ? sheet.title : sheet.title + ": " + progress);
    for (Gtk::Widget* const child : m_table.get_children()) {
        m_table.remove(*child);
    }
    for (std::size_t i = 0; i < std::min(most_shown, sheet.lines.size()); ++i) {
        const auto& line = sheet.lines[i];
        const std::string elo = line.error.empty() ? line.elo : line.elo + " \u00b1 " + line.error;
        const std::array<std::string, 4> texts{std::to_string(i + 1) + ".", line.name,
                                               line.points + " of " + line.games, elo};
        for (std::size_t column = 0; column < texts.size(); ++column) {
            auto* const label = Gtk::make_managed<Gtk::Label>(texts[column]);
            const bool is_name = column == 1;
            label->set_xalign(is_name ? 0 : 1);
            label->set_hexpand(is_name);
            if (is_name) label->set_ellipsize(Pango::ELLIPSIZE_END);
            m_table.attach(*label, static_cast<int>(column), static_cast<int>(i));
        }
    }
    m_table.show_all();
}

}  // namespace velmora
