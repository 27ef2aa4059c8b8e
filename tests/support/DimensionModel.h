#ifndef TESTS_SUPPORT_DIMENSIONMODEL_H
#define TESTS_SUPPORT_DIMENSIONMODEL_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/OmDimension.h>

/// A dimension as plain nodes that share ownership of each other, with its rules written out one by
/// one: everything is looked for from the root and by value. To compare the library's dimensions
/// with; labels are told apart by their texts.
namespace dimension_model {

struct Node;
using NodePtr = std::shared_ptr<Node>;

/// The positions of children that lead from the root to a node; empty for the root.
using Path = std::vector<std::size_t>;

struct Node {
  std::string label;
  unsigned long subscript = ~0UL;
  bool group = false;
  bool hide = false;
  bool hideLabels = false;
  int sort = 2;
  std::vector<unsigned int> index;
  std::vector<NodePtr> children;
  bool linked = true;  ///< whether the node is sure to name its parent

  bool Equals(Node const& other) const {
    return group == other.group && subscript == other.subscript && label == other.label;
  }
};

class Dimension {
 public:
  explicit Dimension(std::string const& label, unsigned long subscript = 0);

  Node& At(Path const& path) const;

  /// @return the position of the child that was found or added.
  std::size_t Child(Path const& parent, std::string const& label, unsigned long subscript,
                    bool group);
  std::size_t AddNewChild(Path const& parent, std::string const& label, unsigned long subscript,
                          bool group);
  void Delete(Path const& path);

  /// @param sibling null for none.
  Node insertCategory(std::string const& label, Path const* sibling, Path const& parent,
                      bool before);
  void insertChild(std::string const& label, std::vector<Path> const& nodes);

  /// @return where the handle points afterwards.
  Path removeChild(Path const& group);
  void moveChild(Path const& node, Path const* target, bool exchange);

  /// Everything that the nodes hold, as TextOf() gives it for a dimension without stale links.
  std::string Text() const;

  /// The first node that is sure to name its parent and does not in `dimension`, a dimension of the
  /// same shape; empty for none.
  std::string FirstUnlinked(OmDimension const& dimension) const;

  NodePtr root;
  unsigned int categoryCount = 0;

 private:
  unsigned int NextSubscript() const;
  void ExchangeSiblings(Node& parent, NodePtr const& node, NodePtr const& target);
  void ExchangeCousins(Path const& node, Path const& target);
};

}  // namespace dimension_model

#endif
