#ifndef LAKRESVOS_OMOUTPUTTREE_H
#define LAKRESVOS_OMOUTPUTTREE_H

#include <cstddef>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// @file
/// The output document, the tree that it is kept in, and the cutting of its items.

/// An ordered tree kept as one list in preorder, in which depths alone imply the structure.
///
/// Each element is followed by its whole subtree before its next sibling. The root level has depth
/// 0; the children of an element at depth d are the following elements at depth d + 1, up to the
/// first one whose depth is d or less. A handle is valid until its element is removed; changes to
/// other elements leave it alone, though its `depth` is a copy that PromoteDescendants() does not
/// reach.
///
/// Appending below an element whose subtree reaches the end of the list takes constant time; below
/// another one, time linear in its subtree.
///
/// The tree destroys its values and nothing that they point at; OmOutputTree owns its items.
///
/// Thread safety: none; one thread at a time uses a tree and its handles.
///
/// @tparam T the value; default-constructible and copyable.
template <class T>
class ListTree {
 public:
  /// One entry of the list.
  struct Element {
    T value;    ///< the stored value
    int depth;  ///< its level, 0 for the root level
  };

  /// A place in the list; the list's end is the end position.
  using Position = typename std::list<Element>::iterator;

  /// A value handle of an element or of the end position. Copying it copies no element. Queries
  /// that say nothing else take constant time and throw nothing.
  struct Node {
    ListTree* tree = nullptr;  ///< the tree that the handle belongs to
    int depth = 0;             ///< a copy of the element's depth; 0 at the end position
    Position position{};       ///< the element, or the list's end

    /// A handle that belongs to no tree.
    Node() = default;

    /// The handle of the element at `at`, with that element's depth.
    /// @param owner the tree; not null.
    /// @param at    a place in that tree's list, or its end.
    Node(ListTree* owner, Position at)
        : tree(owner), depth(at == owner->list_.end() ? 0 : at->depth), position(at) {}

    /// Whether the handle is at the end position, or belongs to no tree.
    bool AtEnd() const { return tree == nullptr || position == tree->list_.end(); }

    /// The stored value, to read or change; valid until the element is removed. At the end position
    /// a default value that belongs to no tree and is made anew at each call.
    T& Value() const { return AtEnd() ? GetDefaultValue() : position->value; }
    /// The same as Value().
    T& operator*() const { return Value(); }

    /// Steps to the next element in preorder; does nothing at the end.
    Node& operator++() {
      if (!AtEnd()) {
        *this = Node(tree, std::next(position));
      }
      return *this;
    }
    /// Steps to the next element in preorder and returns the handle from before.
    Node operator++(int) {
      Node const before = *this;
      ++*this;
      return before;
    }

    /// Whether both are at the same position of the same tree, or both belong to no tree. Depths do
    /// not count.
    bool operator==(Node const& other) const {
      return tree == other.tree && (tree == nullptr || position == other.position);
    }
    /// The opposite of `==`.
    bool operator!=(Node const& other) const { return !(*this == other); }

    /// The first element after this one whose depth is not greater than the handle's, or the end.
    /// Linear in the subtree unless that is known to reach the end of the list.
    Node SubtreeEnd() const { return AtEnd() ? *this : Node(tree, tree->FindSubtreeEnd(*this)); }

    /// The first child, or the end position when there is none.
    Node FirstChild() const {
      Node next = *this;
      ++next;
      return next.AtEnd() || next.depth > depth ? next : End();
    }

    /// The next element with the same parent, or the end position when there is none. As fast as
    /// SubtreeEnd().
    Node NextSibling() const {
      Node const next = SubtreeEnd();
      return next.AtEnd() || next.depth == depth ? next : End();
    }

    /// Appends a last child and returns its handle. At the end position nothing is appended and
    /// the handle comes back. What `value` points at belongs to the tree once it is appended, and
    /// is the caller's until then.
    /// @throws std::bad_alloc; nothing is appended then.
    Node AppendChild(T value) const {
      return AtEnd() ? *this : tree->InsertBelow(*this, std::move(value));
    }

    /// As AppendChild(), for trees of pointers: `item` gives up what it owns once that is appended,
    /// and keeps it otherwise.
    /// @tparam Item what the tree's pointers can point at.
    /// @throws std::bad_alloc; `item` then keeps what it owns.
    template <class Item>
    Node AppendChild(std::unique_ptr<Item>&& item) const {
      Node const child = AppendChild(item.get());
      if (child != *this) {
        static_cast<void>(item.release());
      }
      return child;
    }

   private:
    Node End() const { return tree->end(); }
  };

  /// An empty tree. Throws nothing.
  ListTree() = default;
  ListTree(ListTree const&) = delete;
  ListTree& operator=(ListTree const&) = delete;

  /// The handle of the first element, which is the root of an output document; the end position of
  /// an empty tree.
  Node begin() { return Node(this, list_.begin()); }
  /// The handle of the end position.
  Node end() { return Node(this, list_.end()); }

  /// All elements in preorder, to read a tree that may not be changed. A tree of pointers keeps
  /// what its elements are, not what they point at, from changing. Valid as long as the tree; an
  /// iterator into it, until its element is removed.
  std::list<Element> const& Elements() const { return list_; }

  /// Whether there are no elements.
  bool empty() const { return list_.empty(); }
  /// The number of elements, at all levels. Constant time.
  std::size_t size() const { return list_.size(); }

  /// Appends an element at root level and returns its handle; constant time. What `value` points at
  /// belongs to the tree once it is appended, and is the caller's until then.
  /// @throws std::bad_alloc; nothing is appended then.
  Node Append(T value) { return InsertAtEnd(std::move(value), 0); }

  /// Moves everything below an element of this tree up by one level: starting after it, lowers the
  /// depth of every element while that is greater than the given element's. Handles of those keep
  /// the depth that they had. Does nothing for the end position and for a handle of another tree.
  /// Linear in the subtree; throws nothing.
  void PromoteDescendants(Node const& node) {
    if (!Holds(node)) {
      return;
    }
    int const level = node.position->depth;
    for (Position at = std::next(node.position); at != list_.end() && at->depth > level; ++at) {
      --at->depth;
    }
    ForgetTail(level);
  }

  /// Removes one element of this tree and nothing else; what its value points at is not touched,
  /// and the handle dangles afterwards. Does nothing for the end position and for a handle of
  /// another tree. Constant time; throws nothing.
  void Unlink(Node const& node) {
    if (!Holds(node)) {
      return;
    }
    Position const at = node.position;
    if (ReachesEnd(at, at->depth)) {
      tail_[static_cast<std::size_t>(at->depth)] = list_.end();
    }
    list_.erase(at);
  }

 protected:
  ~ListTree() = default;

  /// Whether the handle is at an element of this tree, as far as the handle says.
  bool Holds(Node const& node) const { return node.tree == this && !node.AtEnd(); }

 private:
  static T& GetDefaultValue() {
    thread_local T none;
    return none = T();
  }

  /// Whether the tail says that the subtree of `at`, which has this depth, reaches the list's end.
  bool ReachesEnd(Position at, int depth) const {
    auto const level = static_cast<std::size_t>(depth);
    return depth >= 0 && level < tail_.size() && tail_[level] == at;
  }

  void ForgetTail(int depth) {
    if (depth >= 0 && static_cast<std::size_t>(depth) < tail_.size()) {
      tail_.resize(static_cast<std::size_t>(depth), list_.end());
    }
  }

  Position FindSubtreeEnd(Node const& node) {
    if (ReachesEnd(node.position, node.depth)) {
      return list_.end();
    }
    Position at = std::next(node.position);
    while (at != list_.end() && at->depth > node.depth) {
      ++at;
    }
    return at;
  }

  Node InsertBelow(Node const& node, T value) {
    int const depth = node.depth + 1;
    Position const before = FindSubtreeEnd(node);
    if (before == list_.end()) {
      Node const child = InsertAtEnd(std::move(value), depth);
      if (node.depth >= 0 && node.depth == node.position->depth) {
        tail_[static_cast<std::size_t>(node.depth)] = node.position;
      }
      return child;
    }
    return Node(this, list_.insert(before, Element{std::move(value), depth}));
  }

  Node InsertAtEnd(T value, int depth) {
    auto const level = static_cast<std::size_t>(depth);
    if (depth >= 0 && tail_.capacity() <= level) {
      tail_.reserve(level * 2 + 1);
    }
    Position const at = list_.insert(list_.end(), Element{std::move(value), depth});
    if (depth >= 0) {
      tail_.resize(level, list_.end());
      tail_.push_back(at);
    }
    return Node(this, at);
  }

  std::list<Element> list_;

  /// tail_[d], where it is not the list's end, is an element of depth d whose subtree reaches the
  /// list's end. Appending at depth d ends the subtrees of depth d and deeper and no others;
  /// removing an element ends none.
  std::vector<Position> tail_;
};

/// The output document of one analysis run: a tree that owns its items.
///
/// A new tree holds the root, an OmHeading labeled "Output". Items are made with `new` and
/// appended below it; from then on the tree deletes them. Requires: an item is in one tree, once.
///
///     OmOutputTree tree;
///     tree.begin().AppendChild(std::make_unique<OmTextBlock>(label, "text"));
///
/// Thread safety: none; one thread at a time uses a tree and its items.
class LAKRESVOS_EXPORT OmOutputTree : public ListTree<OmOutputPart*> {
 public:
  /// A tree with the root alone.
  /// @throws std::bad_alloc.
  OmOutputTree();

  /// Deletes every item in preorder. What an item's destructor throws is discarded.
  ~OmOutputTree();

  /// Deletes one item and removes it; its children take its place and depth, with their subtrees.
  /// The handle dangles afterwards, and handles of what was below it keep their old depths. Does
  /// nothing at the end position and for a handle of another tree. Linear in the subtree.
  /// @throws what the item's destructor throws; the element then stays, with a null value.
  void Erase(ListTree<OmOutputPart*>::Node& node);

  /// Deletes an item and its whole subtree, descendants before their ancestors and children from
  /// first to last. The handle and those of the subtree dangle afterwards. Does nothing at the end
  /// position and for a handle of another tree. Linear in the subtree; needs no memory.
  /// @throws what an item's destructor throws; that element then stays, with a null value, and so
  ///         does what was still to be deleted.
  void Prune(ListTree<OmOutputPart*>::Node& node);
};

/// Cuts an item's content away and leaves a text block in its place.
///
/// The root and the items directly below it are kept: their subtrees are deleted and a text block
/// with `label` and `text` becomes the only child, whose handle is returned. A deeper item is
/// deleted: its children move up to its depth, followed by a text block with a copy of the item's
/// label and `text`; the handle of the first of these is returned, and `label` is not used and may
/// be null.
///
/// `label` and `text` may belong to what goes. At the end position nothing happens and the handle
/// comes back. Requires: `node.tree` is an OmOutputTree. Linear in the subtree.
///
/// @param node  the item; the handle dangles afterwards where the item is deleted.
/// @param label the text block's label, copied; null stands for an empty one.
/// @param text  what the text block says, copied.
/// @throws std::bad_alloc, or what copying the label throws; the subtree of an item that is kept
///         is deleted nevertheless, and a deeper item is unchanged.
/// @throws what an item's destructor throws; no text block is left then. Of an item that is kept,
///         the subtree is left as by OmOutputTree::Prune(): the element of the item that threw with
///         a null value, and what was still to be deleted. A deeper item's element stays with a
///         null value and the children that it had.
LAKRESVOS_EXPORT ListTree<OmOutputPart*>::Node Amputate(ListTree<OmOutputPart*>::Node node,
                                                        OmCellText const* label,
                                                        std::string const& text);

#endif
