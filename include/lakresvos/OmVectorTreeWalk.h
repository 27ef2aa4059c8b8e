#ifndef LAKRESVOS_OMVECTORTREEWALK_H
#define LAKRESVOS_OMVECTORTREEWALK_H

#include <cstddef>
#include <vector>

/// A walk over the nodes of an OmVectorTree in preorder, children in their order.
///
/// The walk knows the path to the node that it stands on, so nothing depends on the parent links.
/// It keeps that path on the heap: a tree of any depth can be walked.
///
///     OmVectorTreeWalk walk(dimension.Root());
///     while (walk.Next()) {
///       Use(walk.Current());
///     }
///
/// The tree must not change during the walk, except for the values of its nodes.
///
/// Thread safety: none; one thread at a time uses a walk and its tree.
///
/// @tparam Handle OmVectorTree<T>::Node or OmVectorTree<T>::ConstNode.
template <class Handle>
class OmVectorTreeWalk {
 public:
  /// Starts before `root`, which may be any node; an empty handle makes an empty walk.
  explicit OmVectorTreeWalk(Handle root) : root_(root) {}

  /// Steps to the next node, first to the root; false when there is none left.
  /// @throws std::bad_alloc; the walk then stands where it stood.
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

  /// The node that the walk stands on. Requires: the last Next() gave true.
  Handle Current() const { return path_.back(); }

  /// The nodes from the root of the walk to the current one.
  std::vector<Handle> const& Path() const { return path_; }

  /// Leaves out everything below the current node. Requires: as Current().
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
