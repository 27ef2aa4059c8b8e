#ifndef BENCH_CROSSTAB_CSVROWS_H
#define BENCH_CROSSTAB_CSVROWS_H

#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// A row of the data: four texts, and a number as it is written.
using CsvRow = std::array<std::string_view, 5>;

/// Reads a CSV file without quoted fields, all at once, and calls `use` with each row but the first.
template <class Use>
void ReadCsv(std::string const& file, Use const& use) {
  std::ifstream in(file, std::ios::binary | std::ios::ate);
  std::string text(static_cast<std::size_t>(in.tellg()), '\0');
  in.seekg(0);
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  std::size_t start = text.find('\n') + 1;
  CsvRow row;
  while (start < text.size()) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      std::size_t const end = text.find(column + 1 < row.size() ? ',' : '\n', start);
      row[column] = std::string_view(text).substr(start, end - start);
      start = end + 1;
    }
    use(row);
  }
}

inline double NumberIn(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

#endif
