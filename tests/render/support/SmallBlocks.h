#ifndef TESTS_RENDER_SUPPORT_SMALLBLOCKS_H
#define TESTS_RENDER_SUPPORT_SMALLBLOCKS_H

#include <cstddef>
#include <utility>

#include "io/InBlocks.h"

/// While it exists, a few cells make a block, and threads are started for any work.
class SmallBlocks {
 public:
  explicit SmallBlocks(std::size_t cells)
      : before_(std::exchange(lakresvos::render::blockSizes, {cells, 0})) {}
  ~SmallBlocks() { lakresvos::render::blockSizes = before_; }
  SmallBlocks(SmallBlocks const&) = delete;
  SmallBlocks& operator=(SmallBlocks const&) = delete;

 private:
  lakresvos::render::BlockSizes before_;
};

#endif
