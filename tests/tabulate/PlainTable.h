#ifndef TESTS_TABULATE_PLAINTABLE_H
#define TESTS_TABULATE_PLAINTABLE_H

#include <map>
#include <string>
#include <vector>

/// A CSV file without quotes, split at its commas; and statistics of it by nothing but loops over
/// all rows. The slow and plain twin of the report program.
class PlainTable {
 public:
  explicit PlainTable(std::string const& bytes);

  /// Which rows to look at: column name to the value that it has to have.
  using Where = std::map<std::string, std::string>;

  /// The rows that match, each spelled out as often as its weight says.
  /// @param weight the weight's column; empty: each row once.
  std::vector<std::size_t> Rows(Where const& where, std::string const& weight) const;

  /// Whether a row matches, whatever its weight.
  bool Occurs(Where const& where) const;

  /// How often the rows that match count.
  double Count(Where const& where, std::string const& weight) const;

  /// The numbers of a column in the rows that match, missing ones left out.
  std::vector<double> Numbers(Where const& where, std::string const& column,
                              std::string const& weight) const;

  /// In how many of the rows that match the column is missing, weights apart.
  std::size_t Missing(Where const& where, std::string const& column) const;

  /// The distinct values of a column that are not missing, in the order of the file.
  std::vector<std::string> Values(std::string const& column) const;

 private:
  bool Matches(std::size_t row, Where const& where) const;
  std::string const& Field(std::size_t row, std::string const& column) const;

  std::map<std::string, std::size_t> columns_;
  std::vector<std::vector<std::string>> rows_;
};

double ComputeMean(std::vector<double> const& numbers);
double ComputeDeviation(std::vector<double> const& numbers);

/// The number with so many decimals, and "." for one that is not there.
std::string Fixed(double number, int decimals);

#endif
