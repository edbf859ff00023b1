#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtkmm/drawingarea.h>
#include <gtkmm/tooltip.h>

namespace velmora {

/// What is drawn at a point apart from its height. Told by a shape each, so that none is a colour alone.
enum class GraphMark { none, inaccuracy, mistake, blunder };

/// One position of a game on the graph.
struct GraphPoint {
    std::int32_t key = 0;            ///< by which the point is spoken of
    std::optional<double> expected;  ///< White's expected score, 0 to 1; absent leaves a gap
    std::string label;               ///< "12. Nf3, +0.35"
    GraphMark mark = GraphMark::none;

    bool operator==(const GraphPoint&) const = default;
};

/// How White stands over a game: expected score upwards, positions from left to right.
///
/// A score and no centipawns, so that +9 and +12 look alike, as they are. A click or a drag, or the arrow
/// keys while the graph has the keyboard, choose a point; the choice is only reported, and what is current is
/// told by whoever listens. The current point stands in the description that a screen reader reads, and in
/// the tooltip the one under the pointer.
class EvaluationGraph : public Gtk::DrawingArea {
public:
    EvaluationGraph();

    void set_points(std::vector<GraphPoint> points);
    /// Marks a point as the position on the board; nothing, or an unknown key, marks none.
    void set_current(std::optional<std::int32_t> key);

    sigc::signal<void, std::int32_t>& signal_chosen() { return m_chosen; }

protected:
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_motion_notify_event(GdkEventMotion* event) override;
    bool on_key_press_event(GdkEventKey* event) override;

private:
    bool show_tooltip(int x, bool keyboard, const Glib::RefPtr<Gtk::Tooltip>& tooltip) const;
    double x_of(std::size_t index) const;
    double y_of(double expected) const;
    std::optional<std::size_t> index_at(double x) const;
    std::optional<std::size_t> current_index() const;
    void choose(std::size_t index);
    void describe();
    void draw_area(const Cairo::RefPtr<Cairo::Context>& cr) const;
    void draw_marks(const Cairo::RefPtr<Cairo::Context>& cr) const;

    std::vector<GraphPoint> m_points;
    std::optional<std::int32_t> m_current;
    sigc::signal<void, std::int32_t> m_chosen;
};

}  // namespace velmora
