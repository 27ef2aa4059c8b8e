#ifndef LAKRESVOS_OMDISPLAYLAYERHEADING_H
#define LAKRESVOS_OMDISPLAYLAYERHEADING_H

#include <deque>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmDimension.h>

class OmDisplayColumnHeading;
class OmDisplayRowHeading;
class OmPivotTable;

/// The layers of a pivot table, and the ground on which its row and column headings are laid out.
///
/// A layer is one combination of categories of the layer dimensions. Layer position 0 is the last
/// entry of the table's layer axis, and so on down to the first; layers are numbered with that
/// first entry varying fastest. After construction no layer is current:
///
///     OmDisplayLayerHeading layers(table, true);
///     while (layers.NextLayer()) {
///       OmDisplayRowHeading rows(layers, true, true);
///       OmDisplayColumnHeading columns(layers, true);
///       ...
///     }
///
/// The table must outlive the heading and must not change while it lives. The heading owns the
/// nodes that its queries and those of row and column headings point to; they are valid as long as
/// it lives.
///
/// Caveats:
/// - Layers are numbered by `int`: those from 2^31 on exist, but no call can make them current.
///   LastLayer() goes to layer 2^31 - 1 where there are more.
/// - Layer places above 2^31 are cut to 32 bits by Fill() and the node queries, though not by
///   SwitchLayer().
/// - restoreLayer() sets the number only; what the row and column headings see is unchanged.
/// - getDimensionIndex() and VisibleWidth() lengthen the layer axis when asked past its end.
///
/// Thread safety: none. Const operations change cached data, so not even readers may share a
/// heading.
class LAKRESVOS_EXPORT OmDisplayLayerHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// Lays out the dimensions of `table`, in time linear in the lengths of their leaves' paths. With
  /// `skipEmpty`, finds the layers that hold a cell, and only these are counted.
  OmDisplayLayerHeading(OmPivotTable& table, bool skipEmpty);
  OmDisplayLayerHeading(OmDisplayLayerHeading const&) = delete;
  OmDisplayLayerHeading& operator=(OmDisplayLayerHeading const&) = delete;
  ~OmDisplayLayerHeading();

  OmPivotTable& Table();
  bool SkipEmpty() const;

  /// The number of layer dimensions.
  int NDimensions() const;

  /// The current layer's number, -1 for none.
  int getLayer() const;

  /// Makes layer `layer` current. -1 leaves no layer current and gives false; any other number that
  /// is not a layer's gives false and changes nothing.
  bool SwitchLayer(int layer);
  bool NextLayer();  ///< SwitchLayer() to the following number
  bool LastLayer();  ///< SwitchLayer() to the last layer, of those whose number is an `int`

  /// Makes the table's remembered layer (OmPivotTable::getLayerLoc()) the current number, whatever
  /// it is, and returns it. The current cell index keeps its values.
  int restoreLayer() const;

  /// The full cell index of the layer chosen last: one subscript per table dimension, 0 for those
  /// that are not layer dimensions.
  std::vector<int> getCurrentCellIndex();

  /// Resizes `index` to one subscript per table dimension and writes the current layer's categories
  /// into it. Does nothing when no layer is current.
  void Fill(std::vector<int>& index);

  /// The table's dimension number at layer position `i`.
  int getDimensionIndex(int i) const;

  /// How many label levels the dimension at layer position `i` shows.
  int VisibleWidth(int i) const;

  /// The nodes to show for layer position `i` in the current layer, outermost first: null for a
  /// hidden level, and nothing from the first shown group on that hides its labels. Empty without a
  /// current layer and for a position past the end.
  std::deque<PathNode*> Nodes(int i) const;

  /// Appends the whole path of layer position `i`'s category, outermost first. Appends nothing for
  /// a path of a single node, without a current layer and for a position past the end.
  void DimAllNodes(int i, std::vector<PathNode*>& out) const;

  /// Sets the two ends of that path; leaves them alone where DimAllNodes() appends nothing.
  void DimCatNodes(int i, PathNode*& outermost, PathNode*& category) const;

 private:
  friend class OmDisplayColumnHeading;
  friend class OmDisplayRowHeading;
  friend class OmDisplayTestAccess;

  Data* _my;
};

#endif
