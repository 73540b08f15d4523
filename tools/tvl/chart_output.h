// Writing a chart: SVG as it stands, PNG through rsvg-convert (Debian's librsvg2-bin).
#ifndef TVL_CHART_OUTPUT_H
#define TVL_CHART_OUTPUT_H

#include <string>

namespace tvlcli {

// Writes the SVG text to path, "-" for standard output, or renders it to PNG when path ends in
// ".png". False, with a message on standard error, when it could not.
bool writeChart(const std::string& svg, const std::string& path);

}  // namespace tvlcli

#endif
