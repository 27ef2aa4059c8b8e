#ifndef TESTS_SUPPORT_LAYOUTMODEL_H
#define TESTS_SUPPORT_LAYOUTMODEL_H

#include <cstddef>
#include <deque>
#include <optional>
#include <ostream>
#include <vector>

#include <lakresvos/OmDimension.h>
#include <lakresvos/OmPivotTable.h>

/// A plain, slow layout of a pivot table, to compare the library's headings with. It reads the
/// table through its public interface, tries every combination, and recurses as deep as the trees
/// are.
namespace layout_model {

using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;
using Place = unsigned long long;
using Digits = std::vector<unsigned int>;

constexpr unsigned int kNoPosition = 0xFFFFFFFF;

/// One heading cell: a node and its level, or nothing.
struct Shown {
  OmVectorTree<OmDimensionNode>::Element const* element = nullptr;
  unsigned int depth = 0;

  bool operator==(Shown const&) const = default;
};
using ShownList = std::vector<Shown>;

std::ostream& operator<<(std::ostream& out, Shown const& shown);

/// What the library's node queries give, in comparable form.
ShownList Seen(std::deque<PathNode*> const& nodes);
ShownList Seen(std::vector<PathNode*> const& nodes);

/// A place as it is after a detour through a signed 32-bit number.
Place Narrow(Place place);

/// A count as the headings return it.
int Count(Place count);

/// The leaves of one dimension, in the order of the tree.
struct Header {
  using Path = std::vector<PathNode>;

  explicit Header(OmDimension const& dimension);

  Path const* PathAt(std::size_t position) const {
    return position < paths.size() ? &paths[position] : nullptr;
  }

  std::vector<Path> paths;  ///< per leaf: the leaf first, the root last
  std::vector<int> levelCounts;
  int maxLevels = 0;
  std::vector<unsigned int> visibleCategories;
  std::vector<unsigned int> categoryPositions;

 private:
  void Walk(PathNode node, Path& fromRoot);
  void AddLeaf(Path const& fromRoot);
};

/// The number system of an axis, most significant dimension first.
struct Axis {
  Axis() = default;
  Axis(std::vector<short> dimensions, std::vector<int> const& sizes);

  Place Size() const;
  Digits DigitsOf(Place place) const;

  std::vector<short> dims;
  std::vector<unsigned int> radices;
};

/// The layer heading.
class Layers {
 public:
  Layers(OmPivotTable const& table, bool skipEmpty);

  bool SwitchLayer(int layer);
  bool NextLayer() { return SwitchLayer(currentLayer + 1); }
  bool LastLayer() { return SwitchLayer(static_cast<int>(nLayers - 1)); }
  int restoreLayer() { return currentLayer = table.getLayerLoc(); }
  void Fill(std::vector<int>& index) const;
  int VisibleWidth(std::size_t i) const;
  ShownList Nodes(std::size_t i) const;
  ShownList DimAllNodes(std::size_t i) const;

  Header const* HeaderOf(long long dimension) const;
  bool IsSparse() const;
  std::vector<Place> NonEmpty(Axis const& heads, Axis const& others) const;
  std::vector<Place> NonEmptySparse(Axis const& heads) const;
  std::vector<Place> NonEmptyDense(Axis const& heads, Axis const& others) const;
  std::vector<int> VisibleLevels(std::vector<Place> const& places, Axis const& axis) const;
  void Fill(Place place, Axis const& axis, std::vector<int>& index) const;

  OmPivotTable const& table;
  bool skipEmpty;
  std::vector<int> sizes;
  std::vector<Header> headers;
  bool sparse;
  std::vector<int> cellIndex;
  Axis layers;
  std::vector<Place> nonEmptyLayers;
  Place nLayers = 0;
  int currentLayer = -1;
  mutable Place probes = 0;  ///< how many cells the dense searches asked for

 private:
  std::optional<Place> CurrentPlace() const;
  Header::Path const* CurrentPath(std::size_t i) const;
  bool PutHeads(Axis const& heads, Place place, std::vector<int>& index) const;
  bool AnyCell(Axis const& others, std::vector<int> index) const;
};

enum class Side { Rows, Columns };

/// A row or column heading in the current layer of `layers`. The names speak of rows.
class Heading {
 public:
  Heading(Layers const& layers, Side side, bool skipEmpty, bool dimNamesInCorner);

  ShownList Row(int r) const;
  ShownList Column(std::size_t k) const;
  ShownList RowCategories(int r) const;
  ShownList DimAllNodes(int r) const;
  ShownList Outermost(int r) const;
  ShownList Categories(int r) const;
  void Fill(std::vector<int>& index, int r) const;
  std::vector<Place> Places() const;

  Layers const& layout;
  Side side;
  bool skipEmpty;
  bool dimNamesInCorner;
  Axis heads;
  std::vector<Place> nonEmpty;
  Place nPlaces;
  std::vector<int> visibleLevels;  ///< of the heading dimensions that the table has
  Place totalLevels = 0;
  std::vector<OmCellText const*> cornerLabels;

 private:
  std::optional<Place> PlaceOf(int r) const;
  std::vector<Header::Path const*> LongPaths(int r) const;
  std::vector<Header::Path const*> PathsAt(Place place) const;
  ShownList RowAt(Place place) const;
  void ReduceLevels();
  void CollectCorner();
};

/// An axis as the headings take it: from its last entry to its first.
std::vector<short> Reversed(PuppetVector<short> const& axis);

}  // namespace layout_model

#endif
