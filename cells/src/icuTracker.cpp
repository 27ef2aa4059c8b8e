#include <cells/icuTracker.h>

#include "TextPool.h"

icuTracker::icuTracker(std::pair<bool, std::string> settings)
    : settings_(std::move(settings)), pool_(new OmTextPool(this)) {}

icuTracker::~icuTracker() {
  pool_->LeaveTracker();
}

std::size_t icuTracker::TextCount() const {
  return pool_->Size();
}
