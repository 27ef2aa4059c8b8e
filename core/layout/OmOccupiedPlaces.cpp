#include "layout/OmOccupiedPlaces.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <utility>

namespace {

constexpr unsigned long long kSaturated = std::numeric_limits<unsigned long long>::max();

unsigned long long MultiplySaturated(unsigned long long a, unsigned long long b) {
  unsigned long long product = 0;
  return __builtin_mul_overflow(a, b, &product) ? kSaturated : product;
}

/// `value + weight * digit`, saturated.
unsigned long long AddProductSaturated(unsigned long long value, unsigned long long weight,
                                       unsigned long long digit) {
  unsigned long long sum = 0;
  return __builtin_add_overflow(value, MultiplySaturated(weight, digit), &sum) ? kSaturated : sum;
}

constexpr unsigned long kBits = 64;

}  // namespace

void OmOccupiedPlaces::OpenAll(OpenSet& set, std::size_t count) {
  set.left = count;
  set.closed.assign(count / kBits, 0);
  set.closed.push_back(~std::uint64_t{0} << count % kBits);
}

bool OmOccupiedPlaces::IsClosed(OpenSet const& set, std::size_t rank) {
  return (set.closed[rank / kBits] >> rank % kBits & 1) != 0;
}

/// The first open rank from `rank` on, which is at most the number of leaves; past them when there
/// is none.
std::size_t OmOccupiedPlaces::FindOpen(OpenSet const& set, std::size_t rank) {
  std::size_t word = rank / kBits;
  std::uint64_t open = ~set.closed[word] >> rank % kBits << rank % kBits;
  while (open == 0) {
    if (++word == set.closed.size()) {
      return word * kBits;
    }
    open = ~set.closed[word];
  }
  return word * kBits + static_cast<std::size_t>(std::countr_zero(open));
}

OmOccupiedPlaces::OmOccupiedPlaces(OmDisplayLayerHeading::Data& layout,
                                   OmPivotTable::PointerVector* root,
                                   PuppetVector<short> const& heads,
                                   PuppetVector<short> const& others)
    : root_(root),
      dimensions_(static_cast<std::size_t>(layout.table->NDimensions())),
      lowestHead_(dimensions_.size()) {
  std::vector<int> const sizes = layout.table->SizeVector();
  using PlaceCalculator = OmDisplayLayerHeading::Data::PlaceCalculator;
  nHeads_ = PlaceCalculator(heads, sizes).Size();
  nOthers_ = PlaceCalculator(others, sizes).Size();
  for (std::size_t d = 0; d < layout.cellIndex.size(); ++d) {
    dimensions_[d].bound = layout.cellIndex[d];
  }
  PlanOthers(layout, others, sizes);
  PlanHeads(layout, heads, sizes);
  subscripts_.resize(dimensions_.size());
  ranks_.resize(dimensions_.size(), kNone);
}

void OmOccupiedPlaces::PlanOthers(OmDisplayLayerHeading::Data const& layout,
                                  PuppetVector<short> const& others,
                                  std::vector<int> const& sizes) {
  unsigned long long weight = 1;
  for (std::size_t i = others.size(); i != 0; --i) {
    auto const d = static_cast<std::size_t>(others.elements[i - 1]);
    if (d >= sizes.size()) {
      continue;
    }
    Dimension& dimension = dimensions_[d];
    auto const size = static_cast<unsigned int>(sizes[d]);
    if (d < layout.dimHeaders.size() && dimension.role != Role::kOther) {
      dimension.role = Role::kOther;
      highestOther_ = std::max(highestOther_, d);
      dimension.bound = size;
      dimension.weight = weight;
    }
    weight = MultiplySaturated(weight, size);
  }
}

void OmOccupiedPlaces::PlanHeads(OmDisplayLayerHeading::Data& layout,
                                 PuppetVector<short> const& heads, std::vector<int> const& sizes) {
  digits_.resize(heads.size());
  unsigned long long weight = 1;
  for (std::size_t i = heads.size(); i != 0; --i) {
    Digit& digit = digits_[i - 1];
    digit.weight = weight;
    auto const d = static_cast<std::size_t>(heads.elements[i - 1]);
    if (d >= sizes.size()) {
      continue;
    }
    auto const size = static_cast<unsigned int>(sizes[d]);
    if (OmDimHeader const* const header = layout.FindHeader(heads.elements[i - 1])) {
      Dimension& dimension = dimensions_[d];
      digit.count = static_cast<unsigned int>(std::min<std::size_t>(size, header->paths.size()));
      if (dimension.role == Role::kFixed) {
        dimension.role = Role::kHead;
        dimension.leaves = IndexLeaves(*header, digit.count);
        digit.dimension = static_cast<long long>(d);
        lowestHead_ = std::min(lowestHead_, d);
      }
    }
    weight = MultiplySaturated(weight, size);
  }
}

OmOccupiedPlaces::Leaves OmOccupiedPlaces::IndexLeaves(OmDimHeader const& header,
                                                       std::size_t count) {
  // A subscript that is negative as an int addresses no cell.
  auto const canHoldACell = [](unsigned int subscript) {
    return subscript <= static_cast<unsigned int>(std::numeric_limits<int>::max());
  };
  std::vector<unsigned int> subscripts;
  std::copy_if(header.visibleCategories.begin, header.visibleCategories.begin + count,
               std::back_inserter(subscripts), canHoldACell);
  Leaves leaves;
  leaves.ranks = OmSubscriptRanks(std::move(subscripts));
  leaves.last.resize(leaves.ranks.size(), kNone);
  leaves.previous.resize(count, kNone);
  for (std::size_t k = 0; k < count; ++k) {
    unsigned int const subscript = header.visibleCategories[k];
    if (canHoldACell(subscript)) {
      leaves.previous[k] =
          std::exchange(leaves.last[leaves.ranks.Find(subscript)], static_cast<unsigned int>(k));
    }
  }
  return leaves;
}

void OmOccupiedPlaces::AppendTo(std::vector<unsigned long long>& result) {
  if (root_ == nullptr || nHeads_ == 0 || nOthers_ == 0) {
    return;
  }
  OmPlaceSet kept(nHeads_);
  std::size_t const count = dimensions_.size();
  std::vector<Frame> path{Enter(root_, count - 1, kNone)};
  while (!path.empty()) {
    std::size_t const level = count - path.size();
    Frame& top = path.back();
    if (!Step(top, level)) {
      bool const finished = IsFinished(top, level);
      path.pop_back();
      if (!path.empty()) {
        Leave(path.back(), level + 1, finished);
      }
    } else if (level != 0) {
      path.push_back(
          Enter(OmPivotTable::PointerVector::FromEntry(top.node->Entry(subscripts_[level])),
                level - 1, FindSetBelow(top, level)));
    } else {
      bool const hit = AreOthersInRange();
      if (hit) {
        Keep(kept);
      }
      Leave(top, level, hit);
    }
  }
  kept.AppendTo(result);
}

OmOccupiedPlaces::Frame OmOccupiedPlaces::Enter(OmPivotTable::PointerVector const* node,
                                                std::size_t level, unsigned int set) {
  if (level != highestOther_) {
    return {node, set};
  }
  // Everything found so far belongs to other subscripts above, which do not come again.
  freeSets_.clear();
  sets_.assign(1, OpenSet());
  return {node, 0};
}

/// Moves on to the next admitted entry of a node; false when there is none.
bool OmOccupiedPlaces::Step(Frame& frame, std::size_t level) {
  Dimension const& dimension = dimensions_[level];
  unsigned long& at = subscripts_[level];
  if (dimension.role == Role::kFixed) {
    at = static_cast<unsigned long>(dimension.bound);
    ++looks_;
    return std::exchange(frame.next, 1) == 0 && frame.node->Entry(at) != nullptr;
  }
  if (dimension.role == Role::kHead && ComesAgain(level)) {
    return StepOpen(frame, level);
  }
  while (!frame.finished) {
    OmPivotTable::PointerVector::Found const found = frame.node->FirstFrom(frame.next);
    ++looks_;
    if (found.entry == nullptr) {
      return false;
    }
    at = found.position;
    frame.next = at + 1;
    if (dimension.role == Role::kOther) {
      return at < static_cast<unsigned long>(dimension.bound);
    }
    ranks_[level] = dimension.leaves.ranks.Find(at);
    if (ranks_[level] != kNone) {
      return true;
    }
  }
  return false;
}

/// Step() in a heads dimension, over what is open.
bool OmOccupiedPlaces::StepOpen(Frame& frame, std::size_t level) {
  OpenSet& set = sets_[frame.set];
  OmSubscriptRanks const& leaves = dimensions_[level].leaves.ranks;
  if (set.closed.empty()) {
    OpenAll(set, leaves.size());
  }
  unsigned long& at = subscripts_[level];
  unsigned int& rank = ranks_[level];
  while (set.left != 0) {
    ++looks_;
    if (set.left < frame.node->CountFilled()) {
      frame.nextRank = FindOpen(set, leaves.FindFrom(frame.next, frame.nextRank));
      if (frame.nextRank >= leaves.size() || leaves[frame.nextRank] >= frame.node->size()) {
        return false;
      }
      rank = static_cast<unsigned int>(frame.nextRank);
      at = leaves[rank];
      frame.next = at + 1;
      if (frame.node->Entry(at) != nullptr) {
        return true;
      }
    } else {
      OmPivotTable::PointerVector::Found const found = frame.node->FirstFrom(frame.next);
      if (found.entry == nullptr) {
        return false;
      }
      at = found.position;
      frame.next = at + 1;
      rank = leaves.Find(at);
      if (rank != kNone && !IsClosed(set, rank)) {
        return true;
      }
    }
  }
  return false;
}

/// Takes note of what came of the entry that Step() moved to.
/// @param finished whether nothing more can be found below it.
void OmOccupiedPlaces::Leave(Frame& frame, std::size_t level, bool finished) {
  if (dimensions_[level].role != Role::kHead) {
    frame.finished = finished;
  } else if (finished && ComesAgain(level)) {
    Close(sets_[frame.set], ranks_[level]);
  }
}

bool OmOccupiedPlaces::IsFinished(Frame const& frame, std::size_t level) const {
  if (dimensions_[level].role != Role::kHead || !ComesAgain(level)) {
    return frame.finished;
  }
  return sets_[frame.set].left == 0;
}

/// The set for the level below the entry that Step() moved to.
unsigned int OmOccupiedPlaces::FindSetBelow(Frame const& frame, std::size_t level) {
  if (dimensions_[level].role != Role::kHead || !ComesAgain(level)) {
    return frame.set;
  }
  if (level == lowestHead_) {
    return kNone;
  }
  auto const known = sets_[frame.set].below.find(ranks_[level]);
  if (known != sets_[frame.set].below.end()) {
    return known->second;
  }
  if (freeSets_.empty()) {
    freeSets_.push_back(static_cast<unsigned int>(sets_.size()));
    sets_.emplace_back();
  }
  unsigned int const below = freeSets_.back();
  freeSets_.pop_back();
  sets_[frame.set].below.emplace(ranks_[level], below);
  return below;
}

void OmOccupiedPlaces::Close(OpenSet& set, unsigned int rank) {
  set.closed[rank / kBits] |= std::uint64_t{1} << rank % kBits;
  --set.left;
  auto const below = set.below.find(rank);
  if (below != set.below.end()) {
    sets_[below->second] = OpenSet();
    freeSets_.push_back(below->second);
    set.below.erase(below);
  }
}

bool OmOccupiedPlaces::AreOthersInRange() const {
  unsigned long long number = 0;
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    if (dimensions_[d].role == Role::kOther) {
      number = AddProductSaturated(number, dimensions_[d].weight, subscripts_[d]);
    }
  }
  return number < nOthers_;
}

/// The place of the walk's current cell, where no digit has a choice; false where one has.
bool OmOccupiedPlaces::FindOnlyPlace(unsigned long long& place) const {
  place = 0;
  for (Digit const& digit : digits_) {
    unsigned int value = 0;
    bool choice = digit.dimension < 0 && digit.count != 1;
    if (digit.dimension >= 0) {
      auto const d = static_cast<std::size_t>(digit.dimension);
      Leaves const& leaves = dimensions_[d].leaves;
      value = leaves.last[ranks_[d]];
      choice = leaves.previous[value] != kNone;
    }
    if (choice) {
      return false;
    }
    place = AddProductSaturated(place, digit.weight, value);
  }
  return true;
}

/// Keeps the places of the walk's current cell: one for each choice of a leaf per digit.
void OmOccupiedPlaces::Keep(OmPlaceSet& kept) {
  unsigned long long only = 0;
  if (FindOnlyPlace(only)) {
    if (only < nHeads_) {
      kept.Insert(only);
    }
    return;
  }
  partial_.assign(1, 0);
  for (Digit const& digit : digits_) {
    extended_.clear();
    if (digit.dimension < 0) {
      for (unsigned int value = 0; value < digit.count; ++value) {
        Extend(digit, value);
      }
    } else {
      auto const d = static_cast<std::size_t>(digit.dimension);
      Leaves const& leaves = dimensions_[d].leaves;
      for (unsigned int k = leaves.last[ranks_[d]]; k != kNone; k = leaves.previous[k]) {
        Extend(digit, k);
      }
    }
    partial_.swap(extended_);
  }
  for (unsigned long long const place : partial_) {
    kept.Insert(place);
  }
}

void OmOccupiedPlaces::Extend(Digit const& digit, unsigned int value) {
  for (unsigned long long const place : partial_) {
    unsigned long long const longer = AddProductSaturated(place, digit.weight, value);
    if (longer < nHeads_) {
      extended_.push_back(longer);
    }
  }
}
