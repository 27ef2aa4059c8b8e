#ifndef LAKRESVOS_CORE_LAYOUT_OMDISPLAYROWHEADINGDATA_H
#define LAKRESVOS_CORE_LAYOUT_OMDISPLAYROWHEADINGDATA_H

#include <cstddef>
#include <deque>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "layout/OmDisplayLayerHeadingData.h"

/// What a row heading holds, and a column heading too, with the axes exchanged. The names speak of
/// rows.
struct OmDisplayRowHeading::Data {
  using Layout = OmDisplayLayerHeading::Data;
  using Path = OmDimHeader::Path;

  /// @param axis    the heading's axis; @param across the other one.
  Data(OmDisplayLayerHeading& layer, PuppetVector<short> const& axis,
       PuppetVector<short> const& across, bool skip, bool namesInCorner, bool collectCorner);

  /// The paths of a place, one per heading dimension of the table; null where there is none.
  std::vector<Path*> FindNodes(unsigned long long place);

  /// Appends the heading cells of a place, exactly totalLevels of them.
  void GetRowNodes(unsigned long long place, std::deque<PathNode*>& out);

  /// Appends the category of each heading dimension of the table; null where there is none.
  void GetRowNodeCategories(unsigned long long place, std::deque<PathNode*>& out);

  void FindVisibleLevels();

  /// Fills the corner; whether it placed at least one dimension label.
  bool CollectCornerLabels();

  /// The number of places shown.
  unsigned long long CountPlaces() const;

  /// The place of display row `r`, at full width; false when there is no such row.
  bool FindPlace(int r, unsigned long long& place) const;

  /// The place that the path queries take for `r`: of a row that was not kept, the number itself.
  bool FindPathPlace(int r, unsigned long long& place) const;

  /// The paths of that place that have at least two nodes.
  std::vector<Path*> FindLongPaths(int r);

  /// The heading cells of display row `r`.
  std::deque<PathNode*> Row(int r);

  /// Heading level `level` of every display row. With `narrow`, places are cut to 32 bits.
  std::deque<PathNode*> Level(int level, bool narrow);

  std::deque<PathNode*> RowCategories(int r);
  void DimAllNodes(int r, std::vector<PathNode*>& out);
  void DimCatNodes(int r, std::vector<PathNode*>& outermost, std::vector<PathNode*>& categories);
  void Fill(std::vector<int>& index, int r);
  Layout::Places const& NonEmptyPlaces();

  /// How many levels heading dimension `j` takes.
  int VisibleLevels(int j) const;

  /// The table's dimension number of heading dimension `j`.
  int GetDimensionIndex(int j) const;

  OmDisplayLayerHeading* layerHeading;
  OmPivotTable* table;
  bool skipEmpty;
  bool dimNamesInCorner;
  PuppetVector<short> heads;
  std::vector<OmCellText const*> cornerLabels;
  Layout::Places nonEmpty;
  Layout::PlaceCalculator calc;
  std::vector<unsigned short> visibleLevels;
  unsigned long long nPlaces;
  unsigned long long totalLevels;

 private:
  /// Per heading dimension of the table: its position in `heads` and its header. Entries outside
  /// the table are left out, as they are in `visibleLevels`.
  struct Head {
    std::size_t digit;
    OmDimHeader* header;
  };

  Layout& layout() const;

  /// The path of one heading dimension at a display position, or null.
  static Path* FindPath(Head const& head, std::vector<unsigned int> const& digits);

  /// What the flags of a node make of it, from the root down.
  enum class Visibility { kShown, kSkipped, kEnd };
  Visibility ClassifyNode(PathNode const& node) const;

  /// What each path of a heading dimension shows at one of its levels, or null. Linear in the
  /// number of nodes, however long the paths are.
  std::vector<PathNode*> FindLevelNodes(OmDimHeader& header, std::size_t level) const;

  /// Appends the `width` heading cells of a path, with nulls for what it lacks.
  void AppendLevels(Path* path, std::size_t width, std::deque<PathNode*>& out) const;

  std::vector<Head> known_;
  std::vector<unsigned int> digits_;  ///< scratch of the place queries
};

/// The shared record over the columns.
struct OmDisplayColumnHeading::Data : OmDisplayRowHeading::Data {
  Data(OmDisplayLayerHeading& layer, bool skip);
};

#endif
