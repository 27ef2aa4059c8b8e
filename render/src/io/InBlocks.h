#ifndef LAKRESVOS_RENDER_IO_INBLOCKS_H
#define LAKRESVOS_RENDER_IO_INBLOCKS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "io/OutputBuffer.h"
#include "io/WorkCrew.h"

namespace lakresvos::render {

/// How much work is handed to a thread at a time.
struct BlockSizes {
  std::size_t cells = 1024;  ///< in a block, about
  std::size_t alone = 10;    ///< blocks that end before starting a thread would have paid
};

/// The sizes in use. Tests set others, so that a few cells make many blocks; nobody else does.
inline BlockSizes blockSizes;

/// Does work in blocks, several of them at a time, and takes the results in order. So what comes of
/// it is the same with any number of threads, and no more than two blocks per thread are in memory.
///
/// @param threads how many may work, the calling one included.
/// @param next    fills in what the next block is, and returns false when there is none. Called in
///        the calling thread, in order. A block may have served as another before.
/// @param alone   does a block and takes its result, in the calling thread, when no other works.
/// @param work    does a block, in any thread, while others are done.
/// @param take    takes the result of a block. Called in the calling thread, in order.
/// @throws what one of these throws. Blocks that come before one that fails were taken then, and no
///         thread is left.
template <class Block, class Next, class Alone, class Work, class Take>
void DoInBlocks(unsigned int threads, Next next, Alone alone, Work work, Take take) {
  Block block;
  for (std::size_t done = 0; threads <= 1 || done < blockSizes.alone; ++done) {
    if (!next(block)) {
      return;
    }
    alone(block);
  }
  // More would wait for what the calling thread does.
  constexpr unsigned int kMaxThreads = 64;
  std::size_t const busy = std::min(threads, kMaxThreads);
  std::vector<Block> blocks(2 * busy);
  WorkCrew crew(busy - 1, blocks.size(), [&](std::size_t piece) { work(blocks[piece]); });
  std::size_t added = 0;
  bool more = true;
  for (std::size_t taken = 0;; ++taken) {
    while (more && added - taken < blocks.size()) {
      more = next(blocks[added % blocks.size()]);
      if (more) {
        crew.Add(added++ % blocks.size());
      }
    }
    if (taken == added) {
      return;
    }
    crew.Finish(taken % blocks.size());
    take(blocks[taken % blocks.size()]);
  }
}

/// The same for work whose results are taken in one way only.
template <class Block, class Next, class Work, class Take>
void DoInBlocks(unsigned int threads, Next next, Work work, Take take) {
  auto const alone = [&](Block& block) {
    work(block);
    take(block);
  };
  DoInBlocks<Block>(threads, next, alone, work, take);
}

/// The same for blocks of output.
///
/// @param write appends a block to a string; as `work` above.
template <class Block, class Next, class Write>
void WriteInBlocks(OutputBuffer& out, unsigned int threads, Next next, Write write) {
  struct Written {
    Block block;
    std::string text;
  };
  DoInBlocks<Written>(
      threads, [&](Written& written) { return next(written.block); },
      [&](Written& written) {
        write(written.block, out.Text());
        out.Drain();
      },
      [&](Written& written) {
        written.text.clear();
        write(written.block, written.text);
      },
      [&](Written& written) { out.Append(written.text); });
}

}  // namespace lakresvos::render

#endif
