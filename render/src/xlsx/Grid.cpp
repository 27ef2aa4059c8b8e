#include "xlsx/Grid.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "content/AreaAlignment.h"
#include "content/CellText.h"
#include "content/NumberCell.h"
#include "unicode/CleanText.h"

namespace lakresvos::render {

namespace {

constexpr double kMaxNumber = 9.99999999999999e307;  // what a cell can hold

/// The number format for so many decimals, "0.00" for two, followed by the marks of footnotes;
/// empty for the general one, nothing when there is no room for the marks.
std::optional<std::string> NumberFormat(int decimals, std::string const& marks) {
  constexpr int kMaxDecimals = 30;
  constexpr std::size_t kMaxLength = 127;
  std::string format;
  if (decimals >= 0 && decimals <= kMaxDecimals) {
    format = "0" + (decimals > 0 ? "." + std::string(static_cast<std::size_t>(decimals), '0') : "");
  }
  if (marks.empty()) {
    return format;
  }
  format += format.empty() ? "General\"" : "\"";
  for (char const c : CleanText(marks)) {
    format += c == '"' ? '\'' : c == '\n' ? ' ' : c;
  }
  format += '"';
  return format.size() <= kMaxLength ? std::optional(format) : std::nullopt;
}

/// Whether a heading cell outlines what is beside it.
bool IsGroup(GridCell const& cell, GridRole role) {
  return cell.role == role && cell.node != nullptr;
}

class XlsxGrid {
 public:
  XlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, XlsxNotes& notes, XlsxOptions const& options,
           int top)
      : sheet_(sheet),
        grid_(grid),
        notes_(notes),
        options_(options),
        top_(top),
        above_(static_cast<std::size_t>(grid.Columns())),
        columnTotals_(static_cast<std::size_t>(grid.Columns())) {
    OmPivotTable const& table = grid.Table();
    XlsxStyle heading;
    heading.bold = true;
    XlsxStyle columnHeading = heading;
    columnHeading.rule = true;
    columnHeading.vertical = VerticalAlignment::Bottom;
    columnHeading.wrap = true;
    XlsxStyle corner = heading;
    corner.rule = true;
    corner.vertical = VerticalAlignment::Bottom;
    corner_ = ApplyArea(corner, table, FormatArea::AreaCorner);
    columnLabels_ = ApplyArea(columnHeading, table, FormatArea::AreaColumnLabels);
    rowLabels_ = ApplyArea(heading, table, FormatArea::AreaRowLabels);
    XlsxStyle total;
    total.bold = true;
    data_ = ApplyArea(XlsxStyle(), table, FormatArea::AreaData);
    totals_ = ApplyArea(total, table, FormatArea::AreaData);
  }

  int Write() {
    sheet_.CheckPlace(top_ + grid_.Rows() - 1, grid_.Columns() - 1);
    for (int row = 0; row < grid_.Rows(); ++row) {
      WriteRow(row);
    }
    return top_ + grid_.Rows();
  }

 private:
  /// A heading cell that reaches into the present row from above it.
  struct Above {
    GridCell const* cell = nullptr;
    bool merged = false;
    std::shared_ptr<MarkedText const> text;
  };

  void WriteRow(int row) {
    ruleStart_ = RuleStart(row);
    for (GridCell const& cell : grid_.Headings(row)) {
      Above const above{
          &cell,
          WantsMerge(cell) && sheet_.Merge(top_ + row, cell.column, cell.rowSpan, cell.columnSpan),
          std::make_shared<MarkedText const>(
              MarkedText{notes_.FindText(cell.label), notes_.FindMarks(cell.label)})};
      for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) {
        above_[static_cast<std::size_t>(c)] = above;
        if (cell.role == GridRole::ColumnHeading && IsTotal(cell.label)) {
          columnTotals_[static_cast<std::size_t>(c)] = true;
        }
      }
    }
    bool const heading = row < grid_.HeadingRows();
    int const labels = heading ? grid_.Columns() : grid_.HeadingColumns();
    if (int const level = heading ? 0 : GroupsAround(row); level > 0) {
      sheet_.SetRowLevel(top_ + row, level);
    }
    for (int column = 0; column < labels; ++column) {
      WriteLabel(row, column);
    }
    if (heading) {
      return;
    }
    DisplayGrid::BodyRow cells = grid_.Body(row);
    XlsxStyle const total = InRow(totals_, row);
    XlsxStyle const plain = IsTotalRow() ? total : InRow(data_, row);
    for (int column = labels; column < grid_.Columns(); ++column) {
      bool const inTotal = columnTotals_[static_cast<std::size_t>(column)];
      WriteCell(row, column, cells.Cell(column), inTotal ? total : plain);
    }
  }

  /// A style of the data as it is in this row.
  XlsxStyle InRow(XlsxStyle style, int row) const {
    style.groupRule = ruleStart_ < grid_.Columns();
    bool const alternate = (row - grid_.HeadingRows()) % 2 == 1;
    return alternate ? ApplyAlternateColors(std::move(style),
                                            grid_.Table().getAreaFormat(FormatArea::AreaData))
                     : style;
  }

  /// Whether a heading of the present row is a total's.
  bool IsTotalRow() const {
    return std::any_of(above_.begin(), above_.begin() + grid_.HeadingColumns(),
                       [](Above const& above) { return IsTotal(above.cell->label); });
  }

  /// The column where the rule above a row starts: of a group the first one, of a total that of its
  /// heading; the number of columns when there is none.
  int RuleStart(int row) const {
    if (StartsGroup(row)) {
      return 0;
    }
    GridCells const starting = grid_.Headings(row);
    auto const total = std::find_if(starting.begin(), starting.end(), [](GridCell const& cell) {
      return cell.role == GridRole::RowHeading && IsTotal(cell.label);
    });
    return total != starting.end() ? total->column : grid_.Columns();
  }

  /// Whether an outermost row heading starts that has several rows, or that follows such a one.
  bool StartsGroup(int row) const {
    if (row <= grid_.HeadingRows() || grid_.HeadingColumns() == 0) {
      return false;
    }
    GridCell const& before = *above_.front().cell;
    GridCells const starting = grid_.Headings(row);
    return before.row + before.rowSpan == row &&
           (before.rowSpan > 1 || starting.begin()->rowSpan > 1);
  }

  bool WantsMerge(GridCell const& cell) const {
    bool const wanted =
        cell.role == GridRole::RowHeading ? options_.mergeRows : options_.mergeColumns;
    return wanted && (cell.rowSpan > 1 || cell.columnSpan > 1);
  }

  /// In how many groups the row is without being their first row, which stays in sight when the
  /// group is folded.
  int GroupsAround(int row) const {
    int level = 0;
    for (int column = 0; column < grid_.HeadingColumns(); ++column) {
      GridCell const& cell = *above_[static_cast<std::size_t>(column)].cell;
      level += IsGroup(cell, GridRole::RowHeading) && cell.column == column && cell.row < row;
    }
    return level;
  }

  XlsxStyle LabelStyle(GridCell const& cell) const {
    switch (cell.role) {
      case GridRole::Corner:
        return corner_;
      case GridRole::ColumnHeading: {
        XlsxStyle style = columnLabels_;
        style.horizontal =
            ChooseAlignment(style.horizontal, cell.columnSpan > 1 ? HorizontalAlignment::Center
                                                                  : HorizontalAlignment::Right);
        return style;
      }
      case GridRole::RowHeading:
        break;
    }
    return rowLabels_;
  }

  /// Whether a place of merged cells can show something beside their text: a rule. A corner between
  /// deep headings has millions of other places.
  static bool IsAtEdge(GridCell const& cell, int row, int column) {
    return row == cell.row || row == cell.row + cell.rowSpan - 1 || column == cell.column ||
           column == cell.column + cell.columnSpan - 1;
  }

  void WriteLabel(int row, int column) {
    Above const& above = above_[static_cast<std::size_t>(column)];
    GridCell const& cell = *above.cell;
    XlsxStyle style = LabelStyle(cell);
    style.groupRule = column >= ruleStart_;
    bool const first = cell.row == row && cell.column == column;
    if (above.merged && !first) {
      if (IsAtEdge(cell, row, column)) {
        sheet_.FormatEmptyCell(top_ + row, column, style);
      }
    } else {
      sheet_.WriteText(top_ + row, column, *above.text, style, cell.columnSpan == 1);
    }
  }

  void WriteCell(int row, int column, OmCellText* cell, XlsxStyle const& plain) {
    if (cell == nullptr) {
      if (!plain.background.empty() || plain.groupRule) {
        sheet_.FormatEmptyCell(top_ + row, column, plain);
      }
      return;
    }
    XlsxStyle style = plain;
    auto const& styles = grid_.Table().getCellStyles();
    std::size_t const number = cell->hasMeta() ? cell->getMeta()->getStyle() : 0;
    if (number != 0 && number < styles.size()) {
      style = ApplyProperties(style, styles[number]);
    }
    std::optional<ShownNumber> const value = FindNumber(*cell);
    if (value.has_value() && style.horizontal == HorizontalAlignment::Any) {
      style.horizontal = HorizontalAlignment::Right;
    }
    std::string const text = cell->GetText();
    if (value.has_value() && std::fabs(value->value) <= kMaxNumber) {
      std::string const marks = notes_.RaiseMarks(cell);
      auto const format = NumberFormat(value->decimals, marks);
      if (format.has_value() && (marks.empty() || sheet_.HasRoomFor(*format))) {
        style.numberFormat = *format;
        sheet_.WriteNumber(top_ + row, column, value->value, text + marks, style);
        return;
      }
      sheet_.CountLoss(XlsxLoss::MarkedNumber, top_ + row, column);
    }
    sheet_.WriteText(top_ + row, column, {text, notes_.FindMarks(cell)}, style);
  }

  XlsxSheet& sheet_;
  DisplayGrid const& grid_;
  XlsxNotes& notes_;
  XlsxOptions const& options_;
  int top_;
  std::vector<Above> above_;        // per column
  std::vector<bool> columnTotals_;  // per column, whether a heading above is a total's
  int ruleStart_ = 0;               // the column where the rule above the present row starts
  XlsxStyle corner_;
  XlsxStyle columnLabels_;
  XlsxStyle rowLabels_;
  XlsxStyle data_;
  XlsxStyle totals_;
};

}  // namespace

int WriteXlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, XlsxNotes& notes,
                  XlsxOptions const& options, int top) {
  return XlsxGrid(sheet, grid, notes, options, top).Write();
}

void SetUpXlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, int top) {
  auto const body = static_cast<lxw_row_t>(top + grid.HeadingRows());
  auto const columns = static_cast<lxw_col_t>(grid.HeadingColumns());
  worksheet_freeze_panes(sheet.Handle(), body, columns);
  sheet.RepeatHeadings({top, grid.HeadingRows(), grid.HeadingColumns()});
  worksheet_outline_settings(sheet.Handle(), LXW_TRUE, LXW_FALSE, LXW_FALSE, LXW_FALSE);
  std::vector<int> levels(static_cast<std::size_t>(grid.Columns()), 0);
  for (int row = 0; row < grid.HeadingRows(); ++row) {
    for (GridCell const& cell : grid.Headings(row)) {
      bool const group = IsGroup(cell, GridRole::ColumnHeading);
      for (int c = cell.column + 1; group && c < cell.column + cell.columnSpan; ++c) {
        ++levels[static_cast<std::size_t>(c)];
      }
    }
  }
  for (int column = grid.HeadingColumns(); column < grid.Columns(); ++column) {
    sheet.SetColumnLevel(column, levels[static_cast<std::size_t>(column)]);
  }
}

}  // namespace lakresvos::render
