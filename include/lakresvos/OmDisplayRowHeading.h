#ifndef LAKRESVOS_OMDISPLAYROWHEADING_H
#define LAKRESVOS_OMDISPLAYROWHEADING_H

#include <deque>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmDimension.h>

class OmDisplayLayerHeading;
class OmPivotTable;

/// The row heading of a pivot table in the current layer of a layer heading.
///
/// Heading dimension 0 is the last entry of the table's row axis, shown leftmost and varying
/// slowest, and so on down to the first entry. Every display row has as many heading cells as
/// NColumns() says, outermost level first; a cell is null where a shorter path has no level.
///
/// Caveats:
/// - Which rows hold a cell depends on how full the table is. When less than one per cent of all
///   combinations, rounded to the nearest cell, has a cell, a row is kept for a cell in any layer
///   and any column; otherwise only for one in the current layer. A table of fewer than 50
///   combinations never is that sparse. The layer heading decides once, when it is made.
/// - Axis entries that name no dimension of the table count in NDimensions() and
///   getDimensionIndex() and are left out everywhere else.
/// - Places of 2^31 and more are cut to 32 bits by Row(), Column() and RowCategories(), though not
///   by Fill(), DimAllNodes() and DimCatNodes(). Counts stop at INT_MAX.
///
/// A heading shows the layer that was current when it was made. Requires: the layer heading
/// outlives it, and the table does not change meanwhile. The nodes that it gives belong to the
/// layer heading and are valid as long as that; the texts belong to the table.
///
/// No operation reports an error: a row, column or dimension that is not there gives an empty
/// result. What runs out of memory throws std::bad_alloc and changes nothing. Queries that say
/// nothing else take time linear in what they return and in the number of row dimensions.
///
/// Thread safety: none; one thread at a time uses a heading, its layer heading and its table,
/// readers included: const operations change cached data.
class LAKRESVOS_EXPORT OmDisplayRowHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  /// A node on the path from a dimension's root to a category, with its depth.
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// Lays out the rows in the current layer of `layer`. Without `skipEmpty` in time linear in the
  /// number of row dimensions; with it, linear in the stored cells of a sparse table, and at most
  /// in the entries of the store of a dense one, where the search stops at a row's first cell.
  /// @param layer            kept as a reference.
  /// @param skipEmpty        keep only the display rows that hold a cell.
  /// @param dimNamesInCorner show the dimensions' own labels in the corner instead of as the
  ///                         outermost heading level.
  /// @throws std::bad_alloc.
  OmDisplayRowHeading(OmDisplayLayerHeading& layer, bool skipEmpty, bool dimNamesInCorner);
  OmDisplayRowHeading(OmDisplayRowHeading const&) = delete;
  OmDisplayRowHeading& operator=(OmDisplayRowHeading const&) = delete;

  /// The nodes that the heading gave stay valid, for they belong to the layer heading.
  ~OmDisplayRowHeading();

  /// The layer heading's table.
  OmPivotTable& Table();

  /// Whether rows without a cell are left out.
  bool SkipEmpty() const;

  /// Whether the dimensions' own labels are in the corner.
  bool DimNamesInCorner() const;

  /// The number of row dimensions, which is that of the axis entries.
  int NDimensions() const;

  /// The number of display rows: 1 without row dimensions, or the product of their category counts;
  /// with SkipEmpty(), how many were kept. INT_MAX where there are more.
  int NRows() const;

  /// The number of heading columns: the sum of all VisibleWidth().
  int NColumns() const;

  /// How many heading columns heading dimension `j` takes; 0 when there is none. With SkipEmpty(),
  /// it is as wide as the longest path that occurs in a kept row needs. `j` counts without axis
  /// entries that name no dimension of the table.
  int VisibleWidth(int j) const;

  /// The heading cells of display row `r`, left to right; empty when there is no such row. A row of
  /// which a dimension has no category shows nulls there. Hidden levels close up, and what a path
  /// lacks is null at its inner end.
  std::deque<PathNode*> Row(int r) const;

  /// Heading column `k` of every display row, top to bottom; empty when there is no such column.
  /// Takes time linear in the number of rows.
  std::deque<PathNode*> Column(int k) const;

  /// The category of each row dimension in display row `r`; null where a dimension has none. Empty
  /// when there is no such row.
  std::deque<PathNode*> RowCategories(int r) const;

  /// Appends the whole path of every heading dimension in display row `r`, root end first. Missing
  /// paths and those of a single node add nothing. With `skipEmpty`, a number past the kept rows is
  /// taken as a place.
  void DimAllNodes(int r, std::vector<PathNode*>& out) const;

  /// Appends, per path that DimAllNodes() appends, its root end and its category.
  void DimCatNodes(int r, std::vector<PathNode*>& outermost,
                   std::vector<PathNode*>& categories) const;

  /// Writes display row `r`'s categories into a full cell index; slots of other dimensions keep
  /// their values, and the index becomes as long as the table has dimensions. Does nothing when
  /// there is no such row.
  /// @param index one subscript per table dimension, for OmPivotTable::Cell().
  /// @param r     the display row, from 0.
  void Fill(std::vector<int>& index, int r) const;

  /// The places of the display rows, ascending: the heading dimensions' category positions as one
  /// mixed-radix number, heading dimension 0 being the most significant digit. Valid as long as the
  /// heading. Without `skipEmpty`, the first call makes an entry for every place.
  /// @throws std::bad_alloc or std::length_error when there are too many.
  std::vector<unsigned long long> const& getNonEmptyRows() const;

  /// The table's dimension number of heading dimension `j`; the axis' puppet, which is -1 unless
  /// changed, when there is none. Nothing grows.
  int getDimensionIndex(int j) const;

  /// The corner's texts, one slot per heading column, null where it shows none; owned by the table
  /// and valid until the table replaces them. With dimension names in the corner each is above its
  /// first heading column; where none is placed, the first slot is the table's corner text. Empty
  /// when there are no rows and no dimension names to show.
  std::vector<OmCellText const*> CornerText() const;

 private:
  friend class OmDisplayTestAccess;

  Data* _my;
};

#endif
