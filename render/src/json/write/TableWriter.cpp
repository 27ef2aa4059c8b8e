#include "json/write/TableWriter.h"

#include <cstddef>
#include <vector>

#include <lakresvos/OmVectorTreeWalk.h>
#include <lakresvos/render/AreaNames.h>

#include "json/Fields.h"
#include "json/Names.h"
#include "json/write/CellWriter.h"

namespace lakresvos::render {

namespace {

bool IsInOrder(OmVector<unsigned int> const& index, std::size_t children) {
  std::size_t next = 0;
  for (unsigned int const entry : index.Elements()) {
    if (entry != next++) {
      return false;
    }
  }
  return next == children;
}

void WriteNode(JsonStream& json, OmDimension::ConstNode node) {
  static OmDimensionNode const initial;
  OmDimensionNode const& value = node.Value();
  WriteCell(json, "label", value.label);
  if (value.subscript == kRemoved) {
    json.Name("subscript").Text(kRemovedSubscript);
  } else {
    WriteNumber(json, "subscript", value.subscript, initial.subscript);
  }
  WriteFlag(json, "group", value.group);
  WriteFlag(json, "hide", value.hide);
  WriteFlag(json, "hideLabels", value.hideLabels);
  WriteNumber(json, "sort", value.sort, initial.sort);
  if (!IsInOrder(value.childIndex, node.NChildren())) {
    json.Name("childIndex").BeginArray();
    for (unsigned int const entry : value.childIndex.Elements()) {
      json.Number(entry);
    }
    json.End();
  }
}

void WriteDimension(JsonStream& json, OmDimension const& dimension) {
  json.BeginObject();
  json.Name("size").Number(dimension.CategoryCount());
  json.Name("nodes").BeginLines();
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  std::vector<std::size_t> path;
  for (std::size_t id = 0; walk.Next(); ++id) {
    path.resize(walk.Path().size() - 1);
    json.BeginObject();
    json.Name("id").Number(id);
    if (!path.empty()) {
      json.Name("parent").Number(path.back());
    }
    WriteNode(json, walk.Current());
    json.End();
    path.push_back(id);
  }
  json.End();
  json.End();
}

void WriteFootnotes(JsonStream& json, OmPivotTable const& table) {
  if (table.Footnotes().size() == 0) {
    return;
  }
  json.Name("footnotes").BeginLines();
  for (OmFootnote const& footnote : table.Footnotes().Elements()) {
    json.BeginObject();
    WriteCell(json, "text", footnote.text);
    WriteCell(json, "marker", footnote.marker);
    json.Name("count").Number(footnote.count);
    json.End();
  }
  json.End();
}

void WriteStyles(JsonStream& json, OmPivotTable const& table) {
  if (!table.getCellStyles().empty()) {
    json.Name("cellStyles").BeginLines();
    for (OmCellProperties const& style : table.getCellStyles()) {
      json.BeginObject();
      WriteAttributes(json, style, kStyleAttributes<OmCellProperties>);
      json.End();
    }
    json.End();
  }
  if (!table.getEmptyCellStyles().empty()) {
    json.Name("emptyCellStyles").BeginArray();
    for (auto const& [place, style] : table.getEmptyCellStyles()) {
      json.BeginArray();
      json.Number(place);
      json.Number(style);
      json.End();
    }
    json.End();
  }
}

void WriteAreas(JsonStream& json, OmPivotTable const& table) {
  bool any = false;
  for (std::size_t i = 0; i < kAreaNames.size(); ++i) {
    FormatArea const* const area = table.getAreaFormat(static_cast<FormatArea::Area>(i));
    if (area == nullptr) {
      continue;
    }
    if (!any) {
      json.Name("areas").BeginObject();
    }
    any = true;
    json.Name(kAreaNames[i]).BeginObject();
    WriteAttributes(json, *area, kAreaAttributes);
    json.End();
  }
  if (any) {
    json.End();
  }
}

void WriteBackend(JsonStream& json, OmPivotTable const& table) {
  BackendSettings const& settings = table.getBackendSettings();
  static BackendSettings const initial;
  // A table that has settings, were they the initial ones, has a tracker.
  bool const set = table.getICUTracker() != nullptr ||
                   settings.getMaxCells() != initial.getMaxCells() ||
                   settings.getFastTables() != initial.getFastTables() ||
                   settings.getUnicode() != initial.getUnicode() || !settings.getLocale().empty();
  if (set) {
    json.Name("backend").BeginObject();
    WriteAttributes(json, settings, kBackendAttributes);
    json.End();
  }
}

void WriteCells(JsonStream& json, OmPivotTable const& table) {
  json.Name("cells").BeginLines();
  std::vector<int> index;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    json.BeginObject();
    at.Index(index);
    WriteNumbers(json, "index", index);
    WriteCellFields(json, *at.Cell());
    json.End();
  }
  json.End();
}

}  // namespace

void WriteTableFields(JsonStream& json, OmPivotTable const& table) {
  WriteCell(json, "template", table.TemplateName());
  WriteFlag(json, "hasSplits", table.HasSplits());
  WriteCell(json, "title", table.TableTitle());
  WriteCell(json, "caption", table.Caption());
  WriteCell(json, "corner", table.CornerText());
  WriteAttributes(json, table, kTableAttributes);
  WriteFlag(json, "hasMarkers", table.hasMarkers());
  WriteText(json, "miscProperties", table.getMiscProperties());
  WriteNumbers(json, "customWidths", table.getTableCustomWidths());
  WriteNumbers(json, "customHeights", table.getTableCustomHeights());
  WriteBackend(json, table);
  WriteAreas(json, table);
  WriteStyles(json, table);
  WriteFootnotes(json, table);
  json.Name("dimensions").BeginLines();
  for (int i = 0; i < table.NDimensions(); ++i) {
    WriteDimension(json, table.Dimension(i));
  }
  json.End();
  WriteNumbers(json, "rows", table.Rows());
  WriteNumbers(json, "columns", table.Columns());
  WriteNumbers(json, "layers", table.Layers());
  WriteCells(json, table);
}

}  // namespace lakresvos::render
