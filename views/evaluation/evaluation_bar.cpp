#include "views/evaluation/evaluation_bar.h"

#include <algorithm>
#include <cmath>

#include <gtkmm/stylecontext.h>

namespace velmora {

EvaluationBar::EvaluationBar() {
    set_size_request(width, -1);
    get_accessible()->set_name("No evaluation");
}

void EvaluationBar::set_evaluation(std::optional<double> expected, const std::string& text) {
    if (expected == m_expected && text == m_text) return;
    m_expected = expected;
    m_text = expected ? text : "";
    get_accessible()->set_name(m_expected ? "Evaluation " + m_text : "No evaluation");
    set_tooltip_text(m_text);
    queue_draw();
}

void EvaluationBar::set_flipped(bool flipped) {
    if (flipped == m_flipped) return;
    m_flipped = flipped;
    queue_draw();
}

bool EvaluationBar::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    const double w = get_allocated_width(), h = get_allocated_height();
    const auto style = get_style_context();
    const auto text = style->get_color(style->get_state());
    if (m_expected) {
        const double white = std::round(h * *m_expected);
        cr->set_source_rgb(0.25, 0.25, 0.25);
        cr->rectangle(0, 0, w, h);
        cr->fill();
        cr->set_source_rgb(0.95, 0.95, 0.95);
        cr->rectangle(0, m_flipped ? 0 : h - white, w, white);
        cr->fill();
        cr->set_source_rgba(0.85, 0.45, 0.1, 0.8);
        cr->set_line_width(1);
        cr->move_to(0, std::floor(h / 2) + 0.5);
        cr->line_to(w, std::floor(h / 2) + 0.5);
        cr->stroke();
        // Read from the foot of the bar upwards, at the end of the better side.
        const bool white_better = *m_expected >= 0.5;
        auto layout = create_pango_layout(m_text);
        int text_width = 0, text_height = 0;
        layout->get_pixel_size(text_width, text_height);
        const double shade = white_better ? 0.1 : 0.95;
        cr->set_source_rgb(shade, shade, shade);
        const bool at_foot = white_better != m_flipped;
        const double fit = std::min(1.0, w / text_height);
        cr->save();
        cr->move_to((w - text_height * fit) / 2, at_foot ? h - 3 : 3 + text_width * fit);
        cr->rotate(-M_PI / 2);
        cr->scale(fit, fit);
        layout->show_in_cairo_context(cr);
        cr->restore();
    }
    cr->set_source_rgba(text.get_red(), text.get_green(), text.get_blue(), 0.4);
    cr->set_line_width(1);
    cr->rectangle(0.5, 0.5, w - 1, h - 1);
    cr->stroke();
    return true;
}

}  // namespace velmora
