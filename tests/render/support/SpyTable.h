#ifndef TESTS_RENDER_SUPPORT_SPYTABLE_H
#define TESTS_RENDER_SUPPORT_SPYTABLE_H

#include <map>
#include <string>

#include "render/support/RenderTables.h"
#include "support/SpyCell.h"

namespace render_tables {

/// Fills a table with spies, each of a text of its own and shown at one place: a title, a caption, a
/// footnote, two rows in a group, two columns, one layer, and the cells.
inline void FillWithSpies(Table& table) {
  table.SetTableTitle(SpyCell("title"));
  SpyCell const caption("caption");
  table.Caption(&caption);
  OmFootnote footnote;
  footnote.text = SpyCell("note").Clone(nullptr);
  auto const note = static_cast<unsigned int>(table.Footnote(footnote, true));
  OmDimension& rows = table.AddDimension(SpyCell("rows"));
  auto const group = rows.AddNewChild(rows.Root(), SpyCell("group"), ~0UL, true);
  rows.AddNewChild(group, SpyCell("row 0"), 0, false);
  rows.AddNewChild(group, SpyCell("row 1"), 1, false);
  OmDimension& columns = table.AddDimension(SpyCell("columns"));
  columns.AddNewChild(columns.Root(), SpyCell("column 0"), 0, false);
  columns.AddNewChild(columns.Root(), SpyCell("column 1"), 1, false);
  OmDimension& layers = table.AddDimension(SpyCell("layers"));
  layers.AddNewChild(layers.Root(), SpyCell("layer"), 0, false);
  table.Place({0}, {1}, {2});
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 2; ++column) {
      SpyCell cell("cell " + std::to_string(row) + ' ' + std::to_string(column));
      table.Cell({row, column, 0}, WithFootnotes(cell, {note}));
    }
  }
}

/// How often each spy was asked for its text.
inline std::map<std::string, int> TimesAsked(SpyLog const& log) {
  std::map<std::string, int> times;
  for (SpyLog::Call const& call : log.Of(SpyCell::Operation::GetText)) {
    ++times[call.text];
  }
  return times;
}

}  // namespace render_tables

#endif
