#ifndef LAKRESVOS_OMDIMENSION_H
#define LAKRESVOS_OMDIMENSION_H

#include <cstddef>
#include <vector>

#include <cells/OmCellText.h>
#include <lakresvos/Export.h>
#include <lakresvos/OmVectorTree.h>

/// One node of a dimension: a category, which carries a subscript, or a group of nodes.
///
/// The region of `childIndex` is the node's own; the label is a private copy in it. Requires: the
/// region outlives the node. A node is relocated bitwise by the tree that holds it.
///
/// Thread safety: none; one thread at a time uses a node.
class LAKRESVOS_EXPORT OmDimensionNode {
 public:
  OmCellText* label;        ///< the node's text, owned; null in a default node
  unsigned long subscript;  ///< the category's position along the dimension; all bits set: none
  OmVector<unsigned int> childIndex;  ///< positions of the node's children, in label order
  int sort;         ///< direction in which children are sorted: 0 up, 1 down, 2 none
  bool group;       ///< whether this is a group rather than a category
  bool hide;        ///< whether the display leaves the node out
  bool hideLabels;  ///< whether the display leaves out a group's label and all below it

  /// A default node: no label, no subscript, no flag set, `sort` 2. Throws nothing.
  /// @param region the node's region; null means the default heap.
  explicit OmDimensionNode(OmMemoryRegion* region = nullptr);

  /// A node with a copy of `text` and an empty index.
  /// @param text      the label.
  /// @param subscript the category's position along the dimension; all bits set for a group.
  /// @param group     whether this is a group.
  /// @param region    the node's region, which the copy is made in; null means the default heap.
  /// @throws whatever the text's Clone throws.
  OmDimensionNode(OmCellText const& text, unsigned long subscript, bool group,
                  OmMemoryRegion* region);

  /// A copy in another region; null means the default heap. The index gets exactly the source's
  /// size.
  /// @throws whatever the label's Clone throws, or std::bad_alloc.
  OmDimensionNode(OmDimensionNode const& source, OmMemoryRegion* region);

  /// A copy in the source's own region.
  /// @throws as the copy in another region.
  OmDimensionNode(OmDimensionNode const& source);

  OmDimensionNode& operator=(OmDimensionNode const&) = delete;

  /// Gives the index back to the region and deletes the label.
  ~OmDimensionNode();

  /// Orders siblings: groups before categories, then by the labels' Compare; no label comes first.
  /// Nodes with equal labels and group flags are equivalent, whatever else differs.
  bool operator<(OmDimensionNode const& other) const;

  /// Whether group flag, subscript and label (kind and text) are equal; two missing labels are.
  bool operator==(OmDimensionNode const& other) const;
};

/// A dimension of a pivot table: a tree of groups and categories, whose root names the dimension.
///
/// Categories are addressed by subscript; the number of subscripts, CategoryCount(), is the table's
/// extent along the dimension. The count goes up with each category added and is taken from the
/// subscripts when one is deleted, so that gaps stay. Each group keeps an index of its children by
/// label for Child() and FindChild(); AddNewChild() and the four edits leave it out of order or
/// stale on purpose, being meant for callers that need no lookup.
///
/// The dimension owns its nodes and their labels, all of them copies in its region. A handle is
/// valid until a child is added to, removed from or moved among the children of one of the node's
/// ancestors, see OmVectorTree. Headings that were made of a table are stale after a change.
///
/// Thread safety: none; one thread at a time uses a dimension.
class LAKRESVOS_EXPORT OmDimension : public OmVectorTree<OmDimensionNode> {
 public:
  /// A handle of a group or category, to read or change.
  using Node = OmVectorTree<OmDimensionNode>::Node;
  /// A handle of a group or category, to read.
  using ConstNode = OmVectorTree<OmDimensionNode>::ConstNode;

  /// Makes a dimension without categories, its root a copy of `root`.
  /// @param root   names the dimension; a root that is to have children by Child() is a group.
  /// @param region supplies all storage; null means the default heap. Requires: it outlives the
  ///        dimension.
  /// @throws whatever the label's Clone throws, or std::bad_alloc.
  OmDimension(OmDimensionNode const& root, OmMemoryRegion* region);

  /// A deep copy in another region, with the category count, subscripts, flags and indexes as they
  /// are; null means the default heap. Linear in the number of nodes.
  /// @throws whatever a label's Clone throws, or std::bad_alloc.
  OmDimension(OmDimension const& other, OmMemoryRegion* region);

  /// Destroys all nodes; needs no memory, however deep the tree is.
  ~OmDimension();

  // Children
  //
  // A parent that is empty, past the end, or recognizably of another tree takes no child: the
  // result is an empty handle and nothing changes. Recognized, in constant time, are another tree's
  // root, the children of one, and every node whose children live in another region.

  /// The child of `parent` that equals `value` (label and group flag), or a new last child that is
  /// a copy of it, without index entries; the child that is found keeps its own subscript. A new
  /// label shares the context of the parent's. A new category raises the category count by 1.
  /// Finding takes logarithmic time; adding in label order takes amortized constant time more, any
  /// other order moves the later index entries.
  /// @throws OMSException "OmDimension::Child -- parent is not group", or whatever an operation of
  ///         a label throws; the dimension is then unchanged.
  Node Child(Node const& parent, OmDimensionNode const& value);

  /// The same with a node made of a text, a subscript and a group flag.
  /// @throws as the form with a node.
  Node Child(Node const& parent, OmCellText const& text, unsigned long subscript, bool group);

  /// Appends a child without looking for an equal one and without testing that `parent` is a group.
  /// The parent's index is not kept in label order, so that Child() and FindChild() may miss its
  /// children from then on. A new category raises the category count by 1. Amortized constant time.
  /// @throws whatever an operation of a label throws; the dimension is then unchanged.
  Node AddNewChild(Node const& parent, OmCellText const& text, unsigned long subscript, bool group);

  /// The position of the child of `parent` with this label and group flag, 0xFFFFFFFF when the
  /// index names none or the handle is empty. Logarithmic time; no allocation.
  /// @throws whatever comparing labels throws.
  static unsigned int FindChild(ConstNode parent, OmCellText const& text, bool group);

  /// Removes the node and its subtree, repairs the parent's index and recounts the categories as 1
  /// plus the largest subscript (1 when none is left). Does nothing for the root and for a handle
  /// of another tree. Cells of a table are not deleted with their categories. Linear in the number
  /// of nodes.
  /// @throws std::bad_alloc; the dimension is then unchanged.
  void Delete(Node& node);

  /// The node of this dimension at the same path of child positions as `node` has in its own, which
  /// is a copy of this one; empty where this dimension is smaller. Aborts for a stale handle, see
  /// OmVectorTree::Node. Linear in the depth.
  /// @throws std::bad_alloc.
  Node Counterpart(Node& node);

  // Edits
  //
  // An edit copies the nodes that change place, finds a place by the value of the node that is
  // there (the first child that equals it counts), and rebuilds every parent link under the node
  // that receives them. Subscripts travel with the nodes. No edit maintains an index of children:
  // Child() and FindChild() are unreliable under an edited parent. Handles of nodes under a changed
  // parent are stale afterwards. Each takes time linear in the number of nodes.
  //
  // Senseless arguments do nothing: a handle of another tree, the root moved or wrapped, a node
  // moved into or before itself, nodes to wrap that are not different children of one parent.
  //
  // What an edit throws, it throws with the dimension unchanged: whatever a label's operation
  // throws, or std::bad_alloc.

  /// Adds a category to `parent`, before `sibling` or after it; at the end when no child of the
  /// parent equals the one that it is to come before. Its subscript is 1 more than the largest; it
  /// shares the context of the sibling's label. Raises the category count by 1.
  /// @return the new category's value, in the default heap; a default node when `parent` names no
  ///         node of this dimension.
  OmDimensionNode insertCategory(OmCellText const& text, Node sibling, Node parent, bool before);

  /// Wraps children of one parent into a new group that takes the place of the first of `nodes` and
  /// holds them in the given order. Nothing to wrap changes nothing.
  /// @param text  the group's label, copied.
  /// @param nodes handles of the children; the caller keeps them, and they are stale afterwards.
  void insertChild(OmCellText const& text, std::vector<Node*> nodes);

  /// Dissolves a group: its children take its place. Sets the group's subscript to -2 (all bits but
  /// the lowest) in any case, and does nothing else to the root or a group without children.
  /// @param group then points at the place that the group had after its children had come before
  ///        it, which its next sibling takes, or past the end.
  void removeChild(Node& group);

  /// Moves `node` before `target`; or exchanges the two among siblings (nodes under different
  /// parents each become the last child of their own parent, unless a child there equals the
  /// other's next sibling); or, without a target, makes `node` the last child of its nearest
  /// ancestor that is not hidden.
  void moveChild(Node& node, Node* target, bool exchange);

  // Queries

  /// The number of subscripts, which is the table's extent along the dimension. Constant time;
  /// throws nothing.
  unsigned int CategoryCount() const { return categoryCount_; }

  /// Sets the number of subscripts, for a producer that restores a dimension whose nodes do not say
  /// how many there are. No node and no cell changes. Child(), AddNewChild() and insertCategory()
  /// count on from here; Delete() counts anew. Constant time; throws nothing.
  void setCategoryCount(unsigned int count) { categoryCount_ = count; }

  /// The largest depth of any handle in the subtree, the handle's own depth taken as it is. Linear
  /// in the subtree.
  /// @throws std::bad_alloc, as the queries below.
  unsigned int getDepth(ConstNode node) const;

  /// The number of levels, the root's included. Linear in the number of nodes.
  unsigned int getMaximumDepth() const;

  /// Adds to `counts`, at the level of each node below `node`, 1 for each visible group and 1 for
  /// each parent that has a childless category or hidden group. Levels past the end are left out.
  /// The vector keeps its length. Linear in the subtree; what throws changes no count.
  void getGroupCountsByLevel(ConstNode node, std::vector<unsigned long>& counts) const;

  /// The largest of all levels' counts, as getGroupCountsByLevel() gives them for the root. Linear
  /// in the number of nodes.
  unsigned long getMaxVisibleGroupCount() const;

 private:
  /// Whether `parent` can take a child, as far as that can be told in constant time.
  bool AcceptsChild(Node const& parent) const;

  /// Child() for a node that is made in the dimension's region of `value`.
  template <class... Arguments>
  LAKRESVOS_HIDDEN Node FindOrAdd(Node const& parent, Arguments const&... value);

  /// Appends a child that takes over `node`, and enters it at `position` in the parent's index.
  Node AdoptIndexed(Node const& parent, OmDimensionNode& node, std::size_t position);

  /// The nodes from the root to the parent of `node`; empty for the root and what is not in this
  /// tree. Found from the root: parent links play no part, for removals leave them stale.
  std::vector<Element*> FindAncestors(Element const* node);

  /// 1 plus the largest subscript of any category, taken as 32 bits, 0 when there is none.
  /// @param without a node to leave out with everything below it, or null.
  unsigned int FindNextSubscript(Element const* without = nullptr) const;

  unsigned int categoryCount_ = 0;
};

#endif
