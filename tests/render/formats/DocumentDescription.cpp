#include "render/formats/DocumentDescription.h"

#include <algorithm>
#include <cmath>
#include <ios>
#include <sstream>
#include <string>
#include <utility>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>

#include "render/grid/GridModel.h"

namespace {

using nlohmann::json;

/// Any bytes as a text of JSON: each as the character with its number.
std::string Bytes(std::string const& text) {
  std::string encoded;
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      encoded += c;
    } else {
      encoded += static_cast<char>(0xC0 | byte >> 6);
      encoded += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return encoded;
}

/// The number that a cell shows and its decimals, -1 for as many as it needs; null when it shows
/// something else.
class ShownNumber : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  json number = nullptr;
  json exact = nullptr;  ///< as C++ writes it in hexadecimal; also one that is not finite

  void Visit(OmNumber& cell) override { Show(cell.Value(), cell.Decimals()); }
  void Visit(OmNumDataValue& cell) override {
    if (cell.Display() == OmLabelDisplay::Value || cell.Label().empty()) {
      Show(cell.Value(), -1);
    }
  }

 private:
  void Show(double value, int decimals) {
    std::ostringstream digits;
    digits << std::hexfloat << value;
    exact = digits.str();
    if (std::isfinite(value)) {
      number = {{"value", value}, {"decimals", std::max(decimals, -1)}};
    }
  }
};

/// Describes items one after the other.
class Describer : public OmOutputPart::Visitor {
 public:
  json items = json::array();

  explicit Describer(bool skipEmpty) : skipEmpty_(skipEmpty) {}

  void Visit(OmHeading& heading) override { Add("heading", TextOf(heading.Label())); }
  void Visit(OmProcedure& procedure) override { Add("procedure", Plain(procedure.OutlineText())); }
  void Visit(OmPageTitle& title) override { Add("pageTitle", Plain(title.Text())); }
  void Visit(OmTextBlock& block) override {
    items.push_back(
        {{"kind", "text"}, {"label", TextOf(block.Label())}, {"text", Plain(block.Text())}});
  }
  void Visit(OmPivotTable& table) override {
    items.push_back(table.Show() ? TableOf(table) : json{{"kind", "hidden table"}});
  }
  void Visit(OmChart& chart) override {
    Add(chart.GetImageData().empty() ? "chart" : "picture", TextOf(chart.Label()));
  }
  void Visit(OmAnswerTree& tree) override { Add("answerTree", TextOf(tree.Label())); }
  void Visit(OmModel& model) override { Add("model", TextOf(model.Label())); }
  void Visit(OmInteractive& item) override { Add("interactive", TextOf(item.Label())); }

 private:
  void Add(char const* kind, json const& text) {
    items.push_back({{"kind", kind}, {"text", text}});
  }

  static json Plain(std::string const& text) {
    return {{"bytes", Bytes(text)}, {"notes", json::array()}};
  }

  /// @param table whose footnotes a text may refer to; null: none.
  static json TextOf(OmCellText const* cell, OmPivotTable const* table = nullptr) {
    if (cell == nullptr) {
      return nullptr;
    }
    json text = Plain(cell->GetText());
    OmCellMetaData const* const meta = table != nullptr ? cell->getMeta() : nullptr;
    if (meta != nullptr) {
      for (unsigned int const number : meta->getFootnotes()) {
        if (number < table->Footnotes().size()) {
          text["notes"].push_back(number);
        }
      }
    }
    return text;
  }

  json TableOf(OmPivotTable& table) const {
    OmCellText const* const title = table.GetTableTitle();
    json footnotes = json::array();
    for (OmFootnote const& footnote : table.Footnotes().Elements()) {
      footnotes.push_back({{"text", TextOf(footnote.text)}, {"marker", TextOf(footnote.marker)}});
    }
    return {{"kind", "table"},
            {"forPrograms", table.IsNotes() || table.IsWarnings()},
            {"dimensions", table.NDimensions()},
            {"title", TextOf(title != nullptr ? title : table.Label(), &table)},
            {"caption", TextOf(table.showCaption() ? table.Caption() : nullptr, &table)},
            {"footnotes", footnotes},
            {"layers", LayersOf(table)},
            {"categories", CategoriesOf(table)},
            {"cells", CellsOf(table)},
            {"titleNotes", title != nullptr ? TextOf(title, &table)["notes"] : json::array()}};
  }

  /// Of each dimension the label, also in parts where it is a composite, and all categories with the
  /// labels of the groups that they are in.
  static json CategoriesOf(OmPivotTable& table) {
    json dimensions = json::array();
    for (int i = 0; i < table.NDimensions(); ++i) {
      OmDimension const& dimension = std::as_const(table).Dimension(i);
      json parts = json::array();
      if (auto* const label = dynamic_cast<OmComposite*>(dimension.value.label)) {
        for (std::size_t part = 0; part < label->Parts().Root().NChildren(); ++part) {
          parts.push_back(TextOf(label->Parts().Root()[part].Value()));
        }
      }
      json categories = json::array();
      AddCategories(dimension.Root(), json::array(), table, categories);
      dimensions.push_back({{"label", TextOf(dimension.value.label, &table)},
                            {"parts", parts},
                            {"isGroup", dimension.Root().Value().group},
                            {"categories", categories}});
    }
    return dimensions;
  }

  static void AddCategories(OmDimension::ConstNode node, json const& path,
                            OmPivotTable const& table, json& categories) {
    OmDimensionNode const& value = node.Value();
    if (!value.group) {
      OmCellMetaData const* const meta = value.label != nullptr ? value.label->getMeta() : nullptr;
      categories.push_back({{"subscript", static_cast<int>(value.subscript)},
                            {"path", path},
                            {"isTotal", meta != nullptr && meta->isTotal()}});
    }
    for (std::size_t i = 0; i < node.NChildren(); ++i) {
      json below = path;
      below.push_back(TextOf(node.Child(i).Value().label, &table));
      AddCategories(node.Child(i), below, table, categories);
    }
  }

  /// The stored cells in their order; a number as digits that say it exactly, also one that is not
  /// finite.
  static json CellsOf(OmPivotTable& table) {
    json cells = json::array();
    for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
      ShownNumber shown;
      at.Cell()->Accept(shown);
      cells.push_back(
          {{"index", at.Index()}, {"text", TextOf(at.Cell(), &table)}, {"exact", shown.exact}});
    }
    return cells;
  }

  json LayersOf(OmPivotTable& table) const {
    json described = json::array();
    OmDisplayLayerHeading layers(table, skipEmpty_);
    while (layers.NextLayer()) {
      GridModel const grid(layers, skipEmpty_, true);
      described.push_back({{"name", NameOf(layers)},
                           {"headingRows", grid.HeadingRows()},
                           {"headingColumns", grid.HeadingColumns()},
                           {"columns", grid.Columns()},
                           {"rows", RowsOf(grid, table)}});
    }
    return described;
  }

  /// For each layer dimension its name and the names of the category and of the groups above it.
  static json NameOf(OmDisplayLayerHeading& layers) {
    json name = json::array();
    for (int i = 0; i < layers.NDimensions(); ++i) {
      json dimension = nullptr;
      json categories = json::array();
      for (auto const* const node : layers.Nodes(i)) {
        OmCellText const* const label = node != nullptr ? node->Value().label : nullptr;
        if (node != nullptr && node->depth == 0) {
          dimension = TextOf(label, &layers.Table());
        } else if (label != nullptr) {
          categories.push_back(TextOf(label, &layers.Table()));
        }
      }
      name.push_back({{"dimension", dimension}, {"categories", categories}});
    }
    return name;
  }

  /// What each position of the grid shows, and of the headings where its cell starts.
  static json RowsOf(GridModel const& grid, OmPivotTable const& table) {
    json rows = json::array();
    for (int row = 0; row < grid.Rows(); ++row) {
      json positions = json::array();
      for (int column = 0; column < grid.Columns(); ++column) {
        if (row >= grid.HeadingRows() && column >= grid.HeadingColumns()) {
          OmCellText* const cell = grid.Body(row, column);
          ShownNumber shown;
          if (cell != nullptr) {
            cell->Accept(shown);
          }
          positions.push_back({{"text", TextOf(cell, &table)}, {"number", shown.number}});
        } else {
          GridModel::Position const at = grid.At(row, column);
          positions.push_back(
              {{"text", TextOf(at.label, &table)}, {"start", {at.start.first, at.start.second}}});
        }
      }
      rows.push_back(std::move(positions));
    }
    return rows;
  }

  bool skipEmpty_;
};

}  // namespace

json DescribeDocument(OmOutputTree& document, bool skipEmpty) {
  Describer describer(skipEmpty);
  for (OmOutputTree::Node node = document.begin(); !node.AtEnd(); ++node) {
    if (*node != nullptr) {
      (*node)->Accept(describer);
      describer.items.back()["depth"] = node.depth;
    }
  }
  return describer.items;
}
