// A small writer of SVG documents: lines, polylines, text, circles, groups and clip paths, with
// every text escaped for XML. Coordinates are in pixels of the document's view box.
#ifndef TVL_SVG_H
#define TVL_SVG_H

#include <string>
#include <vector>

namespace tvlcli {

struct Point {
    double x;
    double y;
};

std::string escapeXml(const std::string& text);

class SvgDocument {
public:
    SvgDocument(double width, double height);

    // style is the inside of a style attribute, e.g. "stroke:#00f;stroke-width:1".
    void line(double x1, double y1, double x2, double y2, const std::string& style);
    void polyline(const std::vector<Point>& points, const std::string& style);
    void rect(double x, double y, double width, double height, const std::string& style);
    void circle(double x, double y, double radius, const std::string& style);
    // anchor is start, middle or end; angle in degrees, clockwise, about (x, y).
    void text(double x, double y, const std::string& text, const std::string& style,
              const char* anchor = "start", double angle = 0.0);
    void clipRect(const std::string& id, double x, double y, double width, double height);
    void beginGroup(const std::string& attributes);
    void endGroup();
    void comment(const std::string& text);

    std::string str() const;
    bool write(const std::string& path) const;

private:
    double width;
    double height;
    std::string definitions;
    std::string body;
};

}  // namespace tvlcli

#endif
