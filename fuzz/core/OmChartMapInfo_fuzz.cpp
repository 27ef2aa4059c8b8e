#include <algorithm>
#include <string>

#include <cells/OmStringCell.h>
#include <lakresvos/OMSException.h>
#include <lakresvos/OmChart.h>

#include "core/document/PlainMapInfo.h"
#include "harness/Target.h"

namespace {

using plain_map_info::Texts;

/// Reads a block that comes in two chunks.
Texts Read(std::string_view block, std::size_t cut) {
  OmChart chart(OmStringCell("map"), "", 0);
  for (std::string_view const chunk : {block.substr(0, cut), block.substr(cut)}) {
    chart.SetMapInfo(chunk.data(), static_cast<unsigned int>(chunk.size()));
  }
  Texts texts;
  chart.getMapInfo(texts[0], texts[1], texts[2], texts[3]);
  return texts;
}

}  // namespace

// Blocks of map information, read and compared with a byte by byte reading, and what was read
// written and read again. The first byte says how the block is cut in chunks.
void Exercise(std::string_view input) {
  if (input.size() < 2) {
    return;
  }
  std::size_t const cut = static_cast<unsigned char>(input.front()) % input.size();
  std::string_view const block = input.substr(1);
  Texts const texts = Read(block, cut);
  if (texts != plain_map_info::Expected(std::string(block))) {
    Fail("a block is read otherwise than byte by byte");
  }
  try {
    std::string const written = OmChart::MapInfoBlock({texts[0], texts[1], texts[2], texts[3]});
    if (Read(written, 0) != texts) {
      Fail("a block is not read as it was written");
    }
  } catch (OMSException const&) {
    if (std::max(texts[1].size(), texts[3].size()) < 65536) {
      Fail("texts that have room in a block are refused");
    }
  }
}
