// What tvl NAME --help tells about an export, and the units of its arguments and results: rows
// generated with the reference pages (tools/gen_docs.py writes export_help.inc).
#ifndef TVL_EXPORT_HELP_H
#define TVL_EXPORT_HELP_H

#include <string>
#include <vector>

namespace tvlcli {

struct ExportHelp {
    const char* name;
    const char* arguments;  // name|quantity|unit|in or out, separated by ';'
    const char* result;
    const char* resultUnit;
    const char* range;
    const char* codes;  // "1 2 3"
};

struct Parameter {
    std::string name, quantity, unit;
    bool output;
};

const ExportHelp* findHelp(const char* name);
std::vector<Parameter> parameters(const ExportHelp& help);

// tvl NAME --help: the call, its arguments with units, the result, the range and the codes.
void printExportHelp(const ExportHelp& help);

}  // namespace tvlcli

#endif
