#include "support/check_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tvltest {

namespace {

// Splits one CSV line; quoted fields may hold commas.
std::vector<std::string> splitCsv(const std::string& line) {
    std::vector<std::string> fields;
    std::string field;
    bool quoted = false;
    for (char c : line) {
        if (c == '"') quoted = !quoted;
        else if (c == ',' && !quoted) {
            fields.push_back(field);
            field.clear();
        } else field += c;
    }
    fields.push_back(field);
    return fields;
}

// "p=3000000 Pa" -> ("p", 3000000)
void addInput(const std::string& text, std::map<std::string, double>& inputs) {
    const auto equals = text.find('=');
    if (equals == std::string::npos) return;
    inputs[text.substr(0, equals)] = std::strtod(text.c_str() + equals + 1, nullptr);
}

std::vector<CheckValue> load() {
    std::ifstream file(TAVLIB6_TEST_DATA_DIR "/check_values.csv");
    std::vector<CheckValue> rows;
    std::string line;
    std::getline(file, line);  // header
    for (int number = 2; std::getline(file, line); ++number) {
        const auto f = splitCsv(line);
        if (f.size() < 8) continue;
        CheckValue row;
        row.equation = f[0];
        addInput(f[1], row.inputs);
        addInput(f[2], row.inputs);
        row.quantity = f[3];
        row.value = std::strtod(f[4].c_str(), nullptr);
        row.tolerance = std::strtod(f[6].c_str(), nullptr);
        row.source = f[7];
        row.line = number;
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

const std::vector<CheckValue>& checkValues() {
    static const std::vector<CheckValue> rows = load();
    return rows;
}

int expectCheckValues(const EvaluatorTable& table) {
    int checked = 0;
    for (const CheckValue& row : checkValues()) {
        const auto found = table.find({row.equation, row.quantity});
        if (found == table.end()) continue;
        const double computed = found->second(row);
        std::ostringstream where;
        where.precision(17);
        where << "check_values.csv line " << row.line << ": " << row.equation << " " << row.quantity;
        for (const auto& [name, value] : row.inputs) where << " " << name << "=" << value;
        where << " (" << row.source << ")";
        EXPECT_NEAR(computed, row.value, row.tolerance) << where.str();
        ++checked;
    }
    return checked;
}

}  // namespace tvltest
