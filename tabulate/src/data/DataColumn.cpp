#include <algorithm>
#include <cmath>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include <lakresvos/tabulate/DataSet.h>

#include "data/Number.h"
#include "data/ValueFormat.h"

namespace lakresvos::tabulate {

namespace {

ColumnNumbers ParseColumnNumbers(Dictionary const& values, ValueFormat const* format) {
  ColumnNumbers numbers;
  numbers.byCode.reserve(values.size());
  for (std::uint32_t code = 0; code < values.size(); ++code) {
    std::string const formatted = format != nullptr ? format->ToPlainNumber(values[code]) : "";
    std::string_view const text = format != nullptr ? formatted : values[code];
    double const number = ParseNumber(text);
    numbers.byCode.push_back(number);
    if (std::isnan(number)) {
      numbers.complete = false;
    } else {
      numbers.decimals = std::max(numbers.decimals, CountDecimals(text));
    }
  }
  return numbers;
}

}  // namespace

/// The numbers of a column, parsed by the first of all threads that asks.
struct LazyNumbers {
  std::once_flag once;
  bool parsed = false;
  ColumnNumbers numbers;
};

DataColumn::DataColumn(std::string name, bool kept)
    : name_(std::move(name)), kept_(kept), numbers_(std::make_unique<LazyNumbers>()) {}
DataColumn::DataColumn(DataColumn&& other) noexcept = default;
DataColumn& DataColumn::operator=(DataColumn&& other) noexcept = default;
DataColumn::~DataColumn() = default;

bool DataColumn::IsMissing(std::string_view field) const {
  if (format_ != nullptr) {
    return field.empty() || format_->IsMissing(field);
  }
  return field.empty() || (field.size() == 2 && field[0] == 'N' && field[1] == 'A');
}

std::string DataColumn::ToPlainNumber(std::string_view value) const {
  return format_ != nullptr ? format_->ToPlainNumber(value) : std::string(value);
}

void DataColumn::Append(std::string_view field) {
  if (!kept_) {
    Take(field);
    return;
  }
  codes_.push_back(kMissingCode);
  try {
    codes_.back() = Take(field);
  } catch (...) {
    codes_.pop_back();
    throw;
  }
}

/// Adds a row without keeping it.
/// @return the code of its value, or kMissingCode, also when values are not kept.
std::uint32_t DataColumn::Take(std::string_view field) {
  if (IsMissing(field)) {
    ++missing_;
    return kMissingCode;
  }
  if (!kept_) {
    return kMissingCode;
  }
  ForgetNumbers();
  return values_.Intern(field);
}

void DataColumn::ForgetNumbers() {
  if (numbers_->parsed) {
    numbers_ = std::make_unique<LazyNumbers>();
  }
}

ColumnNumbers const& DataColumn::Numbers() const {
  std::call_once(numbers_->once, [this] {
    numbers_->numbers = ParseColumnNumbers(values_, format_.get());
    numbers_->parsed = true;
  });
  return numbers_->numbers;
}

}  // namespace lakresvos::tabulate
