#ifndef TESTS_SUPPORT_SPYPART_H
#define TESTS_SUPPORT_SPYPART_H

#include <stdexcept>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmOutputPart.h>

/// An item of an output document that tells when it is deleted.
class SpyPart : public OmOutputPart {
 public:
  struct Exception : std::runtime_error {
    using std::runtime_error::runtime_error;
  };

  /// @param deleted gets the name when the item is deleted; must outlive it.
  /// @param throws  whether the destructor throws after that.
  SpyPart(std::string const& name, std::vector<std::string>& deleted, bool throws = false)
      : OmOutputPart(OmStringCell(name)), name_(name), deleted_(&deleted), throws_(throws) {
    deleted.reserve(deleted.capacity() + 1);
  }
  ~SpyPart() noexcept(false) override {
    deleted_->push_back(name_);
    if (throws_) {
      throw Exception(name_);
    }
  }

  void Accept(Visitor& /*visitor*/) override {}

 private:
  std::string name_;
  std::vector<std::string>* deleted_;
  bool throws_;
};

#endif
