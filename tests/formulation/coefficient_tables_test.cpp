// The generated coefficient tables against the releases' CSV files, number by number. Skipped
// where the CSV files are not beside the checkout.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "water/formulation/tables/boundary_coefficients.h"
#include "water/formulation/tables/metastable_coefficients.h"
#include "water/formulation/tables/region1_coefficients.h"
#include "water/formulation/tables/region2_coefficients.h"
#include "water/formulation/tables/region3_coefficients.h"
#include "water/formulation/tables/region5_coefficients.h"
#include "water/formulation/tables/saturation_coefficients.h"
#include "water/formulation/tables/transport_coefficients.h"

namespace {

using Row = std::map<std::string, std::string>;

std::vector<Row> readCsv(const std::string& name) {
    std::ifstream file(std::string(TAVLIB6_IAPWS_DIR) + "/" + name + ".csv");
    std::vector<Row> rows;
    std::string line;
    std::vector<std::string> header;
    while (std::getline(file, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::vector<std::string> fields;
        std::stringstream split(line);
        for (std::string field; std::getline(split, field, ',');) fields.push_back(field);
        if (header.empty()) {
            header = fields;
            continue;
        }
        Row row;
        for (size_t k = 0; k < header.size() && k < fields.size(); ++k) row[header[k]] = fields[k];
        rows.push_back(row);
    }
    return rows;
}

double number(const Row& row, const std::string& column) { return std::strtod(row.at(column).c_str(), nullptr); }

void expectRow(const tvl::PowerTerm& t, const Row& r) {
    EXPECT_EQ(t.I, number(r, "I"));
    EXPECT_EQ(t.J, number(r, "J"));
    EXPECT_EQ(t.n, number(r, "n"));
}
void expectRow(const tvl::FractionalPowerTerm& t, const Row& r) {
    EXPECT_EQ(t.I, number(r, "I"));
    EXPECT_EQ(t.J, number(r, "J"));
    EXPECT_EQ(t.n, number(r, "n"));
}
void expectRow(const tvl::IdealTerm& t, const Row& r) {
    EXPECT_EQ(t.J0, number(r, "J0"));
    EXPECT_EQ(t.n0, number(r, "n0"));
}
void expectRow(const tvl::SaturationDensityTerm& t, const Row& r) {
    EXPECT_EQ(t.tNum, number(r, "t_num"));
    EXPECT_EQ(t.tDen, number(r, "t_den"));
    EXPECT_EQ(t.coefficient, number(r, r.count("b") ? "b" : "c"));
}
void expectRow(const tvl::ViscosityTerm& t, const Row& r) {
    EXPECT_EQ(t.i, number(r, "i"));
    EXPECT_EQ(t.j, number(r, "j"));
    EXPECT_EQ(t.H, number(r, "H"));
}
void expectRow(const tvl::DielectricTerm& t, const Row& r) {
    EXPECT_EQ(t.i, number(r, "i"));
    EXPECT_EQ(t.j, number(r, "j"));
    EXPECT_EQ(t.N, number(r, "N"));
}
void expectRow(const double& value, const Row& r) { EXPECT_EQ(value, number(r, r.count("H") ? "H" : "n")); }

template <class Term, size_t N>
void expectTable(const std::string& csv, const Term (&table)[N], const double* logCoefficient) {
    std::vector<Row> rows = readCsv(csv);
    if (logCoefficient != nullptr) {
        ASSERT_FALSE(rows.empty());
        EXPECT_EQ(*logCoefficient, number(rows.front(), "n")) << csv;
        rows.erase(rows.begin());
    }
    ASSERT_EQ(rows.size(), N) << csv;
    for (size_t k = 0; k < N; ++k) {
        SCOPED_TRACE(csv + ".csv row " + std::to_string(k + 1 + (logCoefficient ? 1 : 0)));
        expectRow(table[k], rows[k]);
    }
}

struct TableCase {
    const char* csv;
    std::function<void()> check;
};

std::vector<TableCase> tableCases() {
    using namespace tvl;
    return {
#define TVL_COEFFICIENT_TABLE(csv, header, shape, log, table) {csv, [] { expectTable(csv, table, log); }},
#include "formulation/coefficient_index.inc"
#undef TVL_COEFFICIENT_TABLE
    };
}

TEST(CoefficientTables, EqualTheReleaseCsvFiles) {
    if (!std::filesystem::exists(TAVLIB6_IAPWS_DIR "/region1.csv"))
        GTEST_SKIP() << "the IAPWS CSV files are not beside this checkout";
    const auto cases = tableCases();
    EXPECT_GE(cases.size(), 40u);
    for (const TableCase& c : cases) c.check();
}

}  // namespace
