#ifndef LAKRESVOS_RENDER_DISPLAYGRID_H
#define LAKRESVOS_RENDER_DISPLAYGRID_H

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include <cells/OmCellText.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>
#include <lakresvos/render/Export.h>

namespace lakresvos::render {

/// Where in a grid a heading cell is.
enum class GridRole {
  Corner,         ///< above the row headings
  ColumnHeading,  ///< above the body
  RowHeading,     ///< left of the body
};

/// One heading cell of a grid: of its corner, its column headings or its row headings.
///
/// Label and node belong to the table and its layout; they are valid as long as the grid.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct GridCell {
  GridRole role;                              ///< which of the three it belongs to
  OmCellText const* label;                    ///< null in an empty cell
  OmDisplayRowHeading::PathNode const* node;  ///< null in the corner and in an empty cell
  int row;                                    ///< first grid row
  int column;                                 ///< first grid column
  int rowSpan;                                ///< number of grid rows, at least 1
  int columnSpan;                             ///< number of grid columns, at least 1
};

/// What a table shows of one layer dimension. The labels belong to the table.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct LayerLabel {
  OmCellText const* dimension;                ///< the dimension's name; null when hidden
  std::vector<OmCellText const*> categories;  ///< the category's shown path, outermost first
};

/// The heading cells that start in one grid row, left to right, as a range for a loop. Valid as
/// long as the grid.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct GridCells {
  GridCell const* first;  ///< the leftmost cell; equal to `last` when there is none
  GridCell const* last;   ///< one past the rightmost cell

  GridCell const* begin() const { return first; }  ///< where a loop starts
  GridCell const* end() const { return last; }     ///< where a loop ends
};

/// One layer of a pivot table as a rectangle of cells, which every renderer starts from.
///
/// Rows and columns count from the top left, headings included: the body starts at row
/// HeadingRows() and column HeadingColumns(). Every position belongs to exactly one cell: of the
/// corner, of a heading, or of the body, whose cells have no spans.
///
/// Rules for heading cells:
/// 1. Neighboring positions of one heading level are one cell when they show the same node of the
///    category tree (never merely the same text) below the same cell of the level before.
/// 2. Where a path is shorter than its dimension's levels, the last cell of the path reaches over
///    the remaining levels, if it does so over its whole length. Otherwise, and where a dimension
///    shows nothing at all, empty cells fill the levels; neighbors below the same cell are one.
/// 3. A corner label reaches over the heading columns of its dimension and over all heading rows;
///    the table's own corner text, shown when no dimension name is, over the whole corner.
/// 4. A corner that has something to show above no heading rows gets one, empty above the body.
///
/// The grid holds the headings, with their spans computed once; body cells are looked up in the
/// table as they are asked for.
///
/// The table and the layer heading must outlive the grid and stay in the state in which it was
/// made.
///
/// Thread safety: none; one thread at a time uses a table, its layer heading and the grids on it, but
/// for the cells of rows that it has got before: see BodyRow.
class LAKRESVOS_RENDER_EXPORT DisplayGrid {
 public:
  class BodyRow;

  /// Lays out the current layer of `layers`, in time linear in the heading cells, beside what the
  /// table's headings themselves take.
  /// Requires: a layer is current.
  /// @param layers stays the caller's.
  /// @param skipEmpty leave out rows and columns without a cell.
  /// @param dimNamesInCorner show the names of row dimensions in the corner, not as a level of the
  ///        row headings.
  /// @throws std::length_error that names the table when there are more rows or columns than an int
  ///         can count.
  explicit DisplayGrid(OmDisplayLayerHeading& layers, bool skipEmpty = true,
                       bool dimNamesInCorner = true);
  DisplayGrid(DisplayGrid const&) = delete;
  DisplayGrid& operator=(DisplayGrid const&) = delete;

  /// The table that the grid lays out.
  OmPivotTable const& Table() const { return table_; }

  /// How many rows the column headings and the corner take, from the top; 0 when there are none.
  int HeadingRows() const { return headingRows_; }

  /// How many columns the row headings and the corner take, from the left; 0 when there are none.
  int HeadingColumns() const { return headingColumns_; }

  int Rows() const { return rows_; }        ///< how many there are, those of headings included
  int Columns() const { return columns_; }  ///< how many there are, those of headings included

  /// The corner and both headings, by the row and then by the column in which they start. Valid as
  /// long as the grid.
  std::vector<GridCell> const& Headings() const { return headings_; }

  /// Those of them that start in grid row `row`; none for a row outside the grid. Constant time.
  GridCells Headings(int row) const;

  /// The cells of one row of the body; see BodyRow. Takes time linear in the table's dimensions.
  /// Requires: `row` is at least HeadingRows() and below Rows().
  BodyRow Body(int row) const;

  /// What to say of the layer, one entry per layer dimension, outermost first; empty without one.
  /// Valid as long as the grid.
  std::vector<LayerLabel> const& LayerLabels() const { return layerLabels_; }

 private:
  void BuildHeadings(OmDisplayColumnHeading const& columns);
  void AddCorner(std::vector<bool> const& startsDimension);
  void AddColumnHeadings(OmDisplayColumnHeading const& columns);
  void AddRowHeadings(std::vector<bool> const& startsDimension);
  void ReadLayer(OmDisplayLayerHeading& layers);
  void ReadColumns(OmDisplayColumnHeading const& columns);
  bool HasCornerText() const;

  OmPivotTable const& table_;
  OmDisplayRowHeading rowHeading_;
  int headingRows_ = 0;
  int headingColumns_ = 0;
  int rows_ = 0;
  int columns_ = 0;
  std::vector<GridCell> headings_;
  std::vector<std::size_t>
      headingStarts_;  // per row, where its cells start in headings_; and the end
  std::vector<LayerLabel> layerLabels_;

  // A full cell index with -1 for each dimension that the row or the column is still to supply, and
  // for a layer dimension without a category: no cell has that subscript.
  std::vector<int> layerIndex_;
  std::vector<int> columnDimensions_;
  std::vector<int> columnSubscripts_;  // per body column, one for each of columnDimensions_
};

/// The cells of one body row of a grid, which must outlive it.
///
/// Thread safety: none; one thread at a time uses a row. Several threads may use a row each, also
/// while another one goes on with the grid, as long as none changes the table.
class LAKRESVOS_RENDER_EXPORT DisplayGrid::BodyRow {
 public:
  /// The cell in grid column `column`, owned by the table; null when there is none.
  /// Allocates nothing; constant time for a given number of dimensions, and best from left to right.
  /// Requires: `column` is at least HeadingColumns() and below Columns().
  OmCellText* Cell(int column);

 private:
  friend class DisplayGrid;

  BodyRow(DisplayGrid const& grid, std::vector<int> index)
      : grid_(grid), index_(std::move(index)) {}

  OmCellText* Find(int column);

  static constexpr int kAhead = 8;
  static constexpr int kRoom = 2 * kAhead;

  DisplayGrid const& grid_;
  std::vector<int> index_;

  // The cells of columns first_ to next_ - 1, as far as there is room for them: a row is mostly read
  // from left to right, and its cells lie far apart in memory.
  std::array<OmCellText*, kRoom> found_{};
  int first_ = 0;
  int next_ = 0;
};

}  // namespace lakresvos::render

#endif
