#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OMSException.h>
#include <lakresvos/OmDimension.h>

#include "core/dimension/PlainQueries.h"
#include "support/DimensionText.h"
#include "support/Property.h"
#include "support/SpyCell.h"

namespace {

constexpr unsigned int kNotFound = 0xFFFFFFFF;

/// A dimension as plain nodes that own each other, whose rules are written out one by one.
struct PlainNode {
  std::string label;
  unsigned long subscript;
  bool group;
  std::vector<unsigned int> index;
  std::vector<std::unique_ptr<PlainNode>> children;
  bool hide = false;

  bool Less(PlainNode const& other) const {
    return group != other.group ? group : label < other.label;
  }
};

struct PlainDimension {
  PlainNode root{"root", 0, true, {}, {}};
  unsigned int categoryCount = 0;

  /// The child that `probe` stands for at this entry: itself when the entry names none.
  static PlainNode const& At(PlainNode const& parent, unsigned int entry, PlainNode const& probe) {
    return entry < parent.children.size() ? *parent.children[entry] : probe;
  }

  static std::size_t LowerBound(PlainNode const& parent, PlainNode const& probe) {
    auto const found = std::lower_bound(
        parent.index.begin(), parent.index.end(), probe,
        [&](unsigned int entry, PlainNode const& p) { return At(parent, entry, p).Less(p); });
    return static_cast<std::size_t>(found - parent.index.begin());
  }

  static unsigned int Find(PlainNode const& parent, std::string const& label, bool group) {
    PlainNode const probe{label, 0, group, {}, {}};
    std::size_t const at = LowerBound(parent, probe);
    if (at == parent.index.size() || parent.index[at] >= parent.children.size() ||
        probe.Less(*parent.children[parent.index[at]])) {
      return kNotFound;
    }
    return parent.index[at];
  }

  void Add(PlainNode& parent, std::size_t at, std::string const& label, unsigned long subscript,
           bool group) {
    auto const entry = static_cast<unsigned int>(parent.index.size());
    parent.index.insert(parent.index.begin() + static_cast<long>(at), entry);
    parent.children.emplace_back(new PlainNode{label, subscript, group, {}, {}});
    categoryCount += group ? 0 : 1;
  }

  void Delete(PlainNode& parent, std::size_t position) {
    parent.children.erase(parent.children.begin() + static_cast<long>(position));
    auto const i = static_cast<unsigned int>(position);
    for (std::size_t k = 0; k < parent.index.size();) {
      if (parent.index[k] == i) {
        std::size_t const removed = std::min(position, parent.index.size() - 1);
        parent.index.erase(parent.index.begin() + static_cast<long>(removed));
      } else {
        if (static_cast<int>(parent.index[k]) > static_cast<int>(i)) {
          --parent.index[k];
        }
        ++k;
      }
    }
    unsigned int largest = 0;
    CollectLargest(root, largest);
    categoryCount = largest + 1;
  }

  static void CollectLargest(PlainNode const& node, unsigned int& largest) {
    if (!node.group) {
      largest = std::max(largest, static_cast<unsigned int>(node.subscript));
    }
    for (auto const& child : node.children) {
      CollectLargest(*child, largest);
    }
  }
};

std::string Line(std::string const& label, unsigned long subscript, bool group, std::size_t depth) {
  std::ostringstream line;
  line << std::string(depth, ' ') << label << " " << subscript << (group ? " group" : "");
  return line.str();
}

std::string EntriesText(std::vector<unsigned int> const& entries) {
  std::string text = " [";
  for (unsigned int const entry : entries) {
    text += std::to_string(entry) + " ";
  }
  return text + "]\n";
}

std::string Outline(PlainNode const& node, std::size_t depth = 0) {
  std::string text = Line(node.label, node.subscript, node.group, depth) + EntriesText(node.index);
  for (auto const& child : node.children) {
    text += Outline(*child, depth + 1);
  }
  return text;
}

std::string Outline(OmDimension::ConstNode node) {
  OmDimensionNode const& value = node.Value();
  std::string text =
      Line(LabelOf(value), value.subscript, value.group, node.depth) + EntriesText(IndexOf(value));
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    text += Outline(node[i]);
  }
  return text;
}

RANDOM_PROGRAM(OmDimension, BehavesLikeAPlainTreeUnderAnySequence) {
  SpyBalance const balance;
  OmMemoryRegion region(false);
  auto held =
      std::make_unique<OmDimension>(OmDimensionNode(SpyCell("root"), 0, true, nullptr), &region);
  PlainDimension model;
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    OmDimension& dimension = *held;
    // A node below the root: a random path, going down with probability 2/3 at each level.
    OmDimension::Node node = dimension.Root();
    PlainNode* plain = &model.root;
    PlainNode* above = nullptr;
    std::size_t position = 0;
    while (!plain->children.empty() && *rc::gen::inRange(0, 3) != 0) {
      position = *rc::gen::inRange<std::size_t>(0, plain->children.size());
      above = plain;
      plain = plain->children[position].get();
      node = node[position];
    }
    std::string const label(1, *rc::gen::inRange('a', 'h'));
    auto const subscript = *rc::gen::inRange<unsigned long>(0, 30);
    bool const group = *rc::gen::arbitrary<bool>();
    int const what =
        *rc::gen::weightedElement<int>({{10, 0}, {6, 1}, {6, 2}, {2, 3}, {1, 4}, {2, 5}});
    if (what == 0 && plain->group) {
      unsigned int const match = PlainDimension::Find(*plain, label, group);
      OmDimension::Node const child = dimension.Child(node, SpyCell(label), subscript, group);
      if (match == kNotFound) {
        PlainNode const probe{label, 0, group, {}, {}};
        model.Add(*plain, PlainDimension::LowerBound(*plain, probe), label, subscript, group);
      }
      std::size_t const expected = match == kNotFound ? plain->children.size() - 1 : match;
      RC_ASSERT(child.element == node[expected].element);
      RC_ASSERT(child.depth == node.depth + 1);
    } else if (what == 0) {
      RC_ASSERT_THROWS_AS(dimension.Child(node, SpyCell(label), subscript, group), OMSException);
    } else if (what == 1) {
      OmDimension::Node const child = dimension.AddNewChild(node, SpyCell(label), subscript, group);
      model.Add(*plain, plain->index.size(), label, subscript, group);
      RC_ASSERT(child.element == node[plain->children.size() - 1].element);
    } else if (what == 2 && above != nullptr) {
      dimension.Delete(node);
      model.Delete(*above, position);
      if (*rc::gen::arbitrary<bool>()) {
        OmDimension::RelinkParents(dimension, true);
        RC_ASSERT(TextOf(dimension).find('!') == std::string::npos);
      }
      node = {};
    } else if (what == 4) {
      held = std::make_unique<OmDimension>(dimension, &region);  // goes on with the copy
    } else if (what == 5) {
      node.Value().hide = plain->hide = group;
    } else {
      RC_ASSERT(OmDimension::FindChild(node, SpyCell(label), group) ==
                PlainDimension::Find(*plain, label, group));
    }
    RC_ASSERT(Outline(held->Root()) == Outline(model.root));
    RC_ASSERT(held->CategoryCount() == model.categoryCount);
    if (step % 4 == 0) {
      CheckQueries(*held, model.root);
    }
  }
}

}  // namespace
