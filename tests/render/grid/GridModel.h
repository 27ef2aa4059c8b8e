#ifndef TESTS_RENDER_GRID_GRIDMODEL_H
#define TESTS_RENDER_GRID_GRIDMODEL_H

#include <utility>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/DisplayGrid.h>

/// A display grid worked out position by position, each from the whole rows and columns of the
/// headings, without regard to time.
class GridModel {
 public:
  /// What is at one position of the headings.
  struct Position {
    std::pair<int, int> start;  ///< the row and column in which its cell starts
    OmCellText const* label;
    void const* element;  ///< the tree node that it shows; null for none

    bool operator==(Position const& other) const {
      return start == other.start && label == other.label && element == other.element;
    }
  };

  GridModel(OmDisplayLayerHeading& layers, bool skipEmpty, bool dimNamesInCorner);

  int HeadingRows() const;
  int HeadingColumns() const { return rows_.NColumns(); }
  int Rows() const { return HeadingRows() + rows_.NRows(); }
  int Columns() const { return HeadingColumns() + columns_.NColumns(); }

  /// Requires: the position is in the headings.
  Position At(int row, int column) const;

  /// Requires: the position lies in the body.
  OmCellText* Body(int row, int column) const;

 private:
  /// One heading, its places in the outer and its levels in the inner vector.
  struct Heading {
    std::vector<std::vector<OmDisplayRowHeading::PathNode const*>> nodes;
    std::vector<bool> startsDimension;  // per level

    void const* Element(int place, int level) const;
    bool SamePrefix(int a, int b, int level) const;
    std::pair<int, int> Run(int place, int level) const;
    int Anchor(int place, int level) const;
  };

  Position CornerAt(int column) const;

  OmDisplayLayerHeading& layers_;
  OmDisplayRowHeading rows_;
  OmDisplayColumnHeading columns_;
  Heading rowHeading_;
  Heading columnHeading_;
};

#endif
