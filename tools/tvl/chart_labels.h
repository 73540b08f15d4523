// Placement of the labels of a chart's lines: each label is a box along its line, tried from
// where the line leaves the plot inward, and taken at the first place where it overlaps no
// label placed before it, stays inside the plot and keeps off the lines it must not cover.
#ifndef TVL_CHART_LABELS_H
#define TVL_CHART_LABELS_H

#include <string>
#include <vector>

#include "svg.h"

namespace tvlcli {

struct Rect {
    double left, top, right, bottom;
    bool contains(Point p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
};

// A text's box: origin at the anchor point on the baseline, turned by angle degrees clockwise.
struct TextBox {
    Point origin;
    double angle;
    double from, to;    // along the baseline, from the origin
    double above, below;  // across it, upward and downward
    std::vector<Point> corners() const;
};

// The box a text of `size` pixels takes, as tvl and the chart test estimate it (DejaVu Sans).
TextBox textBox(Point origin, double angle, const std::string& text, double size, bool anchoredAtEnd);
bool overlap(const TextBox& a, const TextBox& b);

class LabelPlacer {
public:
    explicit LabelPlacer(Rect plot) : plot(plot) {}

    // Lines whose pixels no label may cover (the saturation line).
    void avoid(const std::vector<Point>& pixels);
    // A box taken by something else (a mark, the critical point's name).
    void reserve(const TextBox& box) { placed.push_back(box); }
    bool fits(const TextBox& box) const;

    // Places `text` along the line (its pixels in drawing order, NaN for gaps), inward from an
    // end where the line crosses the frame, else from an end inside the plot; writes it into
    // svg and returns true, or false where no free place was found.
    bool place(SvgDocument& svg, const std::vector<Point>& line, const std::string& text, const std::string& style,
               double size);

private:
    bool tryAlong(SvgDocument& svg, const std::vector<Point>& inside, const std::string& text, const std::string& style,
                  double size);

    Rect plot;
    std::vector<TextBox> placed;
    std::vector<Point> forbidden;
};

}  // namespace tvlcli

#endif
