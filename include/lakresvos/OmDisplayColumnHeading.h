#ifndef LAKRESVOS_OMDISPLAYCOLUMNHEADING_H
#define LAKRESVOS_OMDISPLAYCOLUMNHEADING_H

#include <deque>
#include <vector>

#include <lakresvos/OmDisplayRowHeading.h>

/// The column heading of a pivot table: the row heading turned on its side.
///
/// Everything said of OmDisplayRowHeading holds with rows and columns exchanged. The dimensions'
/// own labels always are heading levels; the corner belongs to the row heading. Row() does not
/// cut places to 32 bits.
///
/// Thread safety: as OmDisplayRowHeading.
class LAKRESVOS_EXPORT OmDisplayColumnHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// @param skipEmpty keep only the display columns that hold a cell.
  OmDisplayColumnHeading(OmDisplayLayerHeading& layer, bool skipEmpty);
  OmDisplayColumnHeading(OmDisplayColumnHeading const&) = delete;
  OmDisplayColumnHeading& operator=(OmDisplayColumnHeading const&) = delete;
  ~OmDisplayColumnHeading();

  OmPivotTable& Table();
  bool SkipEmpty() const;

  /// The number of column dimensions.
  int NDimensions() const;

  /// The table's dimension number of heading dimension `j`; the axis' puppet when there is none.
  int getDimensionIndex(int j) const;

  /// The number of heading rows.
  int NRows() const;

  /// The number of display columns.
  int NColumns() const;

  /// How many heading rows heading dimension `j` takes; 0 when there is none.
  int VisibleHeight(int j) const;

  /// The heading cells of display column `n`, outermost level first; empty when there is none.
  std::deque<PathNode*> Column(int n) const;

  /// Heading row `k` across every display column, left to right; empty when there is none.
  std::deque<PathNode*> Row(int k) const;

  /// The category of each column dimension in display column `n`; null where a dimension has none.
  std::deque<PathNode*> ColumnCategories(int n) const;

  /// As the row heading's, for display column `n`.
  void DimAllNodes(int n, std::vector<PathNode*>& out) const;
  void DimCatNodes(int n, std::vector<PathNode*>& outermost,
                   std::vector<PathNode*>& categories) const;

  /// Writes display column `n`'s categories into a full cell index; does nothing when there is
  /// none.
  void Fill(std::vector<int>& index, int n) const;

  /// The places of the display columns, ascending.
  std::vector<unsigned long long> const& getNonEmptyColumns() const;

 private:
  friend class OmDisplayTestAccess;

  Data* _my;
};

#endif
