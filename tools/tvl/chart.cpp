// tvl chart: the h-s (Mollier), T-s and p-h charts of water and steam as SVG or PNG, drawn from
// the exports: the saturation dome from the saturated states, isobars and isotherms by (p,T),
// lines of constant dryness by (T,x), isentropes by (p,s) and lines of constant enthalpy by
// (p,h). Each family of lines is spaced to the view, and each line is named where it leaves the
// plot, at the first place along it where its label overlaps no other (chart_labels.cpp).
//
//   tvl chart hs|ts|ph --out FILE.svg|FILE.png [--point X,Y]... [--expansion p,T,p2,eff]
//                      [--x A:B] [--y A:B]
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "chart_labels.h"
#include "chart_output.h"
#include "svg.h"
#include "table_format.h"
#include "tavlib6.h"

namespace tvlcli {

namespace {

constexpr int kUsageError = 1;
constexpr int kCallFailed = 2;
constexpr double kTriple = 273.16;
constexpr double kTriplePressure = 611.657;
constexpr double kCritical = 647.096;
constexpr double kCriticalPressure = 22.064e6;
constexpr double kCelsius = 273.15;
constexpr double kTopTemperature = 2273.15;
const double kNaN = std::nan("");

// A state in SI units; NaN where the library had none.
struct State {
    double p, T, h, s;
};

State singlePhase(double p, double T) {
    return {p, T, checked(tvlHPT(p, T)), checked(tvlSPT(p, T))};
}
State saturatedLiquid(double T) {
    return {checked(tvlPST(T)), T, checked(tvlHSWT(T)), checked(tvlSSWT(T))};
}
State saturatedVapour(double T) {
    return {checked(tvlPST(T)), T, checked(tvlHSST(T)), checked(tvlSSST(T))};
}
State wet(double T, double x) {
    return {checked(tvlPST(T)), T, checked(tvlHSTX(T, x)), checked(tvlSSTX(T, x))};
}
const State kGap{kNaN, kNaN, kNaN, kNaN};

struct Axis {
    double low, high;
    bool logarithmic;
    const char* label;

    double fraction(double v) const {
        return logarithmic ? (std::log10(v) - std::log10(low)) / (std::log10(high) - std::log10(low))
                           : (v - low) / (high - low);
    }
};

enum class Kind { kHS, kTS, kPH };

// The page: A4 landscape at 96 pixels per inch, the plot inside the margins.
constexpr double kWidth = 1123, kHeight = 794;
constexpr double kLeft = 90, kRight = 1123 - 62, kTop = 78, kBottom = 794 - 70;
constexpr Rect kPlot{kLeft, kTop, kRight, kBottom};

class Chart {
public:
    Chart(Kind kind, Axis x, Axis y) : kind(kind), x(x), y(y), svg(kWidth, kHeight), labels(kPlot) {}

    Point coordinates(const State& s) const {
        switch (kind) {
        case Kind::kHS: return {s.s * 1e-3, s.h * 1e-3};
        case Kind::kTS: return {s.s * 1e-3, s.T - kCelsius};
        case Kind::kPH: return {s.h * 1e-3, s.p * 1e-6};
        }
        return {kNaN, kNaN};
    }

    // The pixel of a point in axis units; NaN where the point cannot be drawn.
    Point pixel(Point value) const {
        if (!std::isfinite(value.x) || !std::isfinite(value.y) || (y.logarithmic && value.y <= 0)) return {kNaN, kNaN};
        return {kLeft + x.fraction(value.x) * (kRight - kLeft), kBottom - y.fraction(value.y) * (kBottom - kTop)};
    }
    Point pixel(const State& s) const { return pixel(coordinates(s)); }

    static bool inside(Point p) { return kPlot.contains(p); }

    std::vector<Point> pixels(const std::vector<State>& states) const {
        std::vector<Point> out;
        for (const State& s : states) out.push_back(pixel(s));
        return out;
    }

    // Draws the pixels as a line, broken where one is missing.
    void draw(const std::vector<Point>& points, const std::string& style) {
        std::vector<Point> run;
        for (const Point& p : points) {
            if (std::isfinite(p.x) && std::isfinite(p.y)) {
                run.push_back(p);
                continue;
            }
            svg.polyline(run, style);
            run.clear();
        }
        svg.polyline(run, style);
    }

    void frame(const std::string& title) {
        svg.clipRect("plot", kLeft, kTop, kRight - kLeft, kBottom - kTop);
        grid(x, true);
        grid(y, false);
        svg.rect(kLeft, kTop, kRight - kLeft, kBottom - kTop, "fill:none;stroke:#000;stroke-width:1.2");
        svg.text((kLeft + kRight) / 2, kHeight - 22, x.label, "font-size:15px", "middle");
        svg.text(28, (kTop + kBottom) / 2, y.label, "font-size:15px", "middle", -90);
        svg.text(kLeft, 30, title, "font-size:19px;font-weight:bold");
        char version[64];
        std::snprintf(version, sizeof version, "tavlib6 %g, IAPWS-IF97", tvlGETTVLVERSION());
        svg.text(kWidth - 10, kHeight - 10, version, "font-size:11px;fill:#777", "end");
    }

    void legend(const std::vector<std::pair<std::string, std::string>>& items) {
        double left = kLeft;
        for (const auto& item : items) {
            svg.line(left, 55, left + 26, 55, item.second);
            svg.text(left + 32, 59, item.first, "font-size:12px");
            left += 44 + 6.6 * item.first.size();
        }
    }

    Kind kind;
    Axis x, y;
    SvgDocument svg;
    LabelPlacer labels;

private:
    static std::string tickText(double v) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", std::fabs(v) < 1e-12 ? 0.0 : v);
        return text;
    }

    void grid(const Axis& axis, bool horizontal) {
        std::vector<double> major, minor;
        if (axis.logarithmic) {
            for (double decade = std::pow(10.0, std::floor(std::log10(axis.low))); decade <= axis.high; decade *= 10)
                for (double m : {1.0, 2.0, 5.0}) {
                    const double v = decade * m;
                    if (v >= axis.low * (1 - 1e-9) && v <= axis.high * (1 + 1e-9)) (m == 1.0 ? major : minor).push_back(v);
                }
        } else {
            const double raw = (axis.high - axis.low) / 10;
            const double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
            const double step = magnitude * (raw / magnitude < 1.5 ? 1 : raw / magnitude < 3.5 ? 2 : raw / magnitude < 7.5 ? 5 : 10);
            for (double v = std::ceil(axis.low / step) * step; v <= axis.high + step * 1e-9; v += step) major.push_back(v);
            for (double v = std::ceil(axis.low / (step / 5)) * (step / 5); v <= axis.high; v += step / 5) minor.push_back(v);
        }
        const auto at = [&](double v) {
            return horizontal ? kLeft + axis.fraction(v) * (kRight - kLeft) : kBottom - axis.fraction(v) * (kBottom - kTop);
        };
        for (double v : minor) {
            const double c = at(v);
            if (horizontal)
                svg.line(c, kTop, c, kBottom, "stroke:#eeeeee;stroke-width:0.6");
            else
                svg.line(kLeft, c, kRight, c, "stroke:#eeeeee;stroke-width:0.6");
        }
        for (double v : major) {
            const double c = at(v);
            if (horizontal) {
                svg.line(c, kTop, c, kBottom, "stroke:#cccccc;stroke-width:0.8");
                svg.line(c, kBottom, c, kBottom + 6, "stroke:#000;stroke-width:1");
                svg.text(c, kBottom + 21, tickText(v), "font-size:13px", "middle");
            } else {
                svg.line(kLeft, c, kRight, c, "stroke:#cccccc;stroke-width:0.8");
                svg.line(kLeft - 6, c, kLeft, c, "stroke:#000;stroke-width:1");
                svg.text(kLeft - 10, c + 4.5, tickText(v), "font-size:13px", "end");
            }
        }
        if (axis.logarithmic && !horizontal)
            for (double v : minor) svg.text(kLeft - 10, at(v) + 4, tickText(v), "font-size:10px;fill:#555", "end");
    }
};

// Temperatures from the triple point to the critical point, closer together near the top,
// where the dome turns.
std::vector<double> saturationTemperatures(int count) {
    std::vector<double> temperatures;
    for (int k = 0; k <= count; ++k) {
        const double u = 1.0 - static_cast<double>(k) / count;
        temperatures.push_back(kCritical - (kCritical - kTriple) * u * u);
    }
    return temperatures;
}

std::vector<double> pressures(double low, double high, int count) {
    std::vector<double> values;
    for (int k = 0; k <= count; ++k) values.push_back(low * std::pow(high / low, static_cast<double>(k) / count));
    return values;
}

std::vector<State> dome() {
    std::vector<State> states;
    const std::vector<double> temperatures = saturationTemperatures(200);
    for (double T : temperatures) states.push_back(saturatedLiquid(T));
    for (auto T = temperatures.rbegin(); T != temperatures.rend(); ++T) states.push_back(saturatedVapour(*T));
    return states;
}

// An isobar from the triple point temperature to the top of the formulation, across the
// saturation line.
std::vector<State> isobar(double p) {
    std::vector<State> states;
    const double saturation = p < kCriticalPressure ? checked(tvlTSP(p)) : kNaN;
    bool crossed = std::isnan(saturation);
    for (int k = 0; k <= 800; ++k) {
        const double T = kTriple + (kTopTemperature - kTriple) * k / 800.0;
        if (!crossed && T >= saturation) {
            states.push_back(saturatedLiquid(saturation));
            states.push_back(saturatedVapour(saturation));
            crossed = true;
        }
        if (!(std::fabs(T - saturation) <= 1e-6)) states.push_back(singlePhase(p, T));
    }
    return states;
}

// An isotherm over pressure, from the triple point pressure to 100 MPa; wetPart adds the stretch
// across the wet area (a line of the p-h chart; on the h-s chart the isobar draws it).
std::vector<State> isotherm(double T, bool wetPart) {
    std::vector<State> states;
    const double saturation = T < kCritical ? checked(tvlPST(T)) : kNaN;
    bool crossed = std::isnan(saturation);
    for (double p : pressures(kTriplePressure, 1e8, 500)) {
        if (!crossed && p >= saturation) {
            states.push_back(saturatedVapour(T));
            if (!wetPart) states.push_back(kGap);
            states.push_back(saturatedLiquid(T));
            crossed = true;
        }
        states.push_back(singlePhase(p, T));
    }
    return states;
}

std::vector<State> dryness(double x) {
    std::vector<State> states;
    for (double T : saturationTemperatures(150)) states.push_back(wet(T, x));
    return states;
}

// Isentropes by (p,s) for the p-h chart, lines of constant enthalpy by (p,h) for the T-s chart.
std::vector<State> isentrope(double s) {
    std::vector<State> states;
    for (double p : pressures(kTriplePressure, 1e8, 400)) states.push_back({p, checked(tvlTPS(p, s)), checked(tvlHPS(p, s)), s});
    return states;
}
std::vector<State> isenthalp(double h) {
    std::vector<State> states;
    for (double p : pressures(kTriplePressure, 1e8, 400)) states.push_back({p, checked(tvlTPH(p, h)), h, checked(tvlSPH(p, h))});
    return states;
}

std::string format(const char* pattern, double value) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

const char* kDomeStyle = "stroke:#000000;stroke-width:2.4";
const char* kIsobarStyle = "stroke:#1f4e9c;stroke-width:0.9";
const char* kIsothermStyle = "stroke:#c0392b;stroke-width:0.9";
const char* kDrynessStyle = "stroke:#2e8b57;stroke-width:0.8;stroke-dasharray:5,3";
const char* kThirdStyle = "stroke:#8e44ad;stroke-width:0.7;stroke-dasharray:2,2";
// Labels carry a white halo so that they read over the lines they cross.
const char* kHalo = ";paint-order:stroke;stroke:#ffffff;stroke-width:3px;stroke-linejoin:round";

// A family of lines, one per value, in levels from coarse to fine: the coarsest level that puts
// `wanted` lines into the view is drawn, so that a zoomed view gets closer lines.
struct LineFamily {
    const char* id;
    const char* style;
    const char* labelColour;
    double labelSize;
    const char* labelPattern;  // printf pattern of the value
    std::vector<std::vector<double>> levels;
    int wanted;
    std::function<std::vector<State>(double)> states;
};

// Values from `low` to `high` in steps of `step`.
std::vector<double> steps(double low, double high, double step) {
    std::vector<double> values;
    for (int k = 0; low + k * step <= high + step * 1e-9; ++k) values.push_back(low + k * step);
    return values;
}

// Pressures in MPa: per decade the given multipliers, from the triple point to 100 MPa.
std::vector<double> isobarLevel(const std::vector<double>& multipliers) {
    std::vector<double> values;
    for (int exponent = -4; exponent <= 2; ++exponent)
        for (double m : multipliers) {
            const double p = std::round(std::pow(10.0, exponent) * m * 1e6) / 1e6;
            if (p * 1e6 >= kTriplePressure && p <= 100) values.push_back(p);
        }
    return values;
}

struct Drawn {
    std::vector<Point> pixels;
    std::string label;
};

// Picks the level of a family for this view and gives its lines' pixels.
std::vector<Drawn> linesInView(const Chart& chart, const LineFamily& family) {
    std::map<double, std::vector<Point>> computed;
    std::vector<Drawn> lines;
    for (const std::vector<double>& level : family.levels) {
        lines.clear();
        int visible = 0;
        for (double value : level) {
            auto found = computed.find(value);
            if (found == computed.end()) found = computed.emplace(value, chart.pixels(family.states(value))).first;
            int inside = 0;
            for (const Point& p : found->second) inside += Chart::inside(p);
            if (inside < 2) continue;
            ++visible;
            lines.push_back({found->second, format(family.labelPattern, value)});
        }
        if (visible >= family.wanted) break;
    }
    return lines;
}

std::vector<LineFamily> families(Kind kind) {
    std::vector<LineFamily> list;
    const bool ph = kind == Kind::kPH;
    if (kind != Kind::kPH)
        list.push_back({"isobars", kIsobarStyle, "#1f4e9c", 11, "%g MPa",
                        {isobarLevel({1}), isobarLevel({1, 2, 5}), isobarLevel({1, 1.5, 2, 3, 5, 7}),
                         isobarLevel({1, 1.2, 1.5, 2, 2.5, 3, 4, 5, 6, 8})},
                        10, [](double p) { return isobar(p * 1e6); }});
    if (kind != Kind::kTS)
        list.push_back({"isotherms", kIsothermStyle, "#c0392b", 11, "%g \xC2\xB0" "C",
                        {steps(100, 2000, 100), steps(50, 2000, 50), steps(25, 2000, 25), steps(10, 2000, 10),
                         steps(5, 2000, 5), steps(1, 2000, 1)},
                        12, [ph](double t) { return isotherm(t + kCelsius, ph); }});
    list.push_back({"dryness", kDrynessStyle, "#2e8b57", 10, "x=%g",
                    {steps(0.1, 0.9, 0.1), steps(0.05, 0.95, 0.05), steps(0.02, 0.98, 0.02)}, 5, dryness});
    if (kind == Kind::kPH)
        list.push_back({"isentropes", kThirdStyle, "#8e44ad", 10, "s=%g",
                        {steps(1, 12, 1), steps(0.5, 12, 0.5), steps(0.2, 12, 0.2), steps(0.1, 12, 0.1)}, 8,
                        [](double s) { return isentrope(s * 1e3); }});
    if (kind == Kind::kTS)
        list.push_back({"isenthalps", kThirdStyle, "#8e44ad", 10, "h=%g",
                        {steps(500, 7000, 500), steps(250, 7000, 250), steps(100, 7000, 100), steps(50, 7000, 50)}, 8,
                        [](double h) { return isenthalp(h * 1e3); }});
    return list;
}

// Names the critical point beside its mark, where the name covers neither the dome nor a label.
void markCriticalPoint(Chart& chart) {
    const Point c = chart.pixel(saturatedLiquid(kCritical));
    if (!Chart::inside(c)) return;
    chart.svg.circle(c.x, c.y, 3.5, "fill:#000");
    const std::string name = "critical point";
    for (const Point offset : {Point{-8, -8}, Point{8, -8}, Point{-10, 14}, Point{10, 14}, Point{-8, -22}, Point{8, -22}}) {
        const bool left = offset.x < 0;
        const TextBox box = textBox({c.x + offset.x, c.y + offset.y}, 0.0, name, 11, left);
        if (!chart.labels.fits(box)) continue;
        chart.labels.reserve(box);
        chart.svg.text(c.x + offset.x, c.y + offset.y, name, std::string("font-size:11px") + kHalo, left ? "end" : "start");
        return;
    }
}

// Draws the families of lines and their labels; returns the labels that found no free place.
std::string drawLines(Chart& chart) {
    chart.svg.beginGroup("clip-path=\"url(#plot)\"");
    std::vector<std::pair<const LineFamily*, std::vector<Drawn>>> drawn;
    const std::vector<LineFamily> list = families(chart.kind);
    for (const LineFamily& family : list) {
        drawn.push_back({&family, linesInView(chart, family)});
        chart.svg.beginGroup(std::string("id=\"") + family.id + "\"");
        for (const Drawn& line : drawn.back().second) chart.draw(line.pixels, family.style);
        chart.svg.endGroup();
    }
    const std::vector<Point> saturation = chart.pixels(dome());
    chart.svg.beginGroup("id=\"saturation-line\"");
    chart.draw(saturation, kDomeStyle);
    chart.svg.endGroup();
    chart.svg.endGroup();

    chart.labels.avoid(saturation);
    chart.svg.beginGroup("id=\"labels\"");
    markCriticalPoint(chart);
    std::string unlabelled;
    for (const auto& [family, lines] : drawn) {
        // Where a line has no room for its label, a smaller one is tried.
        for (const Drawn& line : lines) {
            bool placed = false;
            for (double size = family->labelSize; !placed && size >= family->labelSize - 2; size -= 1) {
                const std::string style = format("font-size:%gpx;fill:", size) + family->labelColour + kHalo;
                placed = chart.labels.place(chart.svg, line.pixels, line.label, style, size);
            }
            if (!placed) unlabelled += (unlabelled.empty() ? "" : ", ") + line.label;
        }
    }
    chart.svg.endGroup();
    return unlabelled;
}

// A marked state with its name; the name's box is kept free of line labels.
void mark(Chart& chart, Point p, const std::string& name, const char* colour) {
    if (!Chart::inside(p)) return;
    chart.svg.circle(p.x, p.y, 4.5, std::string("fill:") + colour + ";stroke:#fff;stroke-width:1");
    chart.svg.text(p.x + 8, p.y - 6, name, std::string("font-size:14px;font-weight:bold;fill:") + colour + kHalo);
    chart.labels.reserve(textBox({p.x + 8, p.y - 6}, 0.0, name, 14, false));
}

// A turbine expansion from (p,T) to p2 with an efficiency: the line from inlet to outlet, the
// isentropic drop beside it, and the two isobars drawn stronger.
bool drawExpansion(Chart& chart, const std::vector<double>& e) {
    const double p = e[0], T = e[1], p2 = e[2], eff = e[3];
    const State inlet = singlePhase(p, T);
    const State outlet{p2, checked(tvlTEXPANSIONPTPEFF(p, T, p2, eff)), checked(tvlHEXPANSIONPTPEFF(p, T, p2, eff)),
                       checked(tvlSEXPANSIONPTPEFF(p, T, p2, eff))};
    const State ideal{p2, checked(tvlTEXPANSIONPTPEFF(p, T, p2, 1.0)), checked(tvlHEXPANSIONPTPEFF(p, T, p2, 1.0)),
                      checked(tvlSEXPANSIONPTPEFF(p, T, p2, 1.0))};
    if (std::isnan(inlet.h + inlet.s + outlet.h + outlet.s + outlet.T)) return false;
    chart.svg.beginGroup("id=\"expansion\" clip-path=\"url(#plot)\"");
    if (chart.kind != Kind::kPH) {
        chart.draw(chart.pixels(isobar(p)), "stroke:#1f4e9c;stroke-width:2");
        chart.draw(chart.pixels(isobar(p2)), "stroke:#1f4e9c;stroke-width:2");
    }
    chart.draw(chart.pixels({inlet, ideal}), "stroke:#444;stroke-width:1.6;stroke-dasharray:6,4");
    chart.draw(chart.pixels({inlet, outlet}), "stroke:#d35400;stroke-width:3");
    chart.labels.avoid(chart.pixels({ideal, inlet, outlet}));
    chart.svg.endGroup();
    mark(chart, chart.pixel(inlet), "1", "#d35400");
    mark(chart, chart.pixel(outlet), "2", "#d35400");
    mark(chart, chart.pixel(ideal), "2s", "#444");
    const double x = checked(tvlXEXPANSIONPTPEFF(p, T, p2, eff));
    std::string caption = format("Expansion %g MPa", p * 1e-6) + format(", %g \xC2\xB0" "C", T - kCelsius) +
                          format(" to %g MPa", p2 * 1e-6) + format(", efficiency %g", eff) +
                          format(": h1 - h2 = %.1f kJ/kg", (inlet.h - outlet.h) * 1e-3) +
                          (std::isnan(x) || x >= 1 ? "" : format(", x2 = %.4f", x));
    chart.svg.text(kRight, 71, caption, "font-size:12px;fill:#d35400", "end");
    return true;
}

bool parseList(const char* text, size_t count, std::vector<double>& values) {
    values.clear();
    return std::strchr(text, ':') == nullptr && parseNumberList(text, values) && values.size() == count;
}

// FROM:TO, two finite numbers.
bool parseRange(const char* text, std::vector<double>& values) {
    const char* colon = std::strchr(text, ':');
    values.clear();
    if (colon == nullptr || std::strchr(colon + 1, ':') != nullptr) return false;
    return parseNumberList(std::string(text, colon), values) && parseNumberList(colon + 1, values) && values.size() == 2;
}

void printUsage() {
    std::fprintf(stderr,
                 "usage: tvl chart hs|ts|ph --out FILE.svg|FILE.png [--point X,Y]... [--expansion p,T,p2,eff]\n"
                 "                 [--x FROM:TO] [--y FROM:TO]\n"
                 "Draws the h-s (Mollier), T-s or p-h chart of water and steam: the saturation line, isobars,\n"
                 "isotherms, lines of constant dryness (and isentropes on p-h, lines of constant enthalpy on\n"
                 "T-s), spaced to the view and each named where it leaves the plot. The axes are s [kJ/(kg K)]\n"
                 "and h [kJ/kg] (hs), s and t [degrees C] (ts), h and p [MPa] (ph); --x and --y set their ranges\n"
                 "and --point marks a state by its X,Y in those units (hs: s,h). --expansion draws a turbine\n"
                 "expansion from p (Pa), T (K) to p2 (Pa) with efficiency eff. A FILE ending in .png is rendered\n"
                 "by rsvg-convert (Debian package librsvg2-bin); --out - writes the SVG to standard output.\n");
}

}  // namespace

int runChart(int argc, char** argv) {
    if (argc < 1 || std::strcmp(argv[0], "--help") == 0 || std::strcmp(argv[0], "-h") == 0) {
        printUsage();
        return argc < 1 ? kUsageError : 0;
    }
    const std::string name = argv[0];
    Kind kind;
    Axis x{0, 10, false, "s [kJ/(kg K)]"}, y{0, 4500, false, "h [kJ/kg]"};
    std::string title;
    if (name == "hs") {
        // The part an engineer reads a Mollier chart for: steam, the top of the dome, wet steam.
        kind = Kind::kHS;
        x = {3, 10, false, "s [kJ/(kg K)]"};
        y = {1000, 4200, false, "h [kJ/kg]"};
        title = "h-s (Mollier) chart of water and steam";
    } else if (name == "ts") {
        kind = Kind::kTS;
        y = {0, 800, false, "t [\xC2\xB0" "C]"};
        title = "T-s chart of water and steam";
    } else if (name == "ph") {
        kind = Kind::kPH;
        x = {0, 4500, false, "h [kJ/kg]"};
        y = {0.001, 100, true, "p [MPa]"};
        title = "p-h chart of water and steam";
    } else {
        printUsage();
        return kUsageError;
    }

    std::string out;
    std::vector<std::vector<double>> points;
    std::vector<double> expansion, values;
    for (int k = 1; k < argc; ++k) {
        const std::string option = argv[k];
        if (k + 1 >= argc) {
            std::fprintf(stderr, "tvl chart: %s needs a value\n", option.c_str());
            return kUsageError;
        }
        const char* value = argv[++k];
        if (option == "--out") {
            out = value;
        } else if (option == "--point" && parseList(value, 2, values)) {
            points.push_back(values);
        } else if (option == "--expansion" && parseList(value, 4, values)) {
            expansion = values;
        } else if ((option == "--x" || option == "--y") && parseRange(value, values)) {
            Axis& axis = option == "--x" ? x : y;
            const double low = values[0], high = values[1];
            if (!(high > low) || (axis.logarithmic && low <= 0)) {
                std::fprintf(stderr, "tvl chart: %s needs FROM below TO\n", option.c_str());
                return kUsageError;
            }
            axis.low = low;
            axis.high = high;
        } else {
            std::fprintf(stderr, "tvl chart: cannot read %s %s\n", option.c_str(), value);
            return kUsageError;
        }
    }
    if (out.empty()) {
        std::fprintf(stderr, "tvl chart: give the file to write with --out FILE.svg or FILE.png\n");
        return kUsageError;
    }

    Chart chart(kind, x, y);
    chart.frame(title);
    std::vector<std::pair<std::string, std::string>> legend{{"saturation line", kDomeStyle},
                                                            {"dryness x", kDrynessStyle}};
    if (kind != Kind::kPH) legend.push_back({"isobars [MPa]", kIsobarStyle});
    if (kind != Kind::kTS) legend.push_back({"isotherms [\xC2\xB0" "C]", kIsothermStyle});
    if (kind == Kind::kPH) legend.push_back({"isentropes [kJ/(kg K)]", kThirdStyle});
    if (kind == Kind::kTS) legend.push_back({"constant h [kJ/kg]", kThirdStyle});
    chart.legend(legend);

    // Marks first, so that the labels of the lines keep clear of them.
    int status = 0;
    if (!expansion.empty() && !drawExpansion(chart, expansion)) {
        std::fprintf(stderr, "tvl chart: no expansion from p=%g Pa, T=%g K to p2=%g Pa with efficiency %g\n",
                     expansion[0], expansion[1], expansion[2], expansion[3]);
        status = kCallFailed;
    }
    char letter = 'A';
    for (const auto& point : points) {
        const Point pixel = chart.pixel(Point{point[0], point[1]});
        const std::string label(1, letter++);
        if (!Chart::inside(pixel))
            std::fprintf(stderr, "tvl chart: warning: point %s (%g, %g) lies outside the view and is not drawn\n",
                         label.c_str(), point[0], point[1]);
        mark(chart, pixel, label, "#000000");
    }
    const std::string unlabelled = drawLines(chart);
    if (!unlabelled.empty()) chart.svg.comment("lines without a free place for their label: " + unlabelled);

    if (!writeChart(chart.svg.str(), out)) return kUsageError;
    return status;
}

}  // namespace tvlcli
