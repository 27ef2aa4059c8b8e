#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmOutputTree.h>

#include "support/OutputTreeText.h"
#include "support/Property.h"
#include "support/SpyPart.h"

namespace {

// The list alone, compared with a plain vector of values and depths

struct PlainElement {
  int value;
  int depth;

  bool operator==(PlainElement const&) const = default;
};
using PlainList = std::vector<PlainElement>;

std::size_t PlainSubtreeEnd(PlainList const& list, std::size_t at) {
  std::size_t end = at + 1;
  while (end < list.size() && list[end].depth > list[at].depth) {
    ++end;
  }
  return end;
}

struct Tree : ListTree<int> {};

PlainList Listing(Tree& tree) {
  PlainList listing;
  for (Tree::Node node = tree.begin(); !node.AtEnd(); ++node) {
    listing.push_back({*node, node.depth});
  }
  return listing;
}

Tree::Node At(Tree& tree, std::size_t position) {
  Tree::Node node = tree.begin();
  for (std::size_t i = 0; i < position; ++i) {
    ++node;
  }
  return node;
}

/// A position in a list of this size, more often near its end.
std::size_t SomePosition(std::size_t size) {
  auto const anywhere = *rc::gen::inRange<std::size_t>(0, size);
  return *rc::gen::arbitrary<bool>() ? anywhere : size - 1 - std::min<std::size_t>(anywhere, 3);
}

RANDOM_PROGRAM(ListTree, BehavesLikeAPlainListUnderAnySequence) {
  Tree tree;
  PlainList model;
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    if (model.empty() || *rc::gen::inRange(0, 12) == 0) {
      RC_ASSERT(*tree.Append(step) == step);
      model.push_back({step, 0});
      continue;
    }
    std::size_t const position = SomePosition(model.size());
    Tree::Node const node = At(tree, position);
    std::size_t const end = PlainSubtreeEnd(model, position);
    RC_ASSERT(node.SubtreeEnd() == At(tree, end));
    switch (*rc::gen::weightedElement<int>({{6, 0}, {2, 1}, {1, 2}})) {
      case 0:
        RC_ASSERT(*node.AppendChild(step) == step);
        model.insert(model.begin() + static_cast<long>(end), {step, model[position].depth + 1});
        break;
      case 1:
        tree.Unlink(node);
        model.erase(model.begin() + static_cast<long>(position));
        break;
      default:
        tree.PromoteDescendants(node);
        for (std::size_t i = position + 1;
             i < model.size() && model[i].depth > model[position].depth; ++i) {
          --model[i].depth;
        }
    }
    RC_ASSERT(Listing(tree) == model);
    RC_ASSERT(tree.size() == model.size());
  }
}

// A document, compared with a tree of vectors

struct PlainItem {
  std::string name;
  bool spied;  ///< whether its deletion is listed
  std::vector<std::unique_ptr<PlainItem>> children;
};
using PlainItems = std::vector<std::unique_ptr<PlainItem>>;

std::unique_ptr<PlainItem> MakeItem(std::string const& name, bool spied) {
  return std::unique_ptr<PlainItem>(new PlainItem{name, spied, {}});
}

/// Where an item is: in which list, at which place, how deep.
struct Spot {
  PlainItems* list;
  std::size_t place;
  int depth;
};

void CollectSpots(PlainItems& list, int depth, std::vector<Spot>& spots) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    spots.push_back({&list, i, depth});
    CollectSpots(list[i]->children, depth + 1, spots);
  }
}

std::string PlainText(PlainItems const& list, int depth = 0) {
  std::string text;
  for (auto const& item : list) {
    text += item->name + "@" + std::to_string(depth) + " " + PlainText(item->children, depth + 1);
  }
  return text;
}

/// The document read through children and siblings alone.
std::string NavigatedText(OmOutputTree::Node node) {
  std::string text;
  for (; !node.AtEnd(); node = node.NextSibling()) {
    text += node.Value()->Label()->GetText() + "@" + std::to_string(node.depth) + " " +
            NavigatedText(node.FirstChild());
  }
  return text;
}

class PlainDocument {
 public:
  PlainItems roots;
  std::vector<std::string> deleted;

  void Erase(Spot const& spot) { ReplaceByChildren(spot, nullptr); }

  void Prune(Spot const& spot) {
    DeleteAll(*(*spot.list)[spot.place]);
    spot.list->erase(spot.list->begin() + static_cast<long>(spot.place));
  }

  void Amputate(Spot const& spot, std::string const& label) {
    PlainItem& item = *(*spot.list)[spot.place];
    if (spot.depth >= 2) {
      ReplaceByChildren(spot, MakeItem(item.name, false));
      return;
    }
    for (auto const& child : item.children) {
      DeleteAll(*child);
    }
    item.children.clear();
    item.children.push_back(MakeItem(label, false));
  }

 private:
  void Delete(PlainItem const& item) {
    if (item.spied) {
      deleted.push_back(item.name);
    }
  }

  void DeleteAll(PlainItem const& item) {
    for (auto const& child : item.children) {
      DeleteAll(*child);
    }
    Delete(item);
  }

  /// Puts the item's children, and then `last` unless it is null, in the item's place.
  void ReplaceByChildren(Spot const& spot, std::unique_ptr<PlainItem> last) {
    Delete(*(*spot.list)[spot.place]);
    PlainItems children = std::move((*spot.list)[spot.place]->children);
    if (last != nullptr) {
      children.push_back(std::move(last));
    }
    spot.list->erase(spot.list->begin() + static_cast<long>(spot.place));
    spot.list->insert(spot.list->begin() + static_cast<long>(spot.place),
                      std::make_move_iterator(children.begin()),
                      std::make_move_iterator(children.end()));
  }
};

void CheckDocument(OmOutputTree& tree, PlainDocument const& model,
                   std::vector<std::string> const& deleted) {
  RC_ASSERT(TextOf(tree) == PlainText(model.roots));
  RC_ASSERT(NavigatedText(tree.begin()) == PlainText(model.roots));
  RC_ASSERT(deleted == model.deleted);
}

RANDOM_PROGRAM(OmOutputTree, BehavesLikeATreeOfVectorsUnderAnySequence) {
  std::vector<std::string> deleted;
  OmOutputTree tree;
  PlainDocument model;
  model.roots.push_back(MakeItem("Output", false));
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    std::string const name = "n" + std::to_string(step);
    std::vector<Spot> spots;
    CollectSpots(model.roots, 0, spots);
    if (spots.empty() || *rc::gen::inRange(0, 16) == 0) {
      RC_ASSERT(tree.Append(new SpyPart(name, deleted)).depth == 0);
      model.roots.push_back(MakeItem(name, true));
      CheckDocument(tree, model, deleted);
      continue;
    }
    std::size_t const position = SomePosition(spots.size());
    Spot const spot = spots[position];
    OmOutputTree::Node node = tree.begin();
    std::advance(node.position, static_cast<long>(position));
    node = OmOutputTree::Node(&tree, node.position);
    RC_ASSERT(node.depth == spot.depth);
    switch (*rc::gen::weightedElement<int>({{6, 0}, {3, 4}, {2, 1}, {1, 2}, {2, 3}})) {
      case 0:
        RC_ASSERT(node.AppendChild(new SpyPart(name, deleted)).depth == spot.depth + 1);
        (*spot.list)[spot.place]->children.push_back(MakeItem(name, true));
        break;
      case 4: {
        auto part = std::make_unique<SpyPart>(name, deleted);
        SpyPart const* const made = part.get();
        OmOutputTree::Node const child = node.AppendChild(std::move(part));
        RC_ASSERT(part == nullptr);
        RC_ASSERT(child.Value() == made);
        RC_ASSERT(child.depth == spot.depth + 1);
        (*spot.list)[spot.place]->children.push_back(MakeItem(name, true));
        break;
      }
      case 1:
        tree.Erase(node);
        model.Erase(spot);
        break;
      case 2:
        tree.Prune(node);
        model.Prune(spot);
        break;
      default: {
        OmStringCell const label("cut" + name);
        OmOutputTree::Node const result = Amputate(node, &label, "text");
        model.Amputate(spot, "cut" + name);
        PlainItem const& there = *(*spot.list)[spot.place];
        PlainItem const& expected = spot.depth >= 2 ? there : *there.children.front();
        RC_ASSERT(result.Value()->Label()->GetText() == expected.name);
        RC_ASSERT(result.depth == (spot.depth >= 2 ? spot.depth : spot.depth + 1));
      }
    }
    CheckDocument(tree, model, deleted);
  }
}

}  // namespace
