#include "json/read/TableReader.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include <lakresvos/render/AreaNames.h>

#include "grid/TableCost.h"
#include "json/Names.h"
#include "json/read/AttributeReader.h"
#include "json/read/CellReader.h"
#include "json/read/DimensionReader.h"

namespace lakresvos::render {

namespace {

void ReadTexts(JsonObject& object, OmPivotTable& table) {
  if (std::unique_ptr<OmCellText> const title = ReadCell(object, "title")) {
    table.SetTableTitle(*title);
  }
  table.Caption(ReadCell(object, "caption").get());
  table.CornerText(ReadCell(object, "corner").get());
}

void ReadMarks(JsonObject& object, OmPivotTable& table) {
  if (ReadFlag(object, "hasMarkers")) {
    table.setHasMarkers();
  }
  table.addMiscProperty(ReadText(object, "miscProperties"));
  table.setTableCustomWidths(ReadIntegers<unsigned int>(object, "customWidths"));
  table.setTableCustomHeights(ReadIntegers<unsigned int>(object, "customHeights"));
}

void ReadAreas(JsonObject& object, OmPivotTable& table) {
  std::optional<JsonValue> const areas = object.Find("areas");
  if (!areas) {
    return;
  }
  JsonObject fields(*areas);
  for (std::size_t i = 0; i < kAreaNames.size(); ++i) {
    if (std::optional<JsonValue> const area = fields.Find(kAreaNames[i])) {
      auto format = std::make_unique<FormatArea>(static_cast<FormatArea::Area>(i));
      JsonObject attributes(*area);
      ReadAttributes(attributes, *format, kAreaAttributes);
      attributes.Finish();
      table.setAreaFormat(format.get());
      (void)format.release();
    }
  }
  fields.Finish();
}

void ReadStyles(JsonObject& object, OmPivotTable& table) {
  if (std::optional<JsonValue> const styles = object.Find("cellStyles")) {
    for (std::size_t i = 0; i < styles->Count(); ++i) {
      JsonValue const style = styles->Element(i);
      JsonObject fields(style);
      ReadAttributes(fields, table.cellStyles().emplace_back(), kStyleAttributes<OmCellProperties>);
      fields.Finish();
    }
  }
  if (std::optional<JsonValue> const styles = object.Find("emptyCellStyles")) {
    for (std::size_t i = 0; i < styles->Count(); ++i) {
      JsonValue const pair = styles->Element(i);
      if (pair.Count() != 2) {
        pair.Fail("expected a place and a style");
      }
      auto const place = pair.Element(0).Integer<unsigned long long>();
      auto const style = pair.Element(1).Integer<unsigned short>();
      if (!table.emptyCellStyles().emplace(place, style).second) {
        pair.Fail("duplicate place");
      }
    }
  }
}

void ReadFootnotes(JsonObject& object, OmPivotTable& table) {
  std::optional<JsonValue> const footnotes = object.Find("footnotes");
  for (std::size_t i = 0; footnotes && i < footnotes->Count(); ++i) {
    JsonValue const value = footnotes->Element(i);
    JsonObject fields(value);
    OmVector<OmFootnote>& list = table.Footnotes();
    OmFootnote& footnote = list.emplace_back(list.region);
    if (std::unique_ptr<OmCellText> const text = ReadCell(fields, "text")) {
      footnote.text = text->Clone(list.region);
    }
    if (std::unique_ptr<OmCellText> const marker = ReadCell(fields, "marker")) {
      footnote.marker = marker->Clone(list.region);
    }
    footnote.count = fields.At("count").Integer<int>();
    fields.Finish();
  }
}

void ReadDimensions(JsonObject& object, OmPivotTable& table) {
  JsonValue const dimensions = object.At("dimensions");
  for (std::size_t i = 0; i < dimensions.Count(); ++i) {
    ReadDimension(dimensions.Element(i), table);
  }
  table.Rows().elements = ReadIntegers<short>(object, "rows");
  table.Columns().elements = ReadIntegers<short>(object, "columns");
  table.Layers().elements = ReadIntegers<short>(object, "layers");
}

/// The settings of the back end, if the table has any.
std::optional<BackendSettings> ReadBackend(JsonObject& object) {
  std::optional<JsonValue> const backend = object.Find("backend");
  if (!backend) {
    return std::nullopt;
  }
  BackendSettings settings;
  JsonObject fields(*backend);
  ReadAttributes(fields, settings, kBackendAttributes);
  fields.Finish();
  return settings;
}

/// Stores cells in the order of the store.
class CellBuilder {
 public:
  explicit CellBuilder(OmPivotTable& table) : table_(table) {}

  void Add(JsonValue const& value) {
    JsonObject object(value);
    JsonValue const subscripts = object.At("index");
    ReadIndex(subscripts);
    CheckOrder(subscripts);
    std::unique_ptr<OmCellText> const cell = ReadCellFields(object);
    object.Finish();
    table_.Cell(index_, *cell);
    std::swap(index_, before_);
  }

 private:
  void ReadIndex(JsonValue const& subscripts) {
    auto const dimensions = static_cast<std::size_t>(table_.NDimensions());
    if (dimensions == 0) {
      subscripts.Fail("a table without dimensions has no cells");
    }
    if (subscripts.Count() != dimensions) {
      subscripts.Fail("expected " + std::to_string(dimensions) +
                      (dimensions == 1 ? " subscript" : " subscripts") + ", one per dimension");
    }
    index_.clear();
    for (std::size_t i = 0; i < dimensions; ++i) {
      index_.push_back(subscripts.Element(i).Integer<int>(0));
    }
  }

  /// The last dimension varies slowest.
  void CheckOrder(JsonValue const& subscripts) const {
    if (!before_.empty() && !std::lexicographical_compare(before_.rbegin(), before_.rend(),
                                                          index_.rbegin(), index_.rend())) {
      subscripts.Fail(
          "cells out of order: expected ascending subscripts, the first varying fastest");
    }
  }

  OmPivotTable& table_;
  std::vector<int> index_;
  std::vector<int> before_;  // the cell's before; empty at first
};

void ReadCells(JsonObject& object, OmPivotTable& table) {
  JsonValue const cells = object.At("cells");
  object.Value().Spend(EstimateShownCost(table, cells.Count()));
  CellBuilder builder(table);
  for (std::size_t i = 0; i < cells.Count(); ++i) {
    builder.Add(cells.Element(i));
  }
}

}  // namespace

std::unique_ptr<OmPivotTable> ReadTable(JsonObject& object, OmCellText const& label) {
  std::unique_ptr<OmCellText> const name = NeedCell(object, "template");
  auto table = std::make_unique<OmPivotTable>(label, *name, ReadFlag(object, "hasSplits"));
  ReadMarks(object, *table);
  ReadAreas(object, *table);
  ReadStyles(object, *table);
  ReadFootnotes(object, *table);
  ReadDimensions(object, *table);
  std::optional<BackendSettings> const backend = ReadBackend(object);
  if (backend) {
    // The texts that come from now on share storage, and the limit applies to later cells.
    BackendSettings unlimited = *backend;
    unlimited.setMaxCells(BackendSettings().getMaxCells());
    table->setBackendSettings(unlimited);
  }
  ReadTexts(object, *table);
  ReadCells(object, *table);
  if (backend) {
    table->setBackendSettings(*backend);
  }
  ReadAttributes(object, *table, kTableAttributes);
  return table;
}

}  // namespace lakresvos::render
