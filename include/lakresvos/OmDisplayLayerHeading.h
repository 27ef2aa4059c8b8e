#ifndef LAKRESVOS_OMDISPLAYLAYERHEADING_H
#define LAKRESVOS_OMDISPLAYLAYERHEADING_H

#include <deque>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmDimension.h>

class OmDisplayColumnHeading;
class OmDisplayRowHeading;
class OmPivotTable;

/// The layers of a pivot table, and what its row and column headings are laid out from.
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
/// Requires: the table outlives the heading and does not change meanwhile. The heading owns the
/// nodes that its queries and those of row and column headings point to; they are valid as long as
/// the heading. The table stays unchanged.
///
/// No operation reports an error: a layer that is not there gives false, a position that is not
/// there an empty result. What runs out of memory throws std::bad_alloc and changes nothing.
/// Queries that say nothing else take time linear in the number of layer dimensions.
///
/// Caveats:
/// - Layers are numbered by `int`: those from 2^31 on exist, but no call can make them current.
///   LastLayer() goes to layer 2^31 - 1 where there are more.
/// - Layer places above 2^31 are cut to 32 bits by Fill() and the node queries, though not by
///   SwitchLayer().
/// - restoreLayer() sets the number only; what the row and column headings see is unchanged.
/// - getDimensionIndex() and VisibleWidth() lengthen the heading's own copy of the layer axis when
///   asked past its end.
///
/// Thread safety: none; one thread at a time uses a heading and its table, readers included: const
/// operations change cached data.
class LAKRESVOS_EXPORT OmDisplayLayerHeading {
 public:
  struct LAKRESVOS_HIDDEN Data;
  /// A node on the path from a dimension's root to a category, with its depth.
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// Lays out the dimensions of `table`, in time linear in the lengths of their leaves' paths; no
  /// layer is current then. Counts stored cells up to one per cent of all combinations to tell a
  /// sparse table from a dense one, see OmDisplayRowHeading.
  /// @param table     the table to lay out; kept as a reference.
  /// @param skipEmpty find the layers that hold a cell, and count only these. Linear in the stored
  ///                  cells of a sparse table, and in the entries of the store of a dense one.
  /// @throws std::bad_alloc.
  OmDisplayLayerHeading(OmPivotTable& table, bool skipEmpty);
  OmDisplayLayerHeading(OmDisplayLayerHeading const&) = delete;
  OmDisplayLayerHeading& operator=(OmDisplayLayerHeading const&) = delete;

  /// Ends the validity of all nodes that this heading and the ones made on it gave.
  ~OmDisplayLayerHeading();

  /// The table that the constructor was given.
  OmPivotTable& Table();

  /// Whether layers without a cell are left out.
  bool SkipEmpty() const;

  /// The number of layer dimensions.
  int NDimensions() const;

  /// The current layer's number, -1 for none. With SkipEmpty(), layers are numbered without those
  /// that are left out.
  int getLayer() const;

  /// Makes layer `layer` current and gives true. -1 leaves no layer current and gives false; any
  /// other number that is not a layer's gives false and changes nothing. Row and column headings
  /// made before stay at the layer that they were made for.
  bool SwitchLayer(int layer);

  /// SwitchLayer() to the following number; from no layer to the first. False, with nothing
  /// changed, after the last.
  bool NextLayer();

  /// SwitchLayer() to the last layer, of those whose number is an `int`. False, with no layer
  /// current, when there are none.
  bool LastLayer();

  /// Makes the table's remembered layer (OmPivotTable::getLayerLoc()) the current number, whatever
  /// it is, and returns it. The number is not checked, and the current cell index keeps its values.
  int restoreLayer() const;

  /// The full cell index of the layer chosen last: one subscript per table dimension, 0 for those
  /// that are not layer dimensions.
  std::vector<int> getCurrentCellIndex();

  /// Resizes `index` to one subscript per table dimension and writes the current layer's categories
  /// into it; slots of other dimensions keep their values, and new ones are 0. Does nothing when no
  /// layer is current.
  void Fill(std::vector<int>& index);

  /// The table's dimension number at layer position `i`; the axis' puppet, which is -1 unless
  /// changed, past the end. Asking past the end makes the heading's own copy of the axis that much
  /// longer, and NDimensions() with it.
  /// @throws std::bad_alloc or std::length_error for a position far past the end.
  int getDimensionIndex(int i) const;

  /// How many label levels the dimension at layer position `i` shows: the most of any category's
  /// path, without hidden nodes and without what groups with hidden labels leave out. 0 where the
  /// axis names no dimension of the table. Lengthens the copy of the axis as getDimensionIndex()
  /// does.
  /// @throws as getDimensionIndex().
  int VisibleWidth(int i) const;

  /// The nodes to show for layer position `i` in the current layer, outermost first: null for a
  /// hidden level, and nothing from the first shown group on that hides its labels. Empty without a
  /// current layer and for a position past the end. Linear in the path.
  std::deque<PathNode*> Nodes(int i) const;

  /// Appends the whole path of layer position `i`'s category, outermost first. Appends nothing for
  /// a path of a single node, without a current layer and for a position past the end. Linear in
  /// the path.
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
