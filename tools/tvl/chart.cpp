// tvl chart: the h-s (Mollier), T-s and p-h charts of water and steam as SVG, drawn from the
// exports: the saturation dome from the saturated states, isobars and isotherms by (p,T), lines
// of constant dryness by (T,x), isentropes by (p,s) and lines of constant enthalpy by (p,h).
//
//   tvl chart hs|ts|ph --out FILE.svg [--point h,s]... [--expansion p,T,p2,eff] [--x A:B] [--y A:B]
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <strings.h>
#include <vector>

#include "export_table.h"
#include "svg.h"
#include "table_format.h"
#include "tavlib6.h"

namespace tvlcli {

namespace {

constexpr int kUsageError = 1;
constexpr int kCallFailed = 2;
constexpr double kTriple = 273.16;
constexpr double kCritical = 647.096;
constexpr double kCriticalPressure = 22.064e6;
constexpr double kCelsius = 273.15;
constexpr double kTopTemperature = 1073.15;
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

// An export by name from the generated table, for exports that a build may not have yet.
double callByName(const char* name, double a, double b) {
    for (int k = 0; k < kExportCount; ++k) {
        if (strcasecmp(kExports[k].name, name) != 0 || std::strcmp(kExports[k].kinds, "dd") != 0) continue;
        CallArgs args;
        args.numbers[0] = a;
        args.numbers[1] = b;
        return checked(kExports[k].call(args).number);
    }
    return kNaN;
}

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

class Chart {
public:
    Chart(Kind kind, Axis x, Axis y) : kind(kind), x(x), y(y), svg(kWidth, kHeight) {}

    Point coordinates(const State& s) const {
        switch (kind) {
        case Kind::kHS: return {s.s * 1e-3, s.h * 1e-3};
        case Kind::kTS: return {s.s * 1e-3, s.T - kCelsius};
        case Kind::kPH: return {s.h * 1e-3, s.p * 1e-6};
        }
        return {kNaN, kNaN};
    }

    Point pixel(Point value) const {
        return {kLeft + x.fraction(value.x) * (kRight - kLeft), kBottom - y.fraction(value.y) * (kBottom - kTop)};
    }

    bool inside(Point p) const {
        return p.x >= kLeft && p.x <= kRight && p.y >= kTop && p.y <= kBottom;
    }

    // Draws the states as a line, broken where a state is missing; returns the pixels drawn.
    std::vector<Point> curve(const std::vector<State>& states, const std::string& style) {
        std::vector<Point> all, run;
        const auto flush = [&] {
            svg.polyline(run, style);
            run.clear();
        };
        for (const State& state : states) {
            const Point value = coordinates(state);
            const bool valid = std::isfinite(value.x) && std::isfinite(value.y) && (!y.logarithmic || value.y > 0);
            if (!valid) {
                flush();
                continue;
            }
            run.push_back(pixel(value));
            all.push_back(run.back());
        }
        flush();
        return all;
    }

    // A label beside the first (or last) point of a line inside the plot, along the line, or
    // `skip` of the visible points further in.
    void label(const std::vector<Point>& all, const std::string& text, const std::string& style, bool atEnd,
               double skip = 0.0) {
        std::vector<Point> points;
        for (const Point& p : all)
            if (inside(p)) points.push_back(p);
        const int n = static_cast<int>(points.size());
        for (int step = static_cast<int>(skip * n); step < n; ++step) {
            const int k = atEnd ? n - 1 - step : step;
            if (!inside(points[k])) continue;
            // The text runs from the point into the line: toward earlier points for a label at
            // the end, later ones at the start; upside-down text is turned and anchored at its end.
            const int other = atEnd ? std::max(0, k - 3) : std::min(n - 1, k + 3);
            const double dx = points[other].x - points[k].x, dy = points[other].y - points[k].y;
            double angle = (dx == 0 && dy == 0) ? 0.0 : std::atan2(dy, dx) * 180.0 / M_PI;
            const char* anchor = "start";
            if (angle > 90 || angle <= -90) {
                angle += angle > 0 ? -180 : 180;
                anchor = "end";
            }
            // A line that leaves through the right side is named in the margin beside it.
            if (points[k].x >= kRight - 1.0 && !atEnd) {
                svg.text(kRight + 4, points[k].y + 4, text, style, "start");
                return;
            }
            const double nudge = 3.0;
            svg.text(points[k].x + nudge, points[k].y - nudge, text, style, anchor, angle);
            return;
        }
    }

    void frame(const std::string& title) {
        svg.clipRect("plot", kLeft, kTop, kRight - kLeft, kBottom - kTop);
        grid(x, true);
        grid(y, false);
        svg.rect(kLeft, kTop, kRight - kLeft, kBottom - kTop, "fill:none;stroke:#000;stroke-width:1.2");
        svg.text((kLeft + kRight) / 2, kHeight - 22, x.label, "font-size:15px", "middle");
        svg.text(28, (kTop + kBottom) / 2, y.label, "font-size:15px", "middle", -90);
        svg.text(kLeft, 30, title, "font-size:19px;font-weight:bold");
        svg.text(kWidth - 10, kHeight - 10, "tavlib6 " + version() + ", IAPWS-IF97", "font-size:11px;fill:#777", "end");
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

private:
    static std::string version() {
        char text[32];
        std::snprintf(text, sizeof text, "%g", tvlGETTVLVERSION());
        return text;
    }

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
        if (axis.logarithmic)
            for (double v : minor) {
                const double c = at(v);
                if (!horizontal) svg.text(kLeft - 10, c + 4, tickText(v), "font-size:10px;fill:#555", "end");
            }
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
    const std::vector<double> temperatures = saturationTemperatures(160);
    for (double T : temperatures) states.push_back(saturatedLiquid(T));
    for (auto T = temperatures.rbegin(); T != temperatures.rend(); ++T) states.push_back(saturatedVapour(*T));
    return states;
}

// An isobar from the triple point temperature to 800 C, across the saturation line.
std::vector<State> isobar(double p) {
    std::vector<State> states;
    const double saturation = p < kCriticalPressure ? checked(tvlTSP(p)) : kNaN;
    bool crossed = std::isnan(saturation);
    for (int k = 0; k <= 400; ++k) {
        const double T = kTriple + (kTopTemperature - kTriple) * k / 400.0;
        if (!crossed && T >= saturation) {
            states.push_back(saturatedLiquid(saturation));
            states.push_back(saturatedVapour(saturation));
            crossed = true;
        }
        if (std::fabs(T - saturation) > 1e-6) states.push_back(singlePhase(p, T));
    }
    return states;
}

// An isotherm over pressure, from the triple point pressure to 100 MPa; wetPart adds the stretch
// across the wet area (a line of the p-h chart; on the h-s chart the isobar draws it).
std::vector<State> isotherm(double T, bool wetPart) {
    std::vector<State> states;
    const double saturation = T < kCritical ? checked(tvlPST(T)) : kNaN;
    bool crossed = std::isnan(saturation);
    for (double p : pressures(611.657, 1e8, 400)) {
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
    for (double T : saturationTemperatures(120)) states.push_back(wet(T, x));
    return states;
}

// Isentropes by (p,s) for the p-h chart, lines of constant enthalpy by (p,h) for the T-s chart.
std::vector<State> isentrope(double s) {
    std::vector<State> states;
    for (double p : pressures(611.657, 1e8, 300))
        states.push_back({p, checked(tvlTPS(p, s)), checked(tvlHPS(p, s)), s});
    return states;
}
std::vector<State> isenthalp(double h) {
    std::vector<State> states;
    for (double p : pressures(611.657, 1e8, 300))
        states.push_back({p, checked(tvlTPH(p, h)), h, checked(tvlSPH(p, h))});
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

void drawLines(Chart& chart) {
    const std::vector<double> isobars{0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100};
    // Each family of lines is a group named by its id, clipped to the plot.
    chart.svg.beginGroup("clip-path=\"url(#plot)\"");
    chart.svg.beginGroup("id=\"dryness\"");
    std::vector<std::pair<std::vector<Point>, std::string>> labels;
    for (int k = 1; k <= 9; ++k) {
        const double x = k / 10.0;
        labels.push_back({chart.curve(dryness(x), kDrynessStyle), format("x=%.1f", x)});
    }
    chart.svg.endGroup();
    if (chart.kind == Kind::kPH) {
        chart.svg.beginGroup("id=\"isentropes\"");
        for (int s = 1; s <= 10; ++s)
            labels.push_back({chart.curve(isentrope(s * 1000.0), kThirdStyle), format("s=%g", s)});
        chart.svg.endGroup();
    }
    if (chart.kind == Kind::kTS) {
        chart.svg.beginGroup("id=\"isenthalps\"");
        for (int h = 500; h <= 4000; h += 500)
            labels.push_back({chart.curve(isenthalp(h * 1000.0), kThirdStyle), format("h=%g", h)});
        chart.svg.endGroup();
    }
    if (chart.kind != Kind::kPH) {
        chart.svg.beginGroup("id=\"isobars\"");
        for (double p : isobars) labels.push_back({chart.curve(isobar(p * 1e6), kIsobarStyle), format("%g MPa", p)});
        chart.svg.endGroup();
    }
    if (chart.kind != Kind::kTS) {
        chart.svg.beginGroup("id=\"isotherms\"");
        for (int t = 0; t <= 800; t += 50) {
            if (t == 0) continue;
            const bool labelled = t % 100 == 0 || chart.kind == Kind::kPH;
            const auto points = chart.curve(isotherm(t + kCelsius, chart.kind == Kind::kPH), kIsothermStyle);
            if (labelled) labels.push_back({points, format("%g \xC2\xB0" "C", t)});
        }
        chart.svg.endGroup();
    }
    chart.svg.beginGroup("id=\"saturation-line\"");
    chart.curve(dome(), kDomeStyle);
    chart.svg.endGroup();
    chart.svg.endGroup();

    // Labels last, over every line; the style names the family by colour.
    for (const auto& [points, text] : labels) {
        const bool dry = text.rfind("x=", 0) == 0;
        const bool third = text.rfind("s=", 0) == 0 || text.rfind("h=", 0) == 0;
        const bool isotherm = text.find("C") != std::string::npos;
        const char* style = dry ? "font-size:10px;fill:#2e8b57" : third ? "font-size:10px;fill:#8e44ad"
                          : isotherm ? "font-size:11px;fill:#c0392b" : "font-size:11px;fill:#1f4e9c";
        // Isobars are named where they leave the chart at the top; the others at their start.
        const bool atEnd = !(dry || isotherm) || (isotherm && chart.kind == Kind::kPH);
        chart.label(points, text, style, atEnd, dry ? 0.3 : 0.0);
    }
    const State critical = saturatedLiquid(kCritical);
    const Point c = chart.pixel(chart.coordinates(critical));
    if (chart.inside(c)) {
        chart.svg.circle(c.x, c.y, 3.5, "fill:#000");
        chart.svg.text(c.x + 6, c.y - 6, "critical point", "font-size:11px");
    }
}

void mark(Chart& chart, const State& state, const std::string& name, const char* colour) {
    const Point p = chart.pixel(chart.coordinates(state));
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !chart.inside(p)) return;
    chart.svg.circle(p.x, p.y, 4.5, std::string("fill:") + colour + ";stroke:#fff;stroke-width:1");
    chart.svg.text(p.x + 8, p.y - 6, name, std::string("font-size:14px;font-weight:bold;fill:") + colour);
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
        chart.curve(isobar(p), "stroke:#1f4e9c;stroke-width:2");
        chart.curve(isobar(p2), "stroke:#1f4e9c;stroke-width:2");
    }
    chart.curve({inlet, ideal}, "stroke:#444;stroke-width:1.6;stroke-dasharray:6,4");
    chart.curve({inlet, outlet}, "stroke:#d35400;stroke-width:3");
    chart.svg.endGroup();
    mark(chart, inlet, "1", "#d35400");
    mark(chart, outlet, "2", "#d35400");
    mark(chart, ideal, "2s", "#444");
    const double x = checked(tvlXEXPANSIONPTPEFF(p, T, p2, eff));
    std::string caption = format("Expansion %g MPa", p * 1e-6) + format(", %g \xC2\xB0" "C", T - kCelsius) +
                          format(" to %g MPa", p2 * 1e-6) + format(", efficiency %g", eff) +
                          format(": h1 - h2 = %.1f kJ/kg", (inlet.h - outlet.h) * 1e-3) +
                          (std::isnan(x) || x >= 1 ? "" : format(", x2 = %.4f", x));
    chart.svg.text(kRight, 30, caption, "font-size:12px;fill:#d35400", "end");
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
                 "usage: tvl chart hs|ts|ph --out FILE.svg [--point h,s]... [--expansion p,T,p2,eff]\n"
                 "                 [--x FROM:TO] [--y FROM:TO]\n"
                 "Draws the h-s (Mollier), T-s or p-h chart of water and steam as SVG: the saturation line,\n"
                 "isobars, isotherms, lines of constant dryness (and isentropes on p-h, lines of constant\n"
                 "enthalpy on T-s). Axes in kJ/kg, kJ/(kg K), degrees Celsius and MPa; --x and --y set their\n"
                 "ranges in those units. --point marks a state given by h in J/kg and s in J/(kg K);\n"
                 "--expansion draws a turbine expansion from p (Pa), T (K) to p2 (Pa) with efficiency eff.\n"
                 "--out - writes the SVG to standard output.\n");
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
        std::fprintf(stderr, "tvl chart: give the file to write with --out FILE.svg\n");
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
    drawLines(chart);

    int status = 0;
    if (!expansion.empty() && !drawExpansion(chart, expansion)) {
        std::fprintf(stderr, "tvl chart: no expansion from p=%g Pa, T=%g K to p2=%g Pa with efficiency %g\n",
                     expansion[0], expansion[1], expansion[2], expansion[3]);
        status = kCallFailed;
    }
    char letter = 'A';
    for (const auto& point : points) {
        const double h = point[0], s = point[1];
        State state{kNaN, kNaN, h, s};
        if (kind == Kind::kTS) state.T = callByName("THS", h, s);
        if (kind == Kind::kPH) state.p = callByName("PHS", h, s);
        const Point pixel = chart.pixel(chart.coordinates(state));
        if (!std::isfinite(pixel.x) || !std::isfinite(pixel.y)) {
            std::fprintf(stderr, "tvl chart: the state h=%g J/kg, s=%g J/(kg K) cannot be placed on this chart\n", h, s);
            status = kCallFailed;
            continue;
        }
        mark(chart, state, std::string(1, letter++), "#000000");
    }

    if (out == "-") {
        std::fputs(chart.svg.str().c_str(), stdout);
    } else if (!chart.svg.write(out)) {
        std::fprintf(stderr, "tvl chart: cannot write %s\n", out.c_str());
        return kUsageError;
    }
    return status;
}

}  // namespace tvlcli
