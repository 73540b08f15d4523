// Greedy label placement with separating-axis tests on the turned text boxes.
#include "chart_labels.h"

#include <algorithm>
#include <cmath>

namespace tvlcli {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kAdvance = 0.62;   // width of a character in ems, digits of DejaVu Sans
constexpr double kAscent = 0.78;    // above the baseline, in ems
constexpr double kDescent = 0.22;   // below it
constexpr double kGap = 2.0;        // pixels kept free around a label
constexpr double kStep = 7.0;       // pixels between the places tried along a line

size_t glyphs(const std::string& text) {
    size_t count = 0;
    for (unsigned char c : text) count += (c & 0xC0) != 0x80;
    return count;
}

// The range of the corners projected on an axis.
void project(const std::vector<Point>& corners, Point axis, double& low, double& high) {
    low = high = corners[0].x * axis.x + corners[0].y * axis.y;
    for (const Point& c : corners) {
        const double v = c.x * axis.x + c.y * axis.y;
        low = std::min(low, v);
        high = std::max(high, v);
    }
}

}  // namespace

std::vector<Point> TextBox::corners() const {
    const double a = angle * kPi / 180.0, c = std::cos(a), s = std::sin(a);
    std::vector<Point> out;
    for (double along : {from, to})
        for (double across : {-above, below})
            out.push_back({origin.x + along * c - across * s, origin.y + along * s + across * c});
    std::swap(out[2], out[3]);  // in order around the box
    return out;
}

TextBox textBox(Point origin, double angle, const std::string& text, double size, bool anchoredAtEnd) {
    const double width = kAdvance * size * static_cast<double>(glyphs(text));
    return {origin, angle, anchoredAtEnd ? -width : 0.0, anchoredAtEnd ? 0.0 : width, kAscent * size, kDescent * size};
}

bool overlap(const TextBox& a, const TextBox& b) {
    const std::vector<Point> ca = a.corners(), cb = b.corners();
    for (const std::vector<Point>* box : {&ca, &cb})
        for (int k = 0; k < 2; ++k) {
            const Point edge{(*box)[k + 1].x - (*box)[k].x, (*box)[k + 1].y - (*box)[k].y};
            const Point axis{-edge.y, edge.x};
            double lowA, highA, lowB, highB;
            project(ca, axis, lowA, highA);
            project(cb, axis, lowB, highB);
            if (highA < lowB || highB < lowA) return false;
        }
    return true;
}

bool LabelPlacer::fits(const TextBox& box) const {
    TextBox padded = box;
    padded.from -= kGap;
    padded.to += kGap;
    padded.above += kGap;
    padded.below += kGap;
    for (const Point& c : padded.corners())
        if (!plot.contains(c)) return false;
    for (const TextBox& other : placed)
        if (overlap(padded, other)) return false;
    // A forbidden pixel inside the box: in the box's own frame, within its extent.
    const double a = box.angle * kPi / 180.0, c = std::cos(a), s = std::sin(a);
    for (const Point& p : forbidden) {
        const double dx = p.x - box.origin.x, dy = p.y - box.origin.y;
        const double along = dx * c + dy * s, across = -dx * s + dy * c;
        if (along >= padded.from && along <= padded.to && across >= -padded.above && across <= padded.below) return false;
    }
    return true;
}

namespace {

// The points with more in between, a pixel apart at most.
std::vector<Point> filledIn(const std::vector<Point>& points) {
    std::vector<Point> out;
    for (size_t k = 0; k < points.size(); ++k) {
        out.push_back(points[k]);
        if (k + 1 == points.size()) break;
        const Point a = points[k], b = points[k + 1];
        const int parts = static_cast<int>(std::hypot(b.x - a.x, b.y - a.y));
        for (int j = 1; j < parts && parts < 4000; ++j)
            out.push_back({a.x + (b.x - a.x) * j / parts, a.y + (b.y - a.y) * j / parts});
    }
    return out;
}

}  // namespace

bool LabelPlacer::tryAlong(SvgDocument& svg, const std::vector<Point>& line, const std::string& text,
                           const std::string& style, double size) {
    const std::vector<Point> inside = filledIn(line);
    // inside runs from the end where the label belongs into the plot.
    double walked = 0.0, next = 3.0;
    for (size_t k = 1; k < inside.size(); ++k) {
        walked += std::hypot(inside[k].x - inside[k - 1].x, inside[k].y - inside[k - 1].y);
        if (walked < next) continue;
        next = walked + kStep;
        // The direction of the line here, over a few pixels, pointing into the plot.
        size_t ahead = k;
        while (ahead + 1 < inside.size() && std::hypot(inside[ahead].x - inside[k].x, inside[ahead].y - inside[k].y) < 12)
            ++ahead;
        const double dx = inside[ahead].x - inside[k].x, dy = inside[ahead].y - inside[k].y;
        if (dx == 0 && dy == 0) continue;
        double angle = std::atan2(dy, dx) * 180.0 / kPi;
        bool atEnd = false;
        if (angle > 90 || angle <= -90) {  // never upside down: turn the text, anchor it at its end
            angle += angle > 0 ? -180 : 180;
            atEnd = true;
        }
        // The baseline a little above the line.
        const double a = angle * kPi / 180.0;
        const Point origin{inside[k].x + 2.5 * std::sin(a), inside[k].y - 2.5 * std::cos(a)};
        const TextBox box = textBox(origin, angle, text, size, atEnd);
        if (!fits(box)) continue;
        placed.push_back(box);
        svg.text(origin.x, origin.y, text, style, atEnd ? "end" : "start", angle);
        return true;
    }
    return false;
}

bool LabelPlacer::place(SvgDocument& svg, const std::vector<Point>& line, const std::string& text,
                        const std::string& style, double size) {
    // The stretches of the line inside the plot, each end marked when the line crosses the frame
    // there (its neighbour beyond the end is a point outside the plot) or ends on it.
    struct End {
        std::vector<Point> inward;
        bool crossesFrame;
    };
    std::vector<End> ends;
    const auto valid = [](Point p) { return std::isfinite(p.x) && std::isfinite(p.y); };
    for (size_t k = 0; k < line.size();) {
        if (!valid(line[k]) || !plot.contains(line[k])) {
            ++k;
            continue;
        }
        size_t last = k;
        while (last + 1 < line.size() && valid(line[last + 1]) && plot.contains(line[last + 1])) ++last;
        const std::vector<Point> stretch(line.begin() + k, line.begin() + last + 1);
        const auto onFrame = [&](Point p) {
            return p.x - plot.left < 1.5 || plot.right - p.x < 1.5 || p.y - plot.top < 1.5 || plot.bottom - p.y < 1.5;
        };
        const bool startCrosses = (k > 0 && valid(line[k - 1])) || onFrame(line[k]);
        const bool endCrosses = (last + 1 < line.size() && valid(line[last + 1])) || onFrame(line[last]);
        ends.push_back({stretch, startCrosses});
        ends.push_back({std::vector<Point>(stretch.rbegin(), stretch.rend()), endCrosses});
        k = last + 1;
    }
    // Where the line leaves through the frame first, the later stretches before the earlier.
    for (bool crossing : {true, false})
        for (auto end = ends.rbegin(); end != ends.rend(); ++end)
            if (end->crossesFrame == crossing && tryAlong(svg, end->inward, text, style, size)) return true;
    return false;
}

void LabelPlacer::avoid(const std::vector<Point>& pixels) {
    // Filled in, so that no label slips between two points of the line.
    for (const Point& p : filledIn(pixels))
        if (std::isfinite(p.x) && std::isfinite(p.y)) forbidden.push_back(p);
}

}  // namespace tvlcli
