#include <algorithm>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <new>
#include <sys/mman.h>

#include <cells/OmMemoryRegion.h>

#include "ChunkMap.h"
#include "Poison.h"

// Why a region is built as it is. Tables hold millions of small cells and texts, made one by one
// and mostly released all at once, and whoever releases one knows its address and nothing else. So
//
// 1. Blocks have no headers. Memory comes in chunks whose addresses are multiples of their size:
//    the upper bits of an address lead to the chunk's header, which names the owner and, for each
//    page of the chunk, the size of the blocks on it.
// 2. Each rounded size has a bin of its own, fed by runs of pages: getting a block is a step
//    forward in a run, or the head of the list of released ones. What is made in a row lies in a
//    row, and runs grow with the demand, so that a size that is seldom asked for takes little.
// 3. Large blocks lie alone, each after a header of its own, and go back to the system at once: if
//    they were kept they would seldom fit again.
// 4. The end of a region looks at chunks, not at blocks. Chunks come in spans that grow with the
//    region, up to a huge page, so that the system is asked less often and the machine looks up
//    fewer addresses: reading a large table here and there waits for little else.
// 5. Cells ask for the region that they lie in, and may lie on the stack. Nothing near an arbitrary
//    address tells, so a map of all chunks says which addresses may be masked at all.
// 6. Only a shared region locks. The address sanitizer must be told of each block, so its builds do
//    without the inline path.

namespace {

using chunk_map::kChunkSize;
constexpr unsigned long kPageSize = 1UL << 10;
constexpr unsigned long kPages = kChunkSize / kPageSize;
constexpr unsigned long kMaxShared = kChunkSize / 4;
constexpr unsigned long kMaxBlock = 1UL << 40;
constexpr unsigned long kMaxRunPages = 16;
constexpr unsigned long kHugePage = 2UL << 20;
constexpr unsigned long kMaxSpanChunks = kHugePage / kChunkSize;
constexpr unsigned char kAlone = 0xFF;

/// Sizes up to 256 in steps of 16, above it four steps per doubling.
unsigned int FindBin(unsigned long size) {
  unsigned long const last = size - 1;
  if (last < 256) {
    return static_cast<unsigned int>(last / 16);
  }
  auto const top = static_cast<unsigned int>(std::bit_width(last)) - 1;
  return 16 + (top - 8) * 4 + static_cast<unsigned int>((last >> (top - 2)) & 3);
}

unsigned long GetBlockSize(unsigned int bin) {
  return bin < 16 ? (bin + 1) * 16UL : (5UL + (bin & 3)) << (6 + (bin - 16) / 4);
}

unsigned long RoundUp(unsigned long value, unsigned long step) {
  return (value + step - 1) / step * step;
}

/// What is as long as a huge page starts where one can start.
std::align_val_t GetAlignment(unsigned long size) {
  return static_cast<std::align_val_t>(size >= kHugePage ? kHugePage : kChunkSize);
}

/// Memory from the system, of whose size the map of chunks knows the first `mapped` bytes.
void* Acquire(unsigned long size, unsigned long mapped) {
  auto const giveBack = [size](void* memory) { operator delete(memory, GetAlignment(size)); };
  std::unique_ptr<void, decltype(giveBack)> memory(operator new(size, GetAlignment(size)),
                                                   giveBack);
  chunk_map::Add(memory.get(), mapped);
#ifdef MADV_HUGEPAGE
  if (size >= kHugePage) {
    // A wish: without huge pages everything is as it was, only slower.
    static_cast<void>(madvise(memory.get(), size / kHugePage * kHugePage, MADV_HUGEPAGE));
  }
#endif
  return memory.release();
}

void ReturnMemory(void* memory, unsigned long size, unsigned long mapped) {
  poison::Permit(memory, size);
  chunk_map::Remove(memory, mapped);
  operator delete(memory, GetAlignment(size));
}

/// The shortest run of at least `pages` pages that wastes no more than an eighth of itself.
unsigned long FindRunLength(unsigned long pages, unsigned long blockSize) {
  while (pages * kPageSize % blockSize * 8 > pages * kPageSize) {
    ++pages;
  }
  return pages;
}

}  // namespace

/// The header at the start of every chunk, and of every block that lies alone. Both are aligned to
/// the chunk size, so that masking a block's address finds it.
struct OmMemoryRegion::Chunk {
  OmMemoryRegion* owner;
  Chunk* next;  // the next span or lone block; null in the later chunks of a span
  Chunk* previous;
  unsigned long size;  // of the span or, with this header, of the lone block
  unsigned char binOfPage[kPages];

  static Chunk* Find(void const* block) {
    return reinterpret_cast<Chunk*>(reinterpret_cast<std::uintptr_t>(block) & ~(kChunkSize - 1));
  }

  unsigned int GetBin(void const* block) const {
    return binOfPage[(reinterpret_cast<std::uintptr_t>(block) & (kChunkSize - 1)) / kPageSize];
  }

  /// What came from the system with this chunk at its start.
  unsigned long Reserved() const { return IsAlone() ? ReservedAlone(size) : size; }

  /// A lone block has at least its first chunk to itself: nothing else may lie in a chunk that the
  /// map knows, whose header goes with the block.
  static unsigned long ReservedAlone(unsigned long size) { return std::max(size, kChunkSize); }

  /// How much of it can hold the start of a block.
  unsigned long Mapped() const { return IsAlone() ? kChunkSize : size; }

  bool IsAlone() const { return binOfPage[0] == kAlone; }
  unsigned long AloneSize() const { return size - sizeof(Chunk); }
  unsigned long BlockSize(void const* block) const {
    return IsAlone() ? AloneSize() : GetBlockSize(GetBin(block));
  }
};

std::atomic<OmMemoryRegion::AllocationProbe> OmMemoryRegion::probe_{nullptr};

OmMemoryRegion::OmMemoryRegion(bool shared)
    : shared_(shared), quick_(!shared && !poison::kActive) {}

OmMemoryRegion::~OmMemoryRegion() {
  for (Chunk* list : {spans_, alone_}) {
    while (list != nullptr) {
      Chunk* const next = list->next;
      ReturnMemory(list, list->Reserved(), list->Mapped());
      list = next;
    }
  }
}

void* OmMemoryRegion::AllocateSlow(unsigned long size) {
  if (AllocationProbe const probe = probe_.load(std::memory_order_relaxed)) {
    probe(size);
  }
  if (size > kMaxShared) {
    return AllocateAlone(size);
  }
  unsigned int const index = FindBin(std::max(size, 1UL));
  unsigned long const blockSize = GetBlockSize(index);
  auto const lock = Lock();
  Bin& bin = bins_[index];
  poison::Permit(bin.released, bin.released != nullptr ? sizeof(void*) : 0);
  void* block = bin.Pop(blockSize);
  if (block == nullptr) {
    StartRun(bin, index);
    block = bin.Pop(blockSize);
  }
  bytesInUse_ += blockSize;
  poison::Forbid(block, blockSize);
  poison::Permit(block, size);
  return block;
}

void OmMemoryRegion::StartRun(Bin& bin, unsigned int index) {
  unsigned long const blockSize = GetBlockSize(index);
  if (static_cast<unsigned long>(chunkEnd_ - page_) < blockSize) {
    StartChunk();
  }
  Chunk* const chunk = Chunk::Find(page_);
  auto* const base = reinterpret_cast<char*>(chunk);
  auto const start = static_cast<unsigned long>(page_ - base);
  unsigned long const wanted = FindRunLength(bin.runPages, blockSize) * kPageSize;
  unsigned long const end = std::min(RoundUp(start + wanted, kPageSize), kChunkSize);
  std::fill(chunk->binOfPage + start / kPageSize, chunk->binOfPage + end / kPageSize,
            static_cast<unsigned char>(index));
  bin.fresh = page_;
  bin.freshEnd = page_ + (end - start) / blockSize * blockSize;
  bin.runPages = std::min(bin.runPages * 2, kMaxRunPages);
  page_ = base + end;
}

void OmMemoryRegion::StartChunk() {
  if (chunkEnd_ == spanEnd_) {
    unsigned long const count = std::clamp(bytesReserved_ / kChunkSize / 4, 1UL, kMaxSpanChunks);
    unsigned long const size = count * kChunkSize;
    void* const memory = Acquire(size, size);
    spans_ = ::new (memory) Chunk{this, spans_, nullptr, size, {}};
    bytesReserved_ += size;
    chunkEnd_ = static_cast<char*>(memory);
    spanEnd_ = chunkEnd_ + size;
  } else {
    ::new (chunkEnd_) Chunk{this, nullptr, nullptr, 0, {}};
  }
  page_ = chunkEnd_ + sizeof(Chunk);
  chunkEnd_ += kChunkSize;
  poison::Forbid(page_, kChunkSize - sizeof(Chunk));
}

void* OmMemoryRegion::AllocateAlone(unsigned long size) {
  if (size > kMaxBlock) {
    throw std::bad_alloc();
  }
  unsigned long const blockSize = RoundUp(size, kGrain);
  unsigned long const used = sizeof(Chunk) + blockSize;
  unsigned long const reserved = Chunk::ReservedAlone(used);
  void* const memory = Acquire(reserved, kChunkSize);
  auto const lock = Lock();
  alone_ = ::new (memory) Chunk{this, alone_, nullptr, used, {kAlone}};
  if (alone_->next != nullptr) {
    alone_->next->previous = alone_;
  }
  bytesInUse_ += blockSize;
  bytesReserved_ += reserved;
  void* const block = alone_ + 1;
  poison::Forbid(block, reserved - sizeof(Chunk));
  poison::Permit(block, size);
  return block;
}

void OmMemoryRegion::Release(void* block) {
  if (block == nullptr) {
    return;
  }
  Chunk* const chunk = Chunk::Find(block);
  OmMemoryRegion& owner = *chunk->owner;
  if (!owner.working_.load(std::memory_order_relaxed)) {
    poison::Forbid(block, chunk->BlockSize(block));
    return;
  }
  poison::Forbid(block, chunk->BlockSize(block));
  if (chunk->IsAlone()) {
    owner.ReleaseAlone(chunk);
    return;
  }
  unsigned int const index = chunk->GetBin(block);
  auto const lock = owner.Lock();
  poison::Permit(block, sizeof(void*));
  Bin& bin = owner.bins_[index];
  *static_cast<void**>(block) = bin.released;
  bin.released = block;
  poison::Forbid(block, sizeof(void*));
  owner.bytesInUse_ -= GetBlockSize(index);
}

void OmMemoryRegion::ReleaseAlone(Chunk* chunk) {
  {
    auto const lock = Lock();
    (chunk->previous != nullptr ? chunk->previous->next : alone_) = chunk->next;
    if (chunk->next != nullptr) {
      chunk->next->previous = chunk->previous;
    }
    bytesInUse_ -= chunk->AloneSize();
    bytesReserved_ -= chunk->Reserved();
  }
  ReturnMemory(chunk, chunk->Reserved(), chunk->Mapped());
}

OmMemoryRegion* OmMemoryRegion::FindOwner(void const* block) {
  return Chunk::Find(block)->owner;
}

OmMemoryRegion* OmMemoryRegion::FindRegion(void const* address) {
  return chunk_map::Has(address) ? Chunk::Find(address)->owner : nullptr;
}

OmMemoryRegion* OmMemoryRegion::DefaultHeap() {
  // Never destroyed: cells with static storage may be released after any destructor of ours.
  alignas(OmMemoryRegion) static unsigned char storage[sizeof(OmMemoryRegion)];
  static auto* const heap = ::new (static_cast<void*>(storage)) OmMemoryRegion(true);
  return heap;
}

void OmMemoryRegion::WorkingRelease(bool on) {
  working_.store(on, std::memory_order_relaxed);
}

unsigned long OmMemoryRegion::BytesInUse() const {
  auto const lock = Lock();
  return bytesInUse_;
}

unsigned long OmMemoryRegion::BytesReserved() const {
  auto const lock = Lock();
  return bytesReserved_;
}

void OmMemoryRegion::setAllocationProbe(AllocationProbe probe) {
  probe_.store(probe, std::memory_order_relaxed);
}

std::unique_lock<std::mutex> OmMemoryRegion::Lock() const {
  return shared_ ? std::unique_lock<std::mutex>(mutex_) : std::unique_lock<std::mutex>();
}
