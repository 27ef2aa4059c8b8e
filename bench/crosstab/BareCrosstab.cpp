#include "BareCrosstab.h"

#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "CsvRows.h"

namespace {

/// The values of a column, numbered in the order in which they occur.
class Codes {
 public:
  std::size_t Find(std::string_view value) {
    auto const found = codes_.find(value);
    return found != codes_.end() ? found->second : Add(value);
  }

  std::vector<std::string> const& Values() const { return values_; }

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::size_t Add(std::string_view value) {
    values_.emplace_back(value);
    return codes_.emplace(value, values_.size() - 1).first->second;
  }

  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> codes_;
  std::vector<std::string> values_;
};

struct Cell {
  long count = 0;
  double sum = 0;
};

/// One number for each of the four columns' codes, which are below kMost.
constexpr std::size_t kMost = 16;

struct Crosstab {
  Codes columns[4];
  std::vector<Cell> cells = std::vector<Cell>(kMost * kMost * kMost * kMost);

  Cell& At(std::size_t a, std::size_t b, std::size_t c, std::size_t d) {
    return cells[((a * kMost + b) * kMost + c) * kMost + d];
  }
};

template <class Number, class... Form>
void Append(std::string& out, Number number, Form... form) {
  char digits[64];
  out += "<td>";
  out.append(digits, std::to_chars(digits, digits + sizeof digits, number, form...).ptr);
  out += "</td>";
}

void Write(Crosstab& table, bool sums, std::string const& file) {
  std::string html = "<table>\n";
  for (std::size_t a = 0; a < table.columns[0].Values().size(); ++a) {
    for (std::size_t b = 0; b < table.columns[1].Values().size(); ++b) {
      html += "<tr><th>" + table.columns[0].Values()[a] + "</th><th>" +
              table.columns[1].Values()[b] + "</th>";
      for (std::size_t c = 0; c < table.columns[2].Values().size(); ++c) {
        for (std::size_t d = 0; d < table.columns[3].Values().size(); ++d) {
          Cell const& cell = table.At(a, b, c, d);
          Append(html, cell.count);
          if (sums) {
            Append(html, cell.sum, std::chars_format::fixed, 2);
          }
        }
      }
      html += "</tr>\n";
    }
  }
  std::ofstream(file, std::ios::binary) << html << "</table>\n";
}

}  // namespace

void WriteBareCrosstab(std::string const& data, bool sums, std::string const& html) {
  Crosstab table;
  ReadCsv(data, [&](CsvRow const& row) {
    std::size_t codes[4];
    for (std::size_t column = 0; column < 4; ++column) {
      codes[column] = table.columns[column].Find(row[column]);
    }
    Cell& cell = table.At(codes[0], codes[1], codes[2], codes[3]);
    ++cell.count;
    if (sums) {
      cell.sum += NumberIn(row[4]);
    }
  });
  Write(table, sums, html);
}
