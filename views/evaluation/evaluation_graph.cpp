#include "views/evaluation/evaluation_graph.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <gdkmm/general.h>
#include <gtkmm/stylecontext.h>

namespace velmora {

namespace {

constexpr int natural_height = 90;  // pixels
constexpr double margin = 3;        // pixels around the curve, for the marks

}  // namespace

EvaluationGraph::EvaluationGraph() {
    set_size_request(-1, natural_height);
    set_can_focus();
    set_has_tooltip();
    signal_query_tooltip().connect(
        [this](int x, int /*y*/, bool keyboard, const Glib::RefPtr<Gtk::Tooltip>& tooltip) {
            return show_tooltip(x, keyboard, tooltip);
        });
    add_events(Gdk::BUTTON_PRESS_MASK | Gdk::BUTTON1_MOTION_MASK);
    get_accessible()->set_name("Evaluation graph");
}

void EvaluationGraph::set_points(std::vector<GraphPoint> points) {
    if (points == m_points) return;
    m_points = std::move(points);
    describe();
    queue_draw();
}

void EvaluationGraph::set_current(std::optional<std::int32_t> key) {
    if (key == m_current) return;
    m_current = key;
    describe();
    queue_draw();
}

void EvaluationGraph::describe() {
    const auto index = current_index();
    get_accessible()->set_description(index ? m_points[*index].label : "");
}

double EvaluationGraph::x_of(std::size_t index) const {
    const double width = get_allocated_width() - 2 * margin;
    return margin + (m_points.size() < 2 ? 0 : width * double(index) / double(m_points.size() - 1));
}

double EvaluationGraph::y_of(double expected) const {
    return margin + (get_allocated_height() - 2 * margin) * (1 - expected);
}

std::optional<std::size_t> EvaluationGraph::index_at(double x) const {
    if (m_points.empty()) return std::nullopt;
    const double width = std::max(1.0, get_allocated_width() - 2 * margin);
    const double place = std::clamp((x - margin) / width, 0.0, 1.0) * double(m_points.size() - 1);
    return static_cast<std::size_t>(std::lround(place));
}

std::optional<std::size_t> EvaluationGraph::current_index() const {
    if (!m_current) return std::nullopt;
    const auto found = std::ranges::find(m_points, *m_current, &GraphPoint::key);
    if (found == m_points.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_points.begin());
}

void EvaluationGraph::choose(std::size_t index) {
    if (index < m_points.size() && m_points[index].key != m_current) m_chosen.emit(m_points[index].key);
}

bool EvaluationGraph::on_button_press_event(GdkEventButton* event) {
    if (event->button != 1) return false;
    grab_focus();
    if (const auto index = index_at(event->x)) choose(*index);
    return true;
}

bool EvaluationGraph::on_motion_notify_event(GdkEventMotion* event) {
    if ((event->state & GDK_BUTTON1_MASK) == 0) return false;
    if (const auto index = index_at(event->x)) choose(*index);
    return true;
}

bool EvaluationGraph::on_key_press_event(GdkEventKey* event) {
    if (m_points.empty()) return false;
    const std::size_t last = m_points.size() - 1;
    const auto current = current_index();
    const std::size_t index = current.value_or(0);
    switch (event->keyval) {
        case GDK_KEY_Left:
            choose(index > 0 ? index - 1 : 0);
            return true;
        case GDK_KEY_Right:
            choose(current ? std::min(index + 1, last) : 0);
            return true;
        case GDK_KEY_Home:
            choose(0);
            return true;
        case GDK_KEY_End:
            choose(last);
            return true;
        default:
            return Gtk::DrawingArea::on_key_press_event(event);
    }
}

bool EvaluationGraph::show_tooltip(int x, bool keyboard, const Glib::RefPtr<Gtk::Tooltip>& tooltip) const {
    const auto index = keyboard ? current_index() : index_at(x);
    if (!index || m_points[*index].label.empty()) return false;
    tooltip->set_text(m_points[*index].label);
    return true;
}

/// White's share from below, up to the curve; a gap in the values is one in the area.
void EvaluationGraph::draw_area(const Cairo::RefPtr<Cairo::Context>& cr) const {
    const double bottom = y_of(0);
    for (std::size_t first = 0; first < m_points.size(); ++first) {
        if (!m_points[first].expected) continue;
        std::size_t end = first;
        cr->move_to(x_of(first), bottom);
        // A long game has several positions a pixel: of these one is enough.
        double drawn = -1;
        for (; end < m_points.size() && m_points[end].expected; ++end) {
            if (x_of(end) < drawn + 1) continue;
            drawn = x_of(end);
            cr->line_to(drawn, y_of(*m_points[end].expected));
        }
        if (end == first + 1) cr->line_to(x_of(first) + 1.5, y_of(*m_points[first].expected));
        cr->line_to(std::max(x_of(end - 1), x_of(first) + 1.5), bottom);
        cr->close_path();
        first = end;
    }
    cr->fill();
}

/// A dot, a triangle and a square, the worse the larger.
void EvaluationGraph::draw_marks(const Cairo::RefPtr<Cairo::Context>& cr) const {
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        const GraphPoint& point = m_points[i];
        if (point.mark == GraphMark::none || !point.expected) continue;
        const double x = x_of(i), y = y_of(*point.expected);
        switch (point.mark) {
            case GraphMark::none:
                break;
            case GraphMark::inaccuracy:
                cr->set_source_rgb(0.35, 0.65, 0.9);
                cr->arc(x, y, 2.5, 0, 2 * M_PI);
                break;
            case GraphMark::mistake:
                cr->set_source_rgb(0.9, 0.6, 0);
                cr->move_to(x, y - 4);
                cr->line_to(x + 4, y + 3);
                cr->line_to(x - 4, y + 3);
                cr->close_path();
                break;
            case GraphMark::blunder:
                cr->set_source_rgb(0.8, 0.1, 0.1);
                cr->rectangle(x - 3.5, y - 3.5, 7, 7);
                break;
        }
        cr->fill();
    }
}

bool EvaluationGraph::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    const auto style = get_style_context();
    const auto text = style->get_color(style->get_state());
    const auto tint = [&](double alpha) {
        cr->set_source_rgba(text.get_red(), text.get_green(), text.get_blue(), alpha);
    };
    const int width = get_allocated_width(), height = get_allocated_height();
    // Black's share is dark and White's is light, as the pieces are, whatever the theme.
    cr->rectangle(0, 0, width, height);
    cr->set_source_rgb(0.38, 0.38, 0.38);
    cr->fill();
    cr->set_source_rgb(0.93, 0.93, 0.93);
    draw_area(cr);
    cr->set_line_width(1);
    cr->set_source_rgba(0.85, 0.45, 0.1, 0.8);
    cr->move_to(0, std::floor(y_of(0.5)) + 0.5);
    cr->line_to(width, std::floor(y_of(0.5)) + 0.5);
    cr->stroke();
    if (const auto index = current_index()) {
        cr->set_source_rgb(0.1, 0.5, 0.9);
        cr->set_line_width(2);
        cr->move_to(x_of(*index), 0);
        cr->line_to(x_of(*index), height);
        cr->stroke();
    }
    draw_marks(cr);
    tint(0.4);
    cr->set_line_width(1);
    cr->rectangle(0.5, 0.5, width - 1, height - 1);
    cr->stroke();
    if (has_focus()) style->render_focus(cr, 1, 1, width - 2, height - 2);
    return true;
}

}  // namespace velmora
