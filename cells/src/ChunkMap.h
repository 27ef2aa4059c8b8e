#ifndef CELLS_CHUNKMAP_H
#define CELLS_CHUNKMAP_H

/// Which parts of the address space regions hold, in chunks: pieces whose address is a multiple of
/// their size. Tells an address in a region from any other, which nothing near the address can.
///
/// Thread safety: all may be called by several threads at once. Constant time per chunk.
namespace chunk_map {

constexpr unsigned long kChunkSize = 64UL << 10;

/// Enters the chunks that cover `size` bytes from `start`, which starts a chunk.
/// @throws std::bad_alloc, also for addresses beyond those that programs get; nothing has changed
///         then.
void Add(void const* start, unsigned long size);

/// Takes out what Add() entered.
void Remove(void const* start, unsigned long size);

/// Whether the chunk that `address` lies in has been entered.
bool Has(void const* address);

}  // namespace chunk_map

#endif
