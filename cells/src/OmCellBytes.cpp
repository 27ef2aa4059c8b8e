#include <cstring>

#include <cells/OmCellBytes.h>
#include <cells/OmMemoryRegion.h>
#include <cells/icuTracker.h>

#include "TextPool.h"

namespace {

OmTextPool::Entry* GetEntry(void* storage) {
  return static_cast<OmTextPool::Entry*>(storage);
}

}  // namespace

OmCellBytes::OmCellBytes(std::string_view text, OmMemoryRegion* region)
    : storage_(nullptr), extent_(text.size() << kFlagBits) {
  if (!text.empty()) {
    storage_ = (region != nullptr ? region : OmMemoryRegion::DefaultHeap())->Allocate(text.size());
    std::memcpy(storage_, text.data(), text.size());
  }
}

OmCellBytes::~OmCellBytes() {
  if (IsBound()) {
    GetEntry(storage_)->Release();
  } else if ((extent_ & kInCell) == 0) {
    OmMemoryRegion::Release(storage_);
  }
}

std::string_view OmCellBytes::BoundView() const {
  return GetEntry(storage_)->View();
}

icuTracker* OmCellBytes::Tracker() const {
  return IsBound() ? GetEntry(storage_)->Tracker() : nullptr;
}

bool OmCellBytes::IsBoundTo(icuTracker const* tracker) const {
  return tracker != nullptr ? Tracker() == tracker : !IsBound();
}

OmCellBytes OmCellBytes::BoundTo(icuTracker* tracker) const {
  if (tracker == nullptr) {
    return {View(), Home()};
  }
  return {tracker->pool_->Share(View()), reinterpret_cast<std::uintptr_t>(Home()) | kBound};
}

OmMemoryRegion* OmCellBytes::Home() const {
  if (IsBound()) {
    return reinterpret_cast<OmMemoryRegion*>(extent_ & ~kBound);
  }
  return storage_ != nullptr ? OmMemoryRegion::FindOwner(storage_) : nullptr;
}
