// Values of one tvl subcommand call: a failed export is NaN, printed as "-" (text) or empty (CSV).
#ifndef TVL_TABLE_FORMAT_H
#define TVL_TABLE_FORMAT_H

#include <string>
#include <vector>

namespace tvlcli {

// The value of the call just made, or NaN where the library reported an error.
double checked(double value);

// Parses "a,b,c" or "from:to:step" into numbers; false on anything else.
bool parseNumberList(const std::string& text, std::vector<double>& values);
// The same with an optional unit of siUnit behind each number ("100C:300C:50C"), read into SI.
bool parseQuantityList(const std::string& text, const char* siUnit, std::vector<double>& values);

int runTable(int argc, char** argv);
int runChart(int argc, char** argv);
int runState(int argc, char** argv);

}  // namespace tvlcli

#endif
