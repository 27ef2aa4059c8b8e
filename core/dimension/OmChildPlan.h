#ifndef LAKRESVOS_CORE_DIMENSION_OMCHILDPLAN_H
#define LAKRESVOS_CORE_DIMENSION_OMCHILDPLAN_H

#include <cstddef>
#include <vector>

#include <lakresvos/OmDimension.h>

/// A new sequence of children for one node, made up before anything is changed: all that can fail
/// happens until Prepare(), and Apply() only moves bytes.
///
/// Why a plan: an edit of a dimension is described as steps, each of which finds a place by value
/// among the children as the steps before left them, destroys nodes and inserts copies. Any step
/// may fail: a label that cannot be copied or compared, a block that cannot grow. Steps that are
/// done cannot be undone, since nodes live in one block and are destroyed in place. So the steps
/// are carried out on a list of pointers first, where a search sees exactly what it would see; what
/// is to be inserted is copied beside the tree; and the block for the result is at hand before the
/// first byte moves.
///
/// What holds:
///
/// 1. Until Apply(), the parent's children are as they were, but for those that DestroyDropped()
///    destroyed.
/// 2. Apply() and DestroyDropped() allocate nothing and throw nothing.
/// 3. Nodes are destroyed in the order in which the steps name them, for labels may be watched.
/// 4. The capacity afterwards is that of the steps done one by one: that of the fullest moment.
class OmChildPlan {
 public:
  using Element = OmDimension::Element;

  /// Starts with the present children of `parent`.
  explicit OmChildPlan(Element& parent);

  /// The position of the first planned child whose value equals `value`; at the end when none does.
  /// That may be so even for the value of a planned child: a label may differ from itself.
  std::size_t FindEqual(OmDimensionNode const& value) const;

  /// The position of a planned child; at the end when it is not planned.
  std::size_t Find(Element const* child) const;

  /// Plans a new child, which Apply() takes over: `child` is empty afterwards.
  void Insert(std::size_t position, Element& child) { InsertAll(position, {&child}); }

  /// Plans new children in this order, as Insert(); linear in all children.
  void InsertAll(std::size_t position, std::vector<Element*> const& children);

  /// Plans the end of the child at `position`.
  void Drop(std::size_t position) { DropAll({position}); }

  /// Plans the end of the children at these different positions, in this order; linear in all
  /// children.
  void DropAll(std::vector<std::size_t> const& positions);

  Element* operator[](std::size_t position) const { return order_[position]; }
  std::size_t size() const { return order_.size(); }

  /// Gets the memory that Apply() needs. Nothing may be planned any more.
  void Prepare();

  /// Destroys the children whose end is planned, in the order in which it was. Only needed before
  /// Apply() where that of another plan must come first.
  void DestroyDropped();

  /// Carries the plan out. Parent links are left as they are. Children before the first change stay
  /// where they are unless more room is needed.
  void Apply();

 private:
  Element& parent_;
  std::vector<Element*> order_;
  std::vector<Element*> inserted_;
  std::vector<Element*> dropped_;
  std::size_t maxSize_;            ///< how many children the plan held at its fullest
  OmVector<Element> destination_;  ///< the new block, or a copy of the present one in the meantime
  bool grows_ = false;
};

#endif
