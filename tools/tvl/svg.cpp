// SVG output of tvl chart: plain text, numbers with two decimals, no dependency.
#include "svg.h"

#include <cmath>
#include <cstdio>

namespace tvlcli {

namespace {

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", std::fabs(value) < 0.005 ? 0.0 : value);
    return text;
}

}  // namespace

std::string escapeXml(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&apos;"; break;
        default: out += c;
        }
    }
    return out;
}

SvgDocument::SvgDocument(double width, double height) : width(width), height(height) {}

void SvgDocument::line(double x1, double y1, double x2, double y2, const std::string& style) {
    body += "<line x1=\"" + number(x1) + "\" y1=\"" + number(y1) + "\" x2=\"" + number(x2) + "\" y2=\"" + number(y2) +
            "\" style=\"" + escapeXml(style) + "\"/>\n";
}

void SvgDocument::polyline(const std::vector<Point>& points, const std::string& style) {
    if (points.size() < 2) return;
    body += "<polyline fill=\"none\" style=\"" + escapeXml(style) + "\" points=\"";
    for (size_t k = 0; k < points.size(); ++k) body += (k ? " " : "") + number(points[k].x) + "," + number(points[k].y);
    body += "\"/>\n";
}

void SvgDocument::rect(double x, double y, double w, double h, const std::string& style) {
    body += "<rect x=\"" + number(x) + "\" y=\"" + number(y) + "\" width=\"" + number(w) + "\" height=\"" + number(h) +
            "\" style=\"" + escapeXml(style) + "\"/>\n";
}

void SvgDocument::circle(double x, double y, double radius, const std::string& style) {
    body += "<circle cx=\"" + number(x) + "\" cy=\"" + number(y) + "\" r=\"" + number(radius) + "\" style=\"" +
            escapeXml(style) + "\"/>\n";
}

void SvgDocument::text(double x, double y, const std::string& content, const std::string& style, const char* anchor,
                       double angle) {
    body += "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" text-anchor=\"" + anchor + "\"";
    if (angle != 0.0) body += " transform=\"rotate(" + number(angle) + " " + number(x) + " " + number(y) + ")\"";
    body += " style=\"" + escapeXml(style) + "\">" + escapeXml(content) + "</text>\n";
}

void SvgDocument::clipRect(const std::string& id, double x, double y, double w, double h) {
    definitions += "<clipPath id=\"" + escapeXml(id) + "\"><rect x=\"" + number(x) + "\" y=\"" + number(y) +
                   "\" width=\"" + number(w) + "\" height=\"" + number(h) + "\"/></clipPath>\n";
}

void SvgDocument::beginGroup(const std::string& attributes) {
    body += "<g " + attributes + ">\n";
}

void SvgDocument::endGroup() {
    body += "</g>\n";
}

void SvgDocument::comment(const std::string& text) {
    std::string safe = text;
    for (size_t k = safe.find("--"); k != std::string::npos; k = safe.find("--")) safe.replace(k, 2, "- ");
    body += "<!-- " + safe + " -->\n";
}

std::string SvgDocument::str() const {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + number(width) + "\" height=\"" + number(height) +
           "\" viewBox=\"0 0 " + number(width) + " " + number(height) + "\" font-family=\"DejaVu Sans, Arial, sans-serif\">\n"
           "<defs>\n" + definitions + "</defs>\n" +
           "<rect x=\"0\" y=\"0\" width=\"" + number(width) + "\" height=\"" + number(height) + "\" fill=\"#ffffff\"/>\n" +
           body + "</svg>\n";
}

bool SvgDocument::write(const std::string& path) const {
    FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const std::string text = str();
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

}  // namespace tvlcli
