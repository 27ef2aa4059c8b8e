#ifndef LAKRESVOS_OMVECTORTREEWALK_H
#define LAKRESVOS_OMVECTORTREEWALK_H

#include <cstddef>
#include <vector>

/// A walk over the nodes of an OmVectorTree in preorder, children in their order.
///
/// The walk knows the path to its current node, so nothing depends on the parent links. It keeps
/// that path on the heap: a tree of any depth can be walked. A whole walk takes time linear in the
/// number of nodes and memory linear in the depth.
///
///     OmVectorTreeWalk walk(dimension.Root());
///     while (walk.Next()) {
///       Use(walk.Current());
///     }
///
/// Requires: the tree does not change during the walk, except for the values of its nodes, and
/// outlives it. Handles that the walk gives are valid as other handles of the tree are.
///
/// Thread safety: none; one thread at a time uses a walk and its tree.
///
/// @tparam Handle OmVectorTree<T>::Node or OmVectorTree<T>::ConstNode.
template <class Handle>
class OmVectorTreeWalk {
 public:
  /// Starts before `root`, which may be any node; an empty handle makes an empty walk. The walk
  /// keeps to the subtree of `root`. Throws nothing.
  explicit OmVectorTreeWalk(Handle root) : root_(root) {}

  /// Steps to the next node, first to the root; false when there is none left. Amortized constant
  /// time.
  /// @throws std::bad_alloc; the walk is then where it was.
  bool Next() {
    if (!started_) {
      bool const entered = Enter(root_);
      started_ = true;
      return entered;
    }
    while (!path_.empty()) {
      std::size_t const level = nextChild_.size() - 1;
      if (nextChild_[level] < path_[level].NChildren()) {
        Enter(path_[level].Child(nextChild_[level]));
        ++nextChild_[level];
        return true;
      }
      path_.pop_back();
      nextChild_.pop_back();
    }
    return false;
  }

  /// The node that the last Next() stepped to. Requires: that Next() gave true. Constant time;
  /// throws nothing.
  Handle Current() const { return path_.back(); }

  /// The nodes from the root of the walk to the current one; empty before the first Next() and
  /// after the last. The reference is valid as long as the walk and shows its later steps.
  std::vector<Handle> const& Path() const { return path_; }

  /// Leaves out everything below the current node, so that Next() steps to what follows its
  /// subtree. Requires: the last Next() gave true.
  void SkipChildren() { nextChild_.back() = path_.back().NChildren(); }

 private:
  bool Enter(Handle node) {
    if (node.element == nullptr) {
      return false;
    }
    path_.push_back(node);
    try {
      nextChild_.push_back(0);
    } catch (...) {
      path_.pop_back();
      throw;
    }
    return true;
  }

  Handle root_;
  bool started_ = false;
  std::vector<Handle> path_;
  std::vector<std::size_t> nextChild_;
};

#endif
