#include "OmOccupiedPlaces.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr unsigned long long kSaturated = std::numeric_limits<unsigned long long>::max();

unsigned long long SaturatingProduct(unsigned long long a, unsigned long long b) {
  unsigned long long product = 0;
  return __builtin_mul_overflow(a, b, &product) ? kSaturated : product;
}

/// `value + weight * digit`, saturated.
unsigned long long SaturatingSum(unsigned long long value, unsigned long long weight,
                                 unsigned long long digit) {
  unsigned long long sum = 0;
  return __builtin_add_overflow(value, SaturatingProduct(weight, digit), &sum) ? kSaturated : sum;
}

}  // namespace

OmOccupiedPlaces::OmOccupiedPlaces(OmDisplayLayerHeading::Data& layout,
                                   OmPivotTable::PointerVector* root,
                                   PuppetVector<short> const& heads,
                                   PuppetVector<short> const& others)
    : root_(root), dimensions_(layout.dimHeaders.size()), lowestHead_(dimensions_.size()) {
  std::vector<int> const sizes = layout.table->SizeVector();
  using PlaceCalculator = OmDisplayLayerHeading::Data::PlaceCalculator;
  nHeads_ = PlaceCalculator(heads, sizes).Size();
  nOthers_ = PlaceCalculator(others, sizes).Size();
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    dimensions_[d].bound = layout.cellIndex[d];
  }
  PlanOthers(others, sizes);
  PlanHeads(layout, heads, sizes);
  subscripts_.resize(dimensions_.size());
}

void OmOccupiedPlaces::PlanOthers(PuppetVector<short> const& others,
                                  std::vector<int> const& sizes) {
  unsigned long long weight = 1;
  for (std::size_t i = others.size(); i != 0; --i) {
    auto const d = static_cast<std::size_t>(others.elements[i - 1]);
    if (d >= dimensions_.size()) {
      continue;
    }
    Dimension& dimension = dimensions_[d];
    auto const size = static_cast<unsigned int>(sizes[d]);
    if (dimension.role != Role::kOther) {
      dimension.role = Role::kOther;
      dimension.bound = size;
      dimension.weight = weight;
    }
    weight = SaturatingProduct(weight, size);
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
    if (d >= dimensions_.size()) {
      continue;
    }
    Dimension& dimension = dimensions_[d];
    OmDimHeader const& header = *layout.dimHeaders[d];
    auto const size = static_cast<unsigned int>(sizes[d]);
    digit.count = static_cast<unsigned int>(std::min<std::size_t>(size, header.paths.size()));
    if (dimension.role == Role::kFixed) {
      dimension.role = Role::kHead;
      dimension.leaves = LeavesBySubscript(header, digit.count);
      digit.dimension = static_cast<long long>(d);
      lowestHead_ = std::min(lowestHead_, d);
    }
    weight = SaturatingProduct(weight, size);
  }
}

OmOccupiedPlaces::Leaves OmOccupiedPlaces::LeavesBySubscript(OmDimHeader const& header,
                                                             std::size_t count) {
  Leaves leaves;
  leaves.previous.resize(count, kNone);
  for (std::size_t k = 0; k < count; ++k) {
    unsigned int const subscript = header.visibleCategories[k];
    // A subscript that is negative as an int addresses no cell.
    if (subscript <= static_cast<unsigned int>(std::numeric_limits<int>::max())) {
      if (subscript >= leaves.last.size()) {
        leaves.last.resize(std::size_t{subscript} + 1, kNone);
      }
      leaves.previous[k] = std::exchange(leaves.last[subscript], static_cast<unsigned int>(k));
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
  std::vector<Frame> path{{root_, 0}};
  while (!path.empty()) {
    std::size_t const level = count - path.size();
    if (!Step(path.back(), level)) {
      path.pop_back();
      continue;
    }
    if (level != 0) {
      Frame const& top = path.back();
      path.push_back(
          {static_cast<OmPivotTable::PointerVector*>(top.node->Entry(subscripts_[level])), 0});
    } else if (OthersInRange()) {
      Keep(kept);
      // Further cells below the lowest heads dimension would only say the same again.
      path.resize(count - lowestHead_);
    }
  }
  kept.AppendTo(result);
}

/// Moves on to the next admitted entry of a node; false when there is none.
bool OmOccupiedPlaces::Step(Frame& frame, std::size_t level) {
  Dimension const& dimension = dimensions_[level];
  unsigned long& at = subscripts_[level];
  if (dimension.role == Role::kFixed) {
    at = static_cast<unsigned long>(dimension.bound);
    return std::exchange(frame.next, 1) == 0 && frame.node->Entry(at) != nullptr;
  }
  for (at = frame.node->FirstFrom(frame.next); at < frame.node->size();
       at = frame.node->FirstFrom(at + 1)) {
    frame.next = at + 1;
    if (dimension.role == Role::kOther) {
      return at < static_cast<unsigned long>(dimension.bound);
    }
    if (at < dimension.leaves.last.size() && dimension.leaves.last[at] != kNone) {
      return true;
    }
  }
  return false;
}

bool OmOccupiedPlaces::OthersInRange() const {
  unsigned long long number = 0;
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    if (dimensions_[d].role == Role::kOther) {
      number = SaturatingSum(number, dimensions_[d].weight, subscripts_[d]);
    }
  }
  return number < nOthers_;
}

/// Keeps the places of the cell that the walk stands on: one for each choice of a leaf per digit.
void OmOccupiedPlaces::Keep(OmPlaceSet& kept) {
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
      for (unsigned int k = leaves.last[subscripts_[d]]; k != kNone; k = leaves.previous[k]) {
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
    unsigned long long const longer = SaturatingSum(place, digit.weight, value);
    if (longer < nHeads_) {
      extended_.push_back(longer);
    }
  }
}
