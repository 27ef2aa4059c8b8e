#include "dimension/OmChildPlan.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

OmChildPlan::OmChildPlan(Element& parent)
    : parent_(parent), maxSize_(parent.children.size()), destination_(parent.children.region) {
  for (Element& child : parent.children.Elements()) {
    order_.push_back(&child);
  }
}

std::size_t OmChildPlan::FindEqual(OmDimensionNode const& value) const {
  auto const found = std::find_if(order_.begin(), order_.end(),
                                  [&](Element const* child) { return child->value == value; });
  return static_cast<std::size_t>(found - order_.begin());
}

std::size_t OmChildPlan::Find(Element const* child) const {
  auto const found = std::find(order_.begin(), order_.end(), child);
  return static_cast<std::size_t>(found - order_.begin());
}

void OmChildPlan::InsertAll(std::size_t position, std::vector<Element*> const& children) {
  order_.insert(order_.begin() + static_cast<std::ptrdiff_t>(position), children.begin(),
                children.end());
  inserted_.insert(inserted_.end(), children.begin(), children.end());
  maxSize_ = std::max(maxSize_, order_.size());
}

void OmChildPlan::DropAll(std::vector<std::size_t> const& positions) {
  for (std::size_t const position : positions) {
    dropped_.push_back(std::exchange(order_[position], nullptr));
  }
  std::erase(order_, nullptr);
}

void OmChildPlan::Prepare() {
  grows_ = maxSize_ > parent_.children.capacity();
  destination_.reserve(grows_ ? OmVector<Element>::GrownCapacity(maxSize_ - 1)
                              : parent_.children.capacity());
}

void OmChildPlan::DestroyDropped() {
  for (Element* gone : dropped_) {
    gone->~Element();
  }
  dropped_.clear();
}

void OmChildPlan::Apply() {
  OmVector<Element>& children = parent_.children;
  for (Element const* planned : order_) {
    std::memcpy(static_cast<void*>(destination_.end), static_cast<void const*>(planned),
                sizeof(Element));
    ++destination_.end;
  }
  DestroyDropped();
  for (Element* taken : inserted_) {
    ::new (static_cast<void*>(taken)) Element(children.region);
  }
  if (grows_) {
    std::swap(children.begin, destination_.begin);
    std::swap(children.end, destination_.end);
    std::swap(children.capacityEnd, destination_.capacityEnd);
  } else if (!order_.empty()) {
    std::memcpy(static_cast<void*>(children.begin), static_cast<void const*>(destination_.begin),
                order_.size() * sizeof(Element));
  }
  children.end = children.begin + order_.size();
  OmDimension::Vacate(parent_, children.capacityEnd);
}
