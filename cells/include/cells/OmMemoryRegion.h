#ifndef CELLS_OMMEMORYREGION_H
#define CELLS_OMMEMORYREGION_H

#include <atomic>
#include <mutex>

#include <cells/Export.h>

/// An arena: hands out blocks of memory that all go at once when the region is destroyed.
///
/// Blocks of up to a quarter of a chunk (16 KiB) carry no header of their own. A block costs its
/// size rounded up to a multiple of 16 (up to 256 bytes) or to a quarter of a power of two (above);
/// blocks of one size lie next to each other in the order of allocation. Released blocks are handed
/// out again for requests of the same rounded size. A larger block lies alone, in at least a chunk
/// of address space, and goes back to the system as soon as it is released. Everything else goes
/// back with the region, in time proportional to the number of 64 KiB chunks. What a large region
/// takes from the system is in pieces of 2 MiB, for which it asks for huge pages where there are any.
///
/// What it does not do: it runs no destructors, it does not move or merge blocks, and it returns no
/// chunk of small blocks before its end.
///
/// A record that derives from OmMemoryRegion is itself the arena of everything allocated for it.
/// The destructor is not virtual: delete such a record through its own type.
///
/// Thread safety: full for a shared region; none for any other, which one thread at a time uses,
/// and the blocks of it as well.
class CELLS_EXPORT OmMemoryRegion {
 public:
  /// Called with the size of a request, in bytes, before the request is served.
  using AllocationProbe = void (*)(unsigned long size);

  /// Makes an empty region; memory is taken from the system with the first block.
  /// @param shared whether several threads may use the region at once.
  explicit OmMemoryRegion(bool shared);

  OmMemoryRegion(OmMemoryRegion const&) = delete;
  OmMemoryRegion& operator=(OmMemoryRegion const&) = delete;

  /// Gives all memory back, released or not. Objects in it are not destroyed.
  /// Requires: nobody uses the region or a block of it any more.
  ~OmMemoryRegion();

  /// A block of at least `size` bytes, aligned to 16 bytes; never null. Size 0 counts as 1. The
  /// content is undefined. The caller releases the block, or leaves it to the region's destructor,
  /// until which it is valid. Amortized constant time.
  /// @throws std::bad_alloc when the system refuses, or when `size` is beyond any machine (a
  ///         terabyte); the region is then unchanged.
  void* Allocate(unsigned long size) {
    unsigned long const index = (size - 1) / kGrain;
    if (index < kQuickBins && quick_ && probe_.load(std::memory_order_relaxed) == nullptr) {
      if (void* block = bins_[index].Pop((index + 1) * kGrain)) {
        bytesInUse_ += (index + 1) * kGrain;
        return block;
      }
    }
    return AllocateSlow(size);
  }

  /// Returns one block to the region that it came from; null does nothing. Constant time.
  /// Requires: `block` came from Allocate() of a region that still exists, and was not released.
  static void Release(void* block);

  /// The region that `block` came from; never null. Constant time.
  /// Requires: as Release(), and `block` is not null.
  static OmMemoryRegion* FindOwner(void const* block);

  /// The region whose memory `address`, which may be any, lies in; null when it lies in none, as on
  /// the stack, or more than 64 KiB into a block that lies alone. Constant time.
  static OmMemoryRegion* FindRegion(void const* address);

  /// The region that serves wherever a null region is given. Shared; exists until the process ends.
  static OmMemoryRegion* DefaultHeap();

  /// Switches the return of single blocks off or on again. While off, Release() of this region's
  /// blocks does nothing: a region that is about to be destroyed need not look at each block. On at
  /// first.
  void WorkingRelease(bool on);

  /// Says that an object in the region owns something outside it, which nobody but the object can
  /// give back.
  void NoteOwner() { hasOwners_.store(true, std::memory_order_relaxed); }

  /// Whether NoteOwner() was ever called: objects in the region then have to be destroyed before the
  /// region goes.
  bool HasOwners() const { return hasOwners_.load(std::memory_order_relaxed); }

  /// The rounded sizes, in bytes, of all blocks that were handed out and not taken back.
  unsigned long BytesInUse() const;

  /// The bytes that the region holds from the system, in use or not.
  unsigned long BytesReserved() const;

  /// Sets a function that is called before every request to every region; null removes it. It may
  /// throw std::bad_alloc to refuse the request, which lets a test see every allocation fail. One
  /// function serves the whole process; the fast path is off while there is one.
  static void setAllocationProbe(AllocationProbe probe);

 private:
  struct Chunk;

  static constexpr unsigned long kGrain = 16;
  static constexpr unsigned int kQuickBins = 16;  // sizes up to 256 bytes
  static constexpr unsigned int kBins = 40;       // and four per doubling up to 16 KiB

  /// The free blocks of one rounded size: those that came back, then the untouched rest of a run.
  struct Bin {
    void* released = nullptr;
    char* fresh = nullptr;
    char* freshEnd = nullptr;
    unsigned long runPages = 1;

    void* Pop(unsigned long blockSize) {
      void* block = released;
      if (block != nullptr) {
        released = *static_cast<void**>(block);
      } else if (fresh != freshEnd) {
        block = fresh;
        fresh += blockSize;
      }
      return block;
    }
  };

  void* AllocateSlow(unsigned long size);
  void* AllocateAlone(unsigned long size);
  void StartRun(Bin& bin, unsigned int index);
  void StartChunk();
  void ReleaseAlone(Chunk* chunk);
  std::unique_lock<std::mutex> Lock() const;

  static std::atomic<AllocationProbe> probe_;

  bool const shared_;
  bool const quick_;  // whether the inline path of Allocate() may serve requests
  std::atomic<bool> working_{true};
  std::atomic<bool> hasOwners_{false};
  unsigned long bytesInUse_ = 0;
  unsigned long bytesReserved_ = 0;
  char* page_ = nullptr;      // first unused page of the current chunk
  char* chunkEnd_ = nullptr;  // end of the current chunk
  char* spanEnd_ = nullptr;   // end of the chunks that came from the system together
  Chunk* spans_ = nullptr;
  Chunk* alone_ = nullptr;
  mutable std::mutex mutex_;
  Bin bins_[kBins];
};

#endif
