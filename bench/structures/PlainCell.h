#ifndef BENCH_STRUCTURES_PLAINCELL_H
#define BENCH_STRUCTURES_PLAINCELL_H

#include <memory>
#include <vector>

#include <cells/OmNumber.h>

class Arena;

/// A polymorphic cell of the size of a number, for what is compared with the library: it copies itself
/// without a call into another library, and owns nothing.
class PlainCell {
 public:
  explicit PlainCell(double value) : value_(value) {}
  virtual ~PlainCell() = default;

  /// A copy in the arena, which is never deleted.
  virtual PlainCell* Clone(Arena& arena) const;

  double Value() const { return value_; }

 protected:
  PlainCell(PlainCell const&) = default;
  PlainCell& operator=(PlainCell const&) = delete;

 private:
  [[maybe_unused]] void* extras_ = nullptr;
  double value_;
  [[maybe_unused]] int decimals_ = 2;
};

static_assert(sizeof(PlainCell) == sizeof(OmNumber));

/// Memory that goes all at once.
class Arena {
 public:
  void* Allocate(std::size_t size) {
    if (static_cast<std::size_t>(end_ - next_) < size) {
      blocks_.emplace_back(new char[kBlock]);
      next_ = blocks_.back().get();
      end_ = next_ + kBlock;
    }
    char* const block = next_;
    next_ += size;
    return block;
  }

 private:
  static constexpr std::size_t kBlock = 1UL << 20;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  char* end_ = nullptr;
};

inline PlainCell* PlainCell::Clone(Arena& arena) const {
  return ::new (arena.Allocate(sizeof(PlainCell))) PlainCell(*this);
}

#endif
