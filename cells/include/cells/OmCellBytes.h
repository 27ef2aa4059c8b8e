#ifndef CELLS_OMCELLBYTES_H
#define CELLS_OMCELLBYTES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <cells/Export.h>

class OmMemoryRegion;
class icuTracker;

/// The storage of one text of a cell: bytes of its own in a region, or a share in a tracker's copy.
///
/// The bytes are kept as they are, whatever they are. An empty text of its own takes no storage.
/// A moved-from object holds the empty text.
///
/// Thread safety: none; one thread at a time uses an object, its region and its tracker.
class CELLS_EXPORT OmCellBytes {
 public:
  /// Copies `text` into `region`; null means the default heap. The region is not owned.
  /// @throws std::bad_alloc.
  OmCellBytes(std::string_view text, OmMemoryRegion* region);

  /// Copies `text` to `room`, a part of the block that the cell lies in, which goes with the cell.
  OmCellBytes(std::string_view text, std::byte* room) noexcept
      : storage_(room), extent_(text.size() << kFlagBits | kInCell) {
    text.copy(reinterpret_cast<char*>(room), text.size());
  }

  /// Takes the storage of `other`, which is left with the empty text. Constant time.
  OmCellBytes(OmCellBytes&& other) noexcept
      : storage_(std::exchange(other.storage_, nullptr)),
        extent_(std::exchange(other.extent_, 0)) {}

  /// Exchanges the storage with that of `other`. Constant time.
  OmCellBytes& operator=(OmCellBytes&& other) noexcept {
    std::swap(storage_, other.storage_);
    std::swap(extent_, other.extent_);
    return *this;
  }

  /// Gives the bytes back to their region, or the share back to the tracker's copy.
  ~OmCellBytes();

  /// The bytes. Valid until this object is changed or destroyed. Constant time.
  std::string_view View() const {
    return IsBound() ? BoundView()
                     : std::string_view(static_cast<char const*>(storage_), extent_ >> kFlagBits);
  }

  /// A copy of the bytes.
  /// @throws std::bad_alloc.
  std::string Text() const { return std::string(View()); }

  /// The tracker that the text is bound to, which is not owned; null when the text has bytes of its
  /// own or the tracker is gone.
  icuTracker* Tracker() const;

  /// Whether the text is bound to `tracker`; for null, whether it has bytes of its own.
  bool IsBoundTo(icuTracker const* tracker) const;

  /// The same text bound to `tracker`; for null, with bytes of its own in the region that they were
  /// in before they were first bound.
  /// @throws std::bad_alloc; nothing has changed then.
  OmCellBytes BoundTo(icuTracker* tracker) const;

 private:
  OmCellBytes(void* storage, std::uintptr_t extent) : storage_(storage), extent_(extent) {}

  static constexpr std::uintptr_t kBound = 1;
  static constexpr std::uintptr_t kInCell = 2;
  static constexpr unsigned int kFlagBits = 2;

  bool IsBound() const { return (extent_ & kBound) != 0; }
  std::string_view BoundView() const;
  OmMemoryRegion* Home() const;

  // Own bytes: the bytes, and their number above the flags. Bound: the tracker's entry, and the
  // address of the region to return to, whose lowest bits are the flags.
  void* storage_;
  std::uintptr_t extent_;
};

#endif
