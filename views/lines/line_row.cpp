#include "views/lines/line_row.h"

#include <charconv>
#include <optional>
#include <utility>

#include <glibmm/main.h>
#include <glibmm/markup.h>
#include <gtkmm/cssprovider.h>

#include "views/board/shown_position.h"

namespace velmora {

namespace {

constexpr int label_spacing = 6;     // pixels between the three labels
constexpr int evaluation_chars = 7;  // "≥+12.35"
constexpr int depth_chars = 3;
constexpr int preview_size = 192;  // pixels of the small board

/// The links look as the text around them does: underlined in blue, a line would be no text to read.
const Glib::RefPtr<Gtk::CssProvider>& style() {
    static const auto provider = [] {
        auto css = Gtk::CssProvider::create();
        css->load_from_data(
            ".engine-line link { color: inherit; text-decoration: none; }"
            ".engine-line link:hover { text-decoration: underline; }");
        return css;
    }();
    return provider;
}

/// As much of a line as `width` pixels can show.
std::string markup_of(const ShownLine& line, int width) {
    constexpr int least_char_width = 5;  // pixels; of a larger font more is made than is seen
    auto room = static_cast<std::size_t>(width / least_char_width);
    std::string markup = line.start.empty() ? "" : Glib::Markup::escape_text(line.start).raw() + " ";
    for (std::size_t i = 0; i < line.moves.size(); ++i) {
        if (i > 0) markup += ' ';
        markup += "<a href=\"" + std::to_string(i) + "\">" + Glib::Markup::escape_text(line.moves[i]).raw() +
                  "</a>";
        // The ellipsis comes from the label: what is cut here lies behind it.
        if (line.moves[i].size() >= room) break;
        room -= line.moves[i].size() + 1;
    }
    return markup;
}

std::optional<std::size_t> move_of_link(const std::string& uri) {
    std::size_t move = 0;
    const auto [end, fault] = std::from_chars(uri.data(), uri.data() + uri.size(), move);
    if (uri.empty() || fault != std::errc() || end != uri.data() + uri.size()) return std::nullopt;
    return move;
}

}  // namespace

LineRow::LineRow(std::size_t number, PositionOf position_of)
    : Gtk::Box(Gtk::ORIENTATION_HORIZONTAL, label_spacing),
      m_number(number),
      m_position_of(std::move(position_of)) {
    m_evaluation.set_width_chars(evaluation_chars);
    m_evaluation.set_xalign(1);
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    m_evaluation.set_attributes(bold);
    m_depth.set_width_chars(depth_chars);
    m_depth.set_xalign(1);
    m_depth.get_style_context()->add_class("dim-label");
    m_moves.set_xalign(0);
    m_moves.set_ellipsize(Pango::ELLIPSIZE_END);
    m_moves.set_track_visited_links(false);
    m_moves.get_style_context()->add_class("engine-line");
    m_moves.get_style_context()->add_provider(style(), GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    Pango::AttrList plain;
    auto underline = Pango::Attribute::create_attr_underline(Pango::UNDERLINE_NONE);
    plain.insert(underline);
    m_moves.set_attributes(plain);
    m_moves.set_has_tooltip();
    m_moves.signal_query_tooltip().connect(
        [this](int /*x*/, int /*y*/, bool /*keyboard*/, const Glib::RefPtr<Gtk::Tooltip>& tooltip) {
            return show_position(tooltip);
        });
    m_moves.signal_activate_link().connect(
        [this](const Glib::ustring& uri) {
            if (const auto move = move_of_link(uri)) m_move_chosen.emit(*move);
            return true;
        },
        false);
    m_moves.signal_size_allocate().connect([this](const Gtk::Allocation& area) {
        if (area.get_width() <= m_laid_out_width || m_widening.connected()) return;
        // A label takes no other text while it is being laid out.
        m_widening =
            Glib::signal_idle().connect(sigc::bind_return(sigc::mem_fun(*this, &LineRow::show_moves), false));
    });
    pack_start(m_evaluation, Gtk::PACK_SHRINK);
    pack_start(m_depth, Gtk::PACK_SHRINK);
    pack_start(m_moves, Gtk::PACK_EXPAND_WIDGET);
}

void LineRow::show_line(const ShownLine& line) {
    if (line == m_shown) return;
    if (line.evaluation != m_shown.evaluation) m_evaluation.set_text(line.evaluation);
    if (line.depth != m_shown.depth) m_depth.set_text(line.depth);
    const bool other_moves = line.moves != m_shown.moves || line.start != m_shown.start;
    m_shown = line;
    if (other_moves) show_moves();
    m_evaluation.get_accessible()->set_name(
        line.moves.empty() ? "" : "Line " + std::to_string(m_number) + ", " + line.evaluation);
    m_depth.get_accessible()->set_name(line.depth.empty() ? "" : "depth " + line.depth);
}

/// To lay out a link takes the toolkit ten times as long as plain text, and most of a long line is never
/// seen.
void LineRow::show_moves() {
    m_laid_out_width = m_moves.get_allocated_width();
    m_moves.set_markup(markup_of(m_shown, m_laid_out_width));
}

bool LineRow::show_position(const Glib::RefPtr<Gtk::Tooltip>& tooltip) {
    const auto move = move_of_link(m_moves.get_current_uri());
    if (!move) return false;
    const std::string fen = m_position_of(*move);
    if (fen.empty()) return false;
    if (!m_board) {
        m_board = std::make_unique<Drawing>(preview_size);
        m_board->show();
    }
    m_board->set_pieces(read_shown_position(fen).pieces);
    tooltip->set_custom(*m_board);
    return true;
}

}  // namespace velmora
