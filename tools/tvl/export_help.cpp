// The help rows of the exports and tvl NAME --help.
#include "export_help.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "tavlib6.h"
#include "units.h"

namespace tvlcli {

namespace {

const ExportHelp kHelp[] = {
#include "export_help.inc"
};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::stringstream stream(text);
    std::string part;
    while (std::getline(stream, part, separator)) parts.push_back(part);
    return parts;
}

// Breaks a long text into lines of at most `width` characters, each indented.
void printWrapped(const std::string& text, size_t width, const char* indent) {
    std::string line;
    for (const std::string& word : split(text, ' ')) {
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            std::printf("%s%s\n", indent, line.c_str());
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    if (!line.empty()) std::printf("%s%s\n", indent, line.c_str());
}

}  // namespace

const ExportHelp* findHelp(const char* name) {
    for (const ExportHelp& help : kHelp)
        if (std::strcmp(help.name, name) == 0) return &help;
    return nullptr;
}

std::vector<Parameter> parameters(const ExportHelp& help) {
    std::vector<Parameter> list;
    for (const std::string& cell : split(help.arguments, ';')) {
        const std::vector<std::string> f = split(cell, '|');
        if (f.size() == 4) list.push_back({f[0], f[1], f[2], f[3] == "out"});
    }
    return list;
}

void printExportHelp(const ExportHelp& help) {
    const std::vector<Parameter> list = parameters(help);
    std::string inputs;
    for (const Parameter& p : list)
        if (!p.output) inputs += " " + p.name;
    std::printf("usage: tvl %s%s\n\n", help.name, inputs.c_str());
    const auto describe = [](const Parameter& p) {
        const std::string units = acceptedUnits(p.unit);
        std::printf("  %-6s %s", p.name.c_str(), p.quantity.c_str());
        if (!units.empty())
            std::printf(" [%s] (typed in %s)\n", p.unit.c_str(), units.c_str());
        else
            std::printf("%s\n", printedUnit(p.unit).empty() ? "" : (" [" + p.unit + "]").c_str());
    };
    if (!inputs.empty()) std::printf("arguments (a plain number is SI; a unit may follow it, as in 550C or 10MPa):\n");
    for (const Parameter& p : list)
        if (!p.output) describe(p);
    bool outputs = false;
    for (const Parameter& p : list) {
        if (!p.output) continue;
        if (!outputs) std::printf("outputs, printed as name=value:\n");
        outputs = true;
        describe(p);
    }
    const std::string unit = printedUnit(help.resultUnit);
    std::printf("result:\n  %s%s\n", help.result, unit.empty() ? "" : (" [" + unit + "]").c_str());
    std::printf("range:\n");
    printWrapped(help.range[0] ? help.range : "see the reference page of the family", 92, "  ");
    std::printf("failure codes:\n");
    if (help.codes[0] == '\0') std::printf("  none\n");
    for (const std::string& code : split(help.codes, ' ')) {
        tvlSETLASTERROR(std::atoi(code.c_str()));
        const char* text = tvlGETLASTERRORDESCRIPTION();
        std::printf("  %s: %s\n", code.c_str(), text != nullptr ? text : "");
    }
    tvlSETLASTERROR(0);
}

}  // namespace tvlcli
