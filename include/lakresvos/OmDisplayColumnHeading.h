#ifndef LAKRESVOS_OMDISPLAYCOLUMNHEADING_H
#define LAKRESVOS_OMDISPLAYCOLUMNHEADING_H

#include <deque>
#include <vector>

#include <lakresvos/OmDisplayRowHeading.h>

/// The column heading of a pivot table: the row heading turned on its side.
///
/// Everything said of OmDisplayRowHeading holds with rows and columns exchanged: order, caveats,
/// lifetimes, errors and cost. The dimensions' own labels always are heading levels; the corner
/// belongs to the row heading. Row() does not cut places to 32 bits.
///
/// Thread safety: none; one thread at a time uses a heading, its layer heading and its table,
/// readers included: const operations change cached data.
class LAKRESVOS_EXPORT OmDisplayColumnHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  /// A node on the path from a dimension's root to a category, with its depth.
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// Lays out the columns in the current layer of `layer`, at the cost of a row heading.
  /// @param layer     kept as a reference. Requires: it outlives the heading.
  /// @param skipEmpty keep only the display columns that hold a cell.
  /// @throws std::bad_alloc.
  OmDisplayColumnHeading(OmDisplayLayerHeading& layer, bool skipEmpty);
  OmDisplayColumnHeading(OmDisplayColumnHeading const&) = delete;
  OmDisplayColumnHeading& operator=(OmDisplayColumnHeading const&) = delete;

  /// The nodes that the heading gave stay valid, for they belong to the layer heading.
  ~OmDisplayColumnHeading();

  /// The layer heading's table.
  OmPivotTable& Table();

  /// Whether columns without a cell are left out.
  bool SkipEmpty() const;

  /// The number of column dimensions, which is that of the axis entries.
  int NDimensions() const;

  /// The table's dimension number of heading dimension `j`; the axis' puppet, which is -1 unless
  /// changed, when there is none. Nothing grows.
  int getDimensionIndex(int j) const;

  /// The number of heading rows: the sum of all VisibleHeight().
  int NRows() const;

  /// The number of display columns: 1 without column dimensions, or the product of their category
  /// counts; with SkipEmpty(), how many were kept. INT_MAX where there are more.
  int NColumns() const;

  /// How many heading rows heading dimension `j` takes; 0 when there is none.
  int VisibleHeight(int j) const;

  /// The heading cells of display column `n`, outermost level first; empty when there is none.
  std::deque<PathNode*> Column(int n) const;

  /// Heading row `k` across every display column, left to right; empty when there is none. Linear
  /// in the number of columns.
  std::deque<PathNode*> Row(int k) const;

  /// The category of each column dimension in display column `n`; null where a dimension has none.
  /// Empty when there is no such column.
  std::deque<PathNode*> ColumnCategories(int n) const;

  /// Appends the whole path of every heading dimension in display column `n`, as
  /// OmDisplayRowHeading::DimAllNodes() does for a row.
  void DimAllNodes(int n, std::vector<PathNode*>& out) const;

  /// Appends, per path that DimAllNodes() appends, its root end and its category.
  void DimCatNodes(int n, std::vector<PathNode*>& outermost,
                   std::vector<PathNode*>& categories) const;

  /// Writes display column `n`'s categories into a full cell index; slots of other dimensions keep
  /// their values, and the index becomes as long as the table has dimensions. Does nothing when
  /// there is no such column.
  /// @param index one subscript per table dimension, for OmPivotTable::Cell().
  /// @param n     the display column, from 0.
  void Fill(std::vector<int>& index, int n) const;

  /// The places of the display columns, ascending, as OmDisplayRowHeading::getNonEmptyRows() gives
  /// those of rows. Valid as long as the heading. Without SkipEmpty(), the first call makes an
  /// entry for every place.
  /// @throws std::bad_alloc or std::length_error when there are too many.
  std::vector<unsigned long long> const& getNonEmptyColumns() const;

 private:
  friend class OmDisplayTestAccess;

  Data* _my;
};

#endif
