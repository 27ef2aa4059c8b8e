#include "data/ColumnPart.h"

#include <algorithm>

namespace lakresvos::tabulate {

ColumnPart::ColumnPart(DataColumn& whole)
    : whole_(&whole),
      part_(std::make_unique<DataColumn>(whole.Name(), whole.IsKept())),
      writer_(*part_) {
  part_->format_ = whole.format_;
}

void ColumnPart::HandOver() {
  writer_.Flush();
  whole_->missing_ += part_->missing_;
  part_->missing_ = 0;
  if (codeInWhole_.size() != part_->values_.size()) {
    whole_->ForgetNumbers();
  }
  for (std::size_t code = codeInWhole_.size(); code < part_->values_.size(); ++code) {
    std::string_view const value = part_->values_[static_cast<std::uint32_t>(code)];
    codeInWhole_.push_back(whole_->values_.Intern(value));
  }
  if (part_->codes_.empty()) {
    return;
  }
  std::size_t const rows = whole_->codes_.size();
  whole_->codes_.resize(rows + part_->codes_.size());
  std::transform(
      part_->codes_.begin(), part_->codes_.end(), &whole_->codes_[rows],
      [&](std::uint32_t code) { return code == kMissingCode ? kMissingCode : codeInWhole_[code]; });
  part_->codes_.clear();
}

}  // namespace lakresvos::tabulate
