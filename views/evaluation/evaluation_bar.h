#pragma once

#include <optional>
#include <string>

#include <gtkmm/drawingarea.h>

namespace velmora {

/// A bar at the board's edge that shows who stands better: White's share is light and grows from White's side
/// of the board. Without an evaluation it is an empty frame.
class EvaluationBar : public Gtk::DrawingArea {
public:
    static constexpr int width = 16;  ///< pixels

    EvaluationBar();

    /// @param expected  White's expected score, 0 to 1
    /// @param text      the evaluation in short, which is also what a screen reader reads
    void set_evaluation(std::optional<double> expected, const std::string& text);
    /// Whether Black's side is below, as on a turned board.
    void set_flipped(bool flipped);

protected:
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;

private:
    std::optional<double> m_expected;
    std::string m_text;
    bool m_flipped = false;
};

}  // namespace velmora
