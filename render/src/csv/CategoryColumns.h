#ifndef LAKRESVOS_RENDER_CSV_CATEGORYCOLUMNS_H
#define LAKRESVOS_RENDER_CSV_CATEGORYCOLUMNS_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <lakresvos/OmDimension.h>

#include "content/LabelTexts.h"

namespace lakresvos::render {

/// The categories of a dimension as columns of labels: one for each level of its tree below the root.
/// A root that is a category itself needs no column to be told by.
///
/// A composite label of the root with as many parts as there are levels names each level by a part;
/// otherwise the levels of a dimension that has several are numbered. A dimension without categories
/// has a level for each part of a composite label, and one otherwise.
class CategoryColumns {
 public:
  /// @param labels keeps the texts of labels.
  CategoryColumns(OmDimension const& dimension, LabelTexts& labels);

  std::size_t Levels() const { return levels_; }

  /// What the columns are called, one name per level.
  std::vector<std::string> const& Names() const { return names_; }

  /// How many categories there are.
  std::size_t Count() const { return subscripts_.size(); }

  /// The subscript of the category at `position` in the tree's order; negative when no
  /// cell can have it.
  int Subscript(std::size_t position) const { return subscripts_[position]; }

  /// The position of the first category with a subscript; Count() when there is none.
  std::size_t Find(int subscript) const;

  /// What the category at `position` shows in the column of `level`, from 0; null for nothing. The
  /// category itself is always in the last column. Labels belong to the dimension.
  OmCellText const* Label(std::size_t position, std::size_t level) const {
    return labels_[position * levels_ + level];
  }

  /// Whether the category at `position` is marked as a total.
  bool IsTotal(std::size_t position) const { return totals_[position]; }

  /// Whether any category is.
  bool HasTotal() const;

 private:
  void NameLevels(OmDimension const& dimension, LabelTexts& labels);

  std::size_t levels_ = 0;
  std::vector<std::string> names_;
  std::vector<int> subscripts_;
  std::vector<OmCellText const*> labels_;  // levels_ for each category
  std::vector<bool> totals_;
  std::unordered_map<int, std::size_t> positions_;
};

}  // namespace lakresvos::render

#endif
