#include "html/Table.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include <cells/OmCellMetaData.h>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "grid/BodyBlocks.h"
#include "html/Headings.h"
#include "html/Text.h"

namespace lakresvos::render {

namespace {

class HtmlTable {
 public:
  HtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes, std::string const& prefix,
            HtmlIds& ids, unsigned int threads)
      : out_(out),
        grid_(grid),
        headings_(grid),
        notes_(notes),
        prefix_(prefix),
        ids_(ids),
        threads_(threads),
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
        AppendHeading(out_.Text(), cell, cell.columnSpan > 1 ? "colgroup" : "col", id);
        for (int c = cell.column; IsTotal(cell.label) && c < cell.column + cell.columnSpan; ++c) {
          columnTotals_[static_cast<std::size_t>(c)] = true;
        }
        for (int c = cell.column;
             cell.role == GridRole::ColumnHeading && c < cell.column + cell.columnSpan; ++c) {
          columnHeaders_[static_cast<std::size_t>(c)] += id;
        }
      }
      out_ << "</tr>\n";
      out_.Drain();
    }
    out_ << "</thead>\n";
  }

  void AppendHeading(std::string& out, GridCell const& cell, char const* scope,
                     std::string_view listedId) {
    bool const header = IsHeader(cell);
    out += header ? "<th" : "<td";
    AppendClasses(out, MakeClasses(cell), cell.label);
    if (!listedId.empty()) {
      out.append(" id=\"").append(listedId.substr(1)) += '"';
    }
    if (header) {
      out.append(" scope=\"").append(scope) += '"';
    }
    AppendSpan(out, "colspan", cell.columnSpan);
    AppendSpan(out, "rowspan", cell.rowSpan);
    out += '>';
    bool const reaches = header && ((cell.role == GridRole::ColumnHeading && cell.columnSpan > 1) ||
                                    (cell.role == GridRole::RowHeading && cell.rowSpan > 1));
    out += reaches ? "<span class=\"stay\">" : "";
    notes_.AppendLabel(out, cell.label);
    out.append(reaches ? "</span>" : "").append(header ? "</th>" : "</td>");
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

  static void AppendSpan(std::string& out, char const* name, int span) {
    if (span > 1) {
      out.append(" ").append(name).append("=\"").append(std::to_string(span)) += '"';
    }
  }

  /// What a row of the body has before its cells.
  struct RowHead {
    std::string html;
    std::string ids;  // " id" of each header of the row
  };

  /// A body for each outermost row heading, those of single rows together.
  void WriteBodies() {
    bool open = false;
    auto const prepare = [&](int row, RowHead& head) {
      head.html.clear();
      if (bool const starts = StartsGroup(row); !open || starts) {
        head.html += open ? "</tbody>\n<tbody>" : "<tbody>";
        open = true;
      }
      Prepare(row, head);
    };
    auto const write = [this](RowHead const& head, DisplayGrid::BodyRow& cells, std::string& out) {
      AppendRow(out, head, cells);
    };
    if (notes_.NumbersMarks()) {
      WriteBodyRows<RowHead>(out_, BodyBlocks(grid_, 1), 1, prepare, write);
    } else {
      WriteBodyRows<RowHead>(out_, BodyBlocks(grid_), threads_, prepare, write);
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

  void Prepare(int row, RowHead& head) {
    std::vector<GridCell> const& headings = headings_.Row(row);
    for (GridCell const& cell : headings) {
      for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) {
        bool const first = c == cell.column;
        rowTotals_[static_cast<std::size_t>(c)] = first && IsTotal(cell.label);
        rowHeaders_[static_cast<std::size_t>(c)] = first ? MakeListedId(cell) : std::string();
      }
    }
    AppendRowStart(head.html, row);
    for (GridCell const& cell : headings) {
      AppendHeading(head.html, cell, cell.rowSpan > 1 ? "rowgroup" : "row",
                    rowHeaders_[static_cast<std::size_t>(cell.column)]);
    }
    head.ids.clear();
    for (std::string const& header : rowHeaders_) {
      head.ids += header;
    }
  }

  void AppendRowStart(std::string& out, int row) const {
    bool const total = std::find(rowTotals_.begin(), rowTotals_.end(), true) != rowTotals_.end();
    bool const alternate = alternates_ && (row - grid_.HeadingRows()) % 2 == 1;
    out += "<tr";
    if (total || alternate) {
      out.append(" class=\"")
          .append(alternate ? "alt" : "")
          .append(alternate && total ? " " : "")
          .append(total ? "total" : "") += '"';
    }
    out += '>';
  }

  // What follows changes nothing here, for several rows are written at once. Footnotes are another
  // matter: their marks are counted.

  void AppendRow(std::string& out, RowHead const& head, DisplayGrid::BodyRow& cells) const {
    out += head.html;
    for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
      AppendCell(out, cells.Cell(column), column, head.ids);
    }
    out += "</tr>\n";
  }

  void AppendCell(std::string& out, OmCellText* cell, int column,
                  std::string const& rowHeaders) const {
    static constexpr std::array<std::string_view, 4> kClasses = {"", "n", "t", "n t"};
    bool const number = cell != nullptr && FindNumber(*cell);
    bool const total = columnTotals_[static_cast<std::size_t>(column)];
    out += "<td";
    AppendClasses(out, kClasses[(number ? 1U : 0U) + (total ? 2U : 0U)], cell);
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

  /// Appends these classes and that of the style that a text asks for.
  void AppendClasses(std::string& out, std::string_view classes, OmCellText const* text) const {
    std::size_t const wanted = text != nullptr && text->hasMeta() ? text->getMeta()->getStyle() : 0;
    std::size_t const style = wanted < grid_.Table().getCellStyles().size() ? wanted : 0;
    if (classes.empty() && style == 0) {
      return;
    }
    out.append(" class=\"").append(classes);
    if (style != 0) {
      out.append(classes.empty() ? "s" : " s").append(std::to_string(style));
    }
    out += '"';
  }

  OutputBuffer& out_;
  DisplayGrid const& grid_;
  HtmlHeadings headings_;
  HtmlNotes& notes_;
  std::string const& prefix_;
  HtmlIds& ids_;
  unsigned int threads_;
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
                    std::string const& prefix, HtmlIds& ids, unsigned int threads) {
  HtmlTable(out, grid, notes, prefix, ids, threads).Write();
}

}  // namespace lakresvos::render
