// The releases' verification values (tests/data/check_values.csv, SI) and a walker that
// compares a family's functions against them.
#ifndef TAVLIB6_TEST_CHECK_VALUES_H
#define TAVLIB6_TEST_CHECK_VALUES_H

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tvltest {

struct CheckValue {
    std::string equation;
    std::map<std::string, double> inputs;  // by the name before "=", in SI
    std::string quantity;
    double value;
    double tolerance;  // half a unit in the last printed digit
    std::string source;
    int line;
};

// All rows of tests/data/check_values.csv.
const std::vector<CheckValue>& checkValues();

// The function that reproduces the rows of one (equation, quantity) pair.
using Evaluator = std::function<double(const CheckValue&)>;
using EvaluatorTable = std::map<std::pair<std::string, std::string>, Evaluator>;

// Compares every row whose (equation, quantity) the table knows; fails with the inputs of each
// row that misses its tolerance. Returns how many rows were checked.
int expectCheckValues(const EvaluatorTable& table);

}  // namespace tvltest

#endif
