#include "render/support/RandomDocument.h"

#include <climits>
#include <memory>
#include <rapidcheck.h>
#include <string>
#include <utility>
#include <vector>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>

#include "render/support/RandomCell.h"
#include "support/RandomLayoutTable.h"

namespace {

using Item = std::unique_ptr<OmOutputPart>;

/// Makes items.
class RandomItems {
 public:
  explicit RandomItems(unsigned int seed) : random_(seed) {}

  Item Next() {
    Item item = Make();
    item->FlagA(!OneIn(5));
    item->FlagB(!OneIn(5));
    return item;
  }

  bool OneIn(int chances) { return random_.OneIn(chances); }
  int Draw(int below) { return random_.Draw(below); }

 private:
  Item Make() {
    switch (Draw(12)) {
      case 0:
        return Heading(std::make_unique<OmHeading>(*random_.Cell()));
      case 1:
        return Procedure();
      case 2:
        return Texts(std::make_unique<OmTextBlock>(*random_.Cell(), random_.Text()));
      case 3:
        return Texts(std::make_unique<OmPageTitle>(random_.Text()));
      case 4:
        return Chart();
      case 5:
        return AnswerTree();
      case 6:
        return Model();
      case 7:
        return Interactive();
      default:
        return Table();
    }
  }

  template <class Kind>
  Item Heading(std::unique_ptr<Kind> heading) {
    for (int i = OneIn(3) ? Draw(3) : 0; i > 0; --i) {
      heading->Records().push_back({OneIn(3) ? ULLONG_MAX : 1U,
                                    OneIn(2) ? random_.Cell().release() : nullptr,
                                    OneIn(2) ? random_.Cell().release() : nullptr, 2});
    }
    return heading;
  }

  Item Procedure() {
    auto procedure = std::make_unique<OmProcedure>(*random_.Cell(), random_.Text(), random_.Text(),
                                                   random_.Text());
    if (OneIn(2)) {
      procedure->Codes() = {random_.Integer(), 2, random_.Integer(), 0};
    }
    return Heading(std::move(procedure));
  }

  template <class Kind>
  Item Texts(std::unique_ptr<Kind> block) {
    for (int i = OneIn(3) ? Draw(3) : 0; i > 0; --i) {
      block->TextList().push_back(random_.Text());
    }
    return block;
  }

  /// Hands random bytes to an operation, or nothing.
  template <class Part, class Set>
  void Give(Part& part, Set set) {
    if (OneIn(2)) {
      std::string const bytes = random_.Bytes();
      (part.*set)(bytes.data(), static_cast<unsigned int>(bytes.size()));
    }
  }

  template <class Part>
  void GiveGeoJson(Part& part) {
    for (int i = Draw(4); i > 0; --i) {
      Give(part, &Part::addGeoJSONFileName);
      Give(part, &Part::addGeoJSONFileContent);
    }
  }

  std::string CodePage() { return OneIn(2) ? "" : OneIn(2) ? "iso-8859-1" : "no such page"; }

  Item Chart() {
    auto chart = std::make_unique<OmChart>(*random_.Cell(), CodePage(), random_.Integer());
    Give(*chart, &OmChart::SetXmlDescription);
    Give(*chart, &OmChart::SetBinaryDataStream);
    Give(*chart, &OmChart::SetImageStream);
    Give(*chart, &OmChart::SetViZJSON);
    Give(*chart, &OmChart::setVizJSONTemplate);
    chart->setOptions(random_.Text());
    chart->SetImageSubType(static_cast<ChartXMLContentSubType>(Draw(9)));
    if (OneIn(2)) {
      int const numbers[] = {random_.Integer(), random_.Integer()};
      chart->Done(reinterpret_cast<char const*>(numbers));
    }
    for (int i = Draw(4); i > 0; --i) {
      Give(*chart, &OmChart::addCSVFileName);
      Give(*chart, &OmChart::addCSVFileContent);
    }
    GiveGeoJson(*chart);
    if (OneIn(2)) {
      std::string const block =
          OmChart::MapInfoBlock({random_.Text(), random_.Text(), random_.Text(), random_.Text()});
      chart->SetMapInfo(block.data(), static_cast<unsigned int>(block.size() - (OneIn(3) ? 1 : 0)));
    }
    return chart;
  }

  Item AnswerTree() {
    static std::string const codePage;
    auto tree = std::make_unique<OmAnswerTree>(*random_.Cell(), codePage);
    tree->SetTreeType(OneIn(2) ? -1 : random_.Integer());
    std::string const xml = random_.Bytes();
    tree->SetCompressedXML(xml.data(), static_cast<unsigned int>(xml.size()), OneIn(2) ? 0 : 17);
    Give(*tree, &OmAnswerTree::SetPath);
    Give(*tree, &OmAnswerTree::SetUncompressedXML);
    Give(*tree, &OmAnswerTree::SetUncompressedDisplayXML);
    return tree;
  }

  Item Model() {
    auto model = std::make_unique<OmModel>(*random_.Cell());
    Give(*model, &OmModel::SetPMML);
    Give(*model, &OmModel::SetBinaryDataStream);
    Give(*model, &OmModel::SetPMMLContainer);
    Give(*model, &OmModel::SetStatXMLContainer);
    if (OneIn(3)) {
      model->SetModelType(OmModel::MODEL_DOCUMENT);
    }
    return model;
  }

  Item Interactive() {
    auto item = std::make_unique<OmInteractive>(*random_.Cell(), CodePage(), random_.Integer());
    Give(*item, &OmInteractive::setInteractiveJSON);
    item->setProcedureName(random_.Text());
    item->setJSONPath(random_.Text());
    item->setOptions(random_.Text());
    GiveGeoJson(*item);
    return item;
  }

  Item Table() {
    auto table = std::make_unique<layout_tables::Table>();
    layout_tables::MakeRandomTable(*table);
    if (table->NDimensions() != 0 && table->FirstCell().Cell() == nullptr) {
      table->Put(std::vector<int>(static_cast<std::size_t>(table->NDimensions()), 0));
    }
    Relabel(*table);
    if (OneIn(3)) {
      BackendSettings settings;
      settings.setFastTables(!OneIn(3));
      settings.setUnicode(!OneIn(3));
      settings.setLocale(random_.Text());
      settings.setMaxCells(OneIn(2) ? INT_MAX : Draw(5));
      table->setBackendSettings(settings);
    }
    SetTexts(*table);
    SetAttributes(*table);
    SetStyles(*table);
    return table;
  }

  /// Puts random cells and labels where there are any.
  void Relabel(OmPivotTable& table) {
    std::vector<std::vector<int>> indexes;
    for (auto at = table.FirstCell(); at.Cell() != nullptr && indexes.size() < 20; ++at) {
      indexes.push_back(at.Index());
    }
    for (std::vector<int> const& index : indexes) {
      table.Cell(index, *random_.Cell());
    }
    for (int d = 0; d < table.NDimensions(); ++d) {
      OmVectorTreeWalk<OmDimension::Node> walk(table.Dimension(d).Root());
      while (walk.Next()) {
        OmDimensionNode& node = walk.Current().Value();
        node.sort = OneIn(4) ? Draw(3) : node.sort;
        if (OneIn(4)) {
          delete std::exchange(node.label, random_.Cell()->Clone(node.childIndex.region));
        }
        if (OneIn(6) && node.childIndex.size() != 0) {
          std::swap(node.childIndex[0], node.childIndex[node.childIndex.size() - 1]);
        }
      }
    }
  }

  void SetTexts(OmPivotTable& table) {
    if (OneIn(2)) {
      table.SetTableTitle(*random_.Cell());
      table.Caption(random_.Cell().get());
    }
    if (OneIn(3)) {
      table.CornerText(random_.Cell().get());
    }
    for (int i = Draw(4); i > 0; --i) {
      OmFootnote footnote;
      footnote.text = random_.Cell().release();
      footnote.marker = OneIn(2) ? random_.Cell().release() : nullptr;
      footnote.count = random_.Integer();
      table.Footnote(footnote, OneIn(2));
    }
  }

  void SetAttributes(OmPivotTable& table) {
    void (OmPivotTable::*const flags[])(bool) = {
        &OmPivotTable::Show,         &OmPivotTable::RotateRowLabels,
        &OmPivotTable::showCaption,  &OmPivotTable::RotateColumnLabels,
        &OmPivotTable::Scratch,      &OmPivotTable::setBackendOwns,
        &OmPivotTable::setFastTable, &OmPivotTable::setLabelsOnly,
        &OmPivotTable::setImputed,   &OmPivotTable::RemovedFootnotes};
    for (auto const set : flags) {
      if (OneIn(4)) {
        (table.*set)(OneIn(2));
      }
    }
    void (OmPivotTable::*const numbers[])(int) = {
        &OmPivotTable::OptionNumber,  &OmPivotTable::MinColumnWidth,  &OmPivotTable::MaxColumnWidth,
        &OmPivotTable::MinRowWidth,   &OmPivotTable::MaxRowWidth,     &OmPivotTable::setLayerLoc,
        &OmPivotTable::setLang,       &OmPivotTable::setVariableMode, &OmPivotTable::setValueMode,
        &OmPivotTable::setStartColor, &OmPivotTable::setEndColor};
    for (auto const set : numbers) {
      if (OneIn(4)) {
        (table.*set)(random_.Integer());
      }
    }
    void (OmPivotTable::*const texts[])(std::string const&) = {
        &OmPivotTable::TableLocale, &OmPivotTable::setBorderInfo, &OmPivotTable::setTableLookInfo,
        &OmPivotTable::setTablePropertiesInfo};
    for (auto const set : texts) {
      if (OneIn(4)) {
        (table.*set)(random_.Text());
      }
    }
    table.TableId(OneIn(2) ? LLONG_MIN : Draw(9));
    if (OneIn(4)) {
      table.setHasMarkers();
      table.addMiscProperty(random_.Text());
      table.addMiscProperty(random_.Text());
      table.setTableCustomWidths({0, UINT_MAX});
      table.setTableCustomHeights({3});
    }
  }

  template <class Style>
  void SetStyle(Style& style) {
    style.setFontName(random_.Text());
    style.setFontSize(static_cast<float>(random_.Integer()) / 7);
    style.setFontStyle(random_.Integer());
    style.setUnderline(OneIn(2));
    style.setHorizontalAlignment(Draw(4) - 1);
    style.setVerticalAlignment(random_.Integer());
    style.setTextColor(random_.Text());
    style.setBackgroundColor(random_.Text());
  }

  void SetStyles(OmPivotTable& table) {
    for (int i = OneIn(2) ? Draw(4) : 0; i > 0; --i) {
      auto area = std::make_unique<FormatArea>(static_cast<FormatArea::Area>(Draw(9)));
      SetStyle(*area);
      area->setUseAltRowColors(OneIn(2));
      area->setAlternateTextColor(random_.Text());
      area->setAlternateBackgroundColor(random_.Text());
      area->setMarginLeft(random_.Integer());
      area->setMarginRight(random_.Integer());
      area->setMarginTop(random_.Integer());
      area->setMarginBottom(random_.Integer());
      table.setAreaFormat(area.release());
    }
    for (int i = OneIn(3) ? Draw(3) : 0; i > 0; --i) {
      SetStyle(table.cellStyles().emplace_back());
      table.emptyCellStyles()[static_cast<unsigned long long>(Draw(9))] = 2;
      table.emptyCellStyles()[ULLONG_MAX] = USHRT_MAX;
    }
  }

  RandomCells random_;
};

}  // namespace

void MakeRandomDocument(OmOutputTree& tree) {
  RandomItems items(static_cast<unsigned int>(*rc::gen::inRange(0, INT_MAX)));
  OmOutputTree::Node at = tree.begin();
  for (int i = items.Draw(6); i > 0; --i) {
    Item item = items.Next();
    if (items.OneIn(3)) {
      at = tree.begin();
    }
    at = items.OneIn(9) ? tree.Append(item.get()) : at.AppendChild(item.get());
    (void)item.release();
  }
  if (items.OneIn(3)) {
    OmOutputTree::Node root = tree.begin();
    tree.Erase(root);
  }
}
