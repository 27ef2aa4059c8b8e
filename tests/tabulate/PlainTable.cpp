#include "tabulate/PlainTable.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace {

std::vector<std::string> SplitAtCommas(std::string const& line) {
  std::vector<std::string> fields(1);
  for (char const c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

bool IsMissing(std::string const& field) {
  return field.empty() || field == "NA";
}

}  // namespace

PlainTable::PlainTable(std::string const& bytes) {
  std::istringstream lines(bytes);
  std::string line;
  std::getline(lines, line);
  std::vector<std::string> const names = SplitAtCommas(line);
  for (std::size_t i = 0; i < names.size(); ++i) {
    columns_[names[i]] = i;
  }
  while (std::getline(lines, line)) {
    rows_.push_back(SplitAtCommas(line));
  }
}

std::string const& PlainTable::Field(std::size_t row, std::string const& column) const {
  return rows_[row][columns_.at(column)];
}

bool PlainTable::Matches(std::size_t row, Where const& where) const {
  return std::all_of(where.begin(), where.end(), [&](auto const& condition) {
    return Field(row, condition.first) == condition.second;
  });
}

std::vector<std::size_t> PlainTable::Rows(Where const& where, std::string const& weight) const {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    int const times = weight.empty() ? 1 : std::stoi(Field(row, weight));
    for (int i = 0; i < times && Matches(row, where); ++i) {
      rows.push_back(row);
    }
  }
  return rows;
}

bool PlainTable::Occurs(Where const& where) const {
  return !Rows(where, "").empty();
}

double PlainTable::Count(Where const& where, std::string const& weight) const {
  return static_cast<double>(Rows(where, weight).size());
}

std::vector<double> PlainTable::Numbers(Where const& where, std::string const& column,
                                        std::string const& weight) const {
  std::vector<double> numbers;
  for (std::size_t const row : Rows(where, weight)) {
    if (!IsMissing(Field(row, column))) {
      numbers.push_back(std::stod(Field(row, column)));
    }
  }
  return numbers;
}

std::size_t PlainTable::Missing(Where const& where, std::string const& column) const {
  std::vector<std::size_t> const rows = Rows(where, "");
  return static_cast<std::size_t>(std::count_if(
      rows.begin(), rows.end(), [&](std::size_t row) { return IsMissing(Field(row, column)); }));
}

std::vector<std::string> PlainTable::Values(std::string const& column) const {
  std::vector<std::string> values;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    std::string const& value = Field(row, column);
    if (!IsMissing(value) && std::find(values.begin(), values.end(), value) == values.end()) {
      values.push_back(value);
    }
  }
  return values;
}

double ComputeMean(std::vector<double> const& numbers) {
  double sum = 0;
  for (double const number : numbers) {
    sum += number;
  }
  return sum / static_cast<double>(numbers.size());
}

double ComputeDeviation(std::vector<double> const& numbers) {
  double const mean = ComputeMean(numbers);
  double squares = 0;
  for (double const number : numbers) {
    squares += (number - mean) * (number - mean);
  }
  return numbers.size() < 2 ? std::nan("")
                            : std::sqrt(squares / static_cast<double>(numbers.size() - 1));
}

std::string Fixed(double number, int decimals) {
  if (std::isnan(number)) {
    return ".";
  }
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return text;
}
