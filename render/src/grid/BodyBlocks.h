#ifndef LAKRESVOS_RENDER_GRID_BODYBLOCKS_H
#define LAKRESVOS_RENDER_GRID_BODYBLOCKS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "io/InBlocks.h"

namespace lakresvos::render {

/// Cuts the body of a grid into blocks of rows: as many each, but for the last.
class BodyBlocks {
 public:
  /// @param grid must outlive the object.
  explicit BodyBlocks(DisplayGrid const& grid)
      : BodyBlocks(grid, blockSizes.cells / static_cast<std::size_t>(std::max(grid.Columns(), 1))) {
  }

  /// @param rows how many are in a block; 0 counts as 1.
  BodyBlocks(DisplayGrid const& grid, std::size_t rows)
      : grid_(grid), rows_(std::max<std::size_t>(rows, 1)), next_(grid.HeadingRows()) {}

  /// The grid row that the next block starts with.
  int NextRow() const { return next_; }

  /// Replaces `rows` by those of the next block; false when there is none.
  bool Next(std::vector<DisplayGrid::BodyRow>& rows) {
    rows.clear();
    for (; next_ < grid_.Rows() && rows.size() < rows_; ++next_) {
      rows.push_back(grid_.Body(next_));
    }
    return !rows.empty();
  }

 private:
  DisplayGrid const& grid_;
  std::size_t rows_;
  int next_;
};

/// Writes the rows of a grid's body in blocks, see WriteInBlocks().
///
/// @tparam Head   what of a row does not depend on its cells.
/// @param prepare called with a grid row and its head, which may have been that of another, in the
///        calling thread, in order.
/// @param write   called with a head, the row's cells and a string to append the row to, in any
///        thread.
template <class Head, class Prepare, class Write>
void WriteBodyRows(OutputBuffer& out, BodyBlocks blocks, unsigned int threads, Prepare prepare,
                   Write write) {
  struct Block {
    std::vector<Head> heads;  // at least one for each row
    std::vector<DisplayGrid::BodyRow> rows;
  };
  WriteInBlocks<Block>(
      out, threads,
      [&](Block& block) {
        int row = blocks.NextRow();
        bool const any = blocks.Next(block.rows);
        block.heads.resize(std::max(block.heads.size(), block.rows.size()));
        for (std::size_t i = 0; i < block.rows.size(); ++i) {
          prepare(row++, block.heads[i]);
        }
        return any;
      },
      [&](Block& block, std::string& text) {
        for (std::size_t i = 0; i < block.rows.size(); ++i) {
          write(block.heads[i], block.rows[i], text);
        }
      });
}

}  // namespace lakresvos::render

#endif
