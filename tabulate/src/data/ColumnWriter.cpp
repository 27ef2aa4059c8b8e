#include "data/ColumnWriter.h"

namespace lakresvos::tabulate {

void ColumnWriter::AppendLater(std::string_view field) {
  if (column_->IsMissing(field)) {
    column_->Append(field);
    return;
  }
  if (count_ == waiting_.size()) {
    Flush();
  }
  std::uint64_t const hash = Dictionary::Hash(field);
  column_->values_.Prefetch(hash);
  std::size_t const row = column_->codes_.size();
  text_.reserve(text_.size() + field.size());
  column_->codes_.push_back(kMissingCode);
  text_.append(field);
  waiting_[count_++] = {hash, text_.size(), row};
}

void ColumnWriter::Flush() {
  if (count_ == 0) {
    return;
  }
  column_->ForgetNumbers();
  std::size_t start = 0;
  for (std::size_t i = 0; i < count_; ++i) {
    Waiting const& one = waiting_[i];
    column_->codes_[one.row] = column_->values_.InternHashed(
        std::string_view(text_).substr(start, one.end - start), one.hash);
    start = one.end;
  }
  count_ = 0;
  text_.clear();
}

}  // namespace lakresvos::tabulate
