#include "html/Table.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include <cells/OmCellMetaData.h>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "html/Headings.h"
#include "html/Text.h"

namespace lakresvos::render {

namespace {

class HtmlTable {
 public:
  HtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes, std::string const& prefix,
            HtmlIds& ids)
      : out_(out),
        grid_(grid),
        headings_(grid),
        notes_(notes),
        prefix_(prefix),
        ids_(ids),
        named_(grid.HeadingRows() > 1 || grid.HeadingColumns() > 1),
        alternates_(HasAlternateRows(grid.Table())),
        columnHeaders_(static_cast<std::size_t>(grid.Columns())),
        columnTotals_(static_cast<std::size_t>(grid.Columns())),
        rowHeaders_(static_cast<std::size_t>(grid.HeadingColumns())),
        rowTotals_(static_cast<std::size_t>(grid.HeadingColumns())) {}

  void Write() {
    out_ << "<table class=\"pivot-table\" aria-labelledby=\"" << prefix_ << "t\"";
    if (grid_.HeadingColumns() > 1) {
      out_ << " style=\"--levels:" << grid_.HeadingColumns() << '"';
    }
    out_ << '>';
    WriteColumnGroups();
    WriteHead();
    WriteBodies();
    out_ << "</table>\n";
  }

 private:
  static bool HasAlternateRows(OmPivotTable const& table) {
    FormatArea const* const data = table.getAreaFormat(FormatArea::AreaData);
    return data != nullptr && data->getUseAltRowColors();
  }

  bool IsHeader(GridCell const& cell) const { return !IsBlank(notes_.Text(cell.label)); }

  /// The id of a heading cell as data cells list it, after a space; empty where they need none.
  std::string MakeListedId(GridCell const& cell) {
    bool const listed = named_ && cell.role != GridRole::Corner && IsHeader(cell);
    return listed ? " " + ids_.Next() : std::string();
  }

  /// One for the row headings and one for each outermost column heading.
  void WriteColumnGroups() {
    WriteColumnGroup(grid_.HeadingColumns());
    if (grid_.HeadingRows() == 0) {
      WriteColumnGroup(grid_.Columns() - grid_.HeadingColumns());
      return;
    }
    for (GridCell const& cell : grid_.Headings(0)) {
      if (cell.role == GridRole::ColumnHeading) {
        WriteColumnGroup(cell.columnSpan);
      }
    }
  }

  void WriteColumnGroup(int columns) {
    for (; columns > 0; columns -= kMaxHtmlColumns) {
      out_ << "<colgroup span=\"" << std::min(columns, kMaxHtmlColumns) << "\"></colgroup>";
    }
  }

  void WriteHead() {
    if (grid_.HeadingRows() == 0) {
      return;
    }
    out_ << "<thead>";
    for (int row = 0; row < grid_.HeadingRows(); ++row) {
      out_ << "<tr>";
      for (GridCell const& cell : headings_.Row(row)) {
        std::string const id = MakeListedId(cell);
        WriteHeading(cell, cell.columnSpan > 1 ? "colgroup" : "col", id);
        for (int c = cell.column; IsTotal(cell.label) && c < cell.column + cell.columnSpan; ++c) {
          columnTotals_[static_cast<std::size_t>(c)] = true;
        }
        for (int c = cell.column;
             cell.role == GridRole::ColumnHeading && c < cell.column + cell.columnSpan; ++c) {
          columnHeaders_[static_cast<std::size_t>(c)] += id;
        }
      }
      out_ << "</tr>\n";
    }
    out_ << "</thead>\n";
  }

  void WriteHeading(GridCell const& cell, char const* scope, std::string_view listedId) {
    bool const header = IsHeader(cell);
    out_ << (header ? "<th" : "<td");
    WriteClasses(MakeClasses(cell), cell.label);
    if (!listedId.empty()) {
      out_ << " id=\"" << listedId.substr(1) << '"';
    }
    if (header) {
      out_ << " scope=\"" << scope << '"';
    }
    WriteSpan("colspan", cell.columnSpan);
    WriteSpan("rowspan", cell.rowSpan);
    out_ << '>';
    bool const reaches = header && ((cell.role == GridRole::ColumnHeading && cell.columnSpan > 1) ||
                                    (cell.role == GridRole::RowHeading && cell.rowSpan > 1));
    out_ << (reaches ? "<span class=\"stay\">" : "");
    notes_.AppendLabel(out_.Text(), cell.label);
    out_ << (reaches ? "</span>" : "") << (header ? "</th>" : "</td>");
  }

  /// hN: the heading column, edge: the last one, foot: the end of the head, t: a total, wide: has a
  /// wide word.
  std::string MakeClasses(GridCell const& cell) const {
    std::string classes = cell.role == GridRole::Corner ? "corner " : "";
    if (cell.role != GridRole::ColumnHeading) {
      classes += "h" + std::to_string(cell.column);
      if (cell.column + cell.columnSpan == grid_.HeadingColumns()) {
        classes += " edge";
      }
    } else if (cell.rowSpan > 1 && cell.row + cell.rowSpan == grid_.HeadingRows()) {
      classes += "foot";
    }
    if (IsTotal(cell.label)) {
      classes += classes.empty() ? "t" : " t";
    }
    if (HasWideWord(notes_.Text(cell.label))) {
      classes += classes.empty() ? "wide" : " wide";
    }
    return classes;
  }

  void WriteSpan(char const* name, int span) {
    if (span > 1) {
      out_ << ' ' << name << "=\"" << span << '"';
    }
  }

  /// A body for each outermost row heading, those of single rows together.
  void WriteBodies() {
    bool open = false;
    for (int row = grid_.HeadingRows(); row < grid_.Rows(); ++row) {
      if (bool const starts = StartsGroup(row); !open || starts) {
        out_ << (open ? "</tbody>\n<tbody>" : "<tbody>");
        open = true;
      }
      WriteRow(row);
      out_.Drain();
    }
    if (open) {
      out_ << "</tbody>\n";
    }
  }

  bool StartsGroup(int row) {
    GridCells const cells = grid_.Headings(row);
    if (cells.begin() == cells.end() || cells.begin()->column != 0) {
      return false;
    }
    int const before = std::exchange(groupRows_, cells.begin()->rowSpan);
    return before > 1 || groupRows_ > 1;
  }

  void WriteRow(int row) {
    std::vector<GridCell> const& headings = headings_.Row(row);
    for (GridCell const& cell : headings) {
      for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) {
        bool const first = c == cell.column;
        rowTotals_[static_cast<std::size_t>(c)] = first && IsTotal(cell.label);
        rowHeaders_[static_cast<std::size_t>(c)] = first ? MakeListedId(cell) : std::string();
      }
    }
    WriteRowStart(row);
    for (GridCell const& cell : headings) {
      WriteHeading(cell, cell.rowSpan > 1 ? "rowgroup" : "row",
                   rowHeaders_[static_cast<std::size_t>(cell.column)]);
    }
    std::string headers;
    for (std::string const& header : rowHeaders_) {
      headers += header;
    }
    DisplayGrid::BodyRow cells = grid_.Body(row);
    for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
      WriteCell(cells.Cell(column), column, headers);
    }
    out_ << "</tr>\n";
  }

  void WriteRowStart(int row) {
    bool const total = std::find(rowTotals_.begin(), rowTotals_.end(), true) != rowTotals_.end();
    bool const alternate = alternates_ && (row - grid_.HeadingRows()) % 2 == 1;
    out_ << "<tr";
    if (total || alternate) {
      out_ << " class=\"" << (alternate ? "alt" : "") << (alternate && total ? " " : "")
           << (total ? "total" : "") << '"';
    }
    out_ << '>';
  }

  void WriteCell(OmCellText* cell, int column, std::string const& rowHeaders) {
    std::string& out = out_.Text();
    out += "<td";
    std::string classes = cell != nullptr && FindNumber(*cell) ? "n" : "";
    if (columnTotals_[static_cast<std::size_t>(column)]) {
      classes += classes.empty() ? "t" : " t";
    }
    WriteClasses(std::move(classes), cell);
    if (named_) {
      std::string const& above = columnHeaders_[static_cast<std::size_t>(column)];
      if (!rowHeaders.empty() || !above.empty()) {
        out += " headers=\"";
        out.append(rowHeaders.empty() ? above : rowHeaders, 1);
        if (!rowHeaders.empty()) {
          out += above;
        }
        out += '"';
      }
    }
    out += '>';
    notes_.AppendCell(out, cell);
    out += "</td>";
  }

  /// Writes these classes and that of the style that a text asks for.
  void WriteClasses(std::string classes, OmCellText const* text) {
    std::size_t const style = text != nullptr && text->hasMeta() ? text->getMeta()->getStyle() : 0;
    if (style != 0 && style < grid_.Table().getCellStyles().size()) {
      classes += (classes.empty() ? "s" : " s") + std::to_string(style);
    }
    if (!classes.empty()) {
      out_ << " class=\"" << classes << '"';
    }
  }

  OutputBuffer& out_;
  DisplayGrid const& grid_;
  HtmlHeadings headings_;
  HtmlNotes& notes_;
  std::string const& prefix_;
  HtmlIds& ids_;
  int groupRows_ = 1;                       // how many rows the newest outermost heading has
  bool named_;                              // whether header cells have ids
  bool alternates_;                         // whether every other row looks different
  std::vector<std::string> columnHeaders_;  // per column, " id" of each header above
  std::vector<bool> columnTotals_;          // per column, whether a header above is a total's
  std::vector<std::string> rowHeaders_;     // per heading column, " id" of the header of this row
  std::vector<bool> rowTotals_;             // per heading column, whether that is a total's
};

}  // namespace

void WriteHtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes,
                    std::string const& prefix, HtmlIds& ids) {
  HtmlTable(out, grid, notes, prefix, ids).Write();
}

}  // namespace lakresvos::render
