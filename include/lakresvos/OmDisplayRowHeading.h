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
///   combinations has a cell, a row is kept for a cell in any layer and any column; otherwise only
///   for one in the current layer.
/// - Axis entries that name no dimension of the table count in NDimensions() and
///   getDimensionIndex() and are left out everywhere else.
/// - Places of 2^31 and more are cut to 32 bits by Row(), Column() and RowCategories(), though not
///   by Fill(), DimAllNodes() and DimCatNodes(). Counts stop at INT_MAX.
///
/// A heading shows the layer that was current when it was made and must not outlive its layer
/// heading. The nodes that it gives out belong to the layer heading.
///
/// Thread safety: none. getNonEmptyRows() may change cached data although it is const, so not even
/// readers may share a heading.
class LAKRESVOS_EXPORT OmDisplayRowHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// @param skipEmpty        keep only the display rows that hold a cell.
  /// @param dimNamesInCorner show the dimensions' own labels in the corner instead of as the
  ///                         outermost heading level.
  OmDisplayRowHeading(OmDisplayLayerHeading& layer, bool skipEmpty, bool dimNamesInCorner);
  OmDisplayRowHeading(OmDisplayRowHeading const&) = delete;
  OmDisplayRowHeading& operator=(OmDisplayRowHeading const&) = delete;
  ~OmDisplayRowHeading();

  OmPivotTable& Table();
  bool SkipEmpty() const;
  bool DimNamesInCorner() const;

  /// The number of row dimensions.
  int NDimensions() const;

  /// The number of display rows.
  int NRows() const;

  /// The number of heading columns.
  int NColumns() const;

  /// How many heading columns heading dimension `j` takes; 0 when there is none.
  int VisibleWidth(int j) const;

  /// The heading cells of display row `r`, left to right; empty when there is no such row. A row of
  /// which a dimension has no category shows nulls there.
  std::deque<PathNode*> Row(int r) const;

  /// Heading column `k` of every display row, top to bottom; empty when there is no such column.
  /// Takes time linear in the number of rows.
  std::deque<PathNode*> Column(int k) const;

  /// The category of each row dimension in display row `r`; null where a dimension has none.
  std::deque<PathNode*> RowCategories(int r) const;

  /// Appends the whole path of every heading dimension in display row `r`, root end first. Missing
  /// paths and those of a single node add nothing. With `skipEmpty`, a number past the kept rows is
  /// taken as a place.
  void DimAllNodes(int r, std::vector<PathNode*>& out) const;

  /// Appends, per path that DimAllNodes() appends, its root end and its category.
  void DimCatNodes(int r, std::vector<PathNode*>& outermost,
                   std::vector<PathNode*>& categories) const;

  /// Writes display row `r`'s categories into a full cell index; does nothing when there is no such
  /// row.
  void Fill(std::vector<int>& index, int r) const;

  /// The places of the display rows, ascending: the heading dimensions' category positions as one
  /// mixed-radix number, heading dimension 0 being the most significant digit. Valid as long as the
  /// heading. Without `skipEmpty`, the first call makes an entry for every place.
  /// @throws std::bad_alloc or std::length_error when there are too many.
  std::vector<unsigned long long> const& getNonEmptyRows() const;

  /// The table's dimension number of heading dimension `j`; the axis' puppet when there is none.
  int getDimensionIndex(int j) const;

  /// The corner's texts, one slot per heading column, null where it shows none; owned by the table.
  /// Empty when there are no rows and no dimension names to show.
  std::vector<OmCellText const*> CornerText() const;

 private:
  friend class OmDisplayTestAccess;

  Data* _my;
};

#endif
