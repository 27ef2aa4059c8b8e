#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/Property.h"

namespace {

// All attributes of one type, each as its setter and its getter

template <class Owner, class Value, class Argument = Value, class Result = Value>
struct AttributeOf {
  void (Owner::*set)(Argument);
  Result (Owner::*get)() const;
};

template <class Value>
using Attribute = AttributeOf<OmPivotTable, Value>;
template <class Value>
using ReferenceAttribute = AttributeOf<OmPivotTable, Value, Value const&, Value const&>;

constexpr Attribute<bool> kFlags[] = {
    {&OmPivotTable::Show, &OmPivotTable::Show},
    {&OmPivotTable::RotateRowLabels, &OmPivotTable::RotateRowLabels},
    {&OmPivotTable::RotateColumnLabels, &OmPivotTable::RotateColumnLabels},
    {&OmPivotTable::Scratch, &OmPivotTable::IsScratched},
    {&OmPivotTable::setBackendOwns, &OmPivotTable::backendOwns},
    {&OmPivotTable::setFastTable, &OmPivotTable::fastTable},
    {&OmPivotTable::showCaption, &OmPivotTable::showCaption},
    {&OmPivotTable::setLabelsOnly, &OmPivotTable::getLabelsOnly},
    {&OmPivotTable::setImputed, &OmPivotTable::getImputed},
    {&OmPivotTable::RemovedFootnotes, &OmPivotTable::HasRemovedFootnotes},
};
constexpr std::size_t kFastTable = 5;  // which the settings of the back end change too

constexpr Attribute<int> kNumbers[] = {
    {&OmPivotTable::OptionNumber, &OmPivotTable::OptionNumber},
    {&OmPivotTable::MinColumnWidth, &OmPivotTable::MinColumnWidth},
    {&OmPivotTable::MaxColumnWidth, &OmPivotTable::MaxColumnWidth},
    {&OmPivotTable::MinRowWidth, &OmPivotTable::MinRowWidth},
    {&OmPivotTable::MaxRowWidth, &OmPivotTable::MaxRowWidth},
    {&OmPivotTable::setLayerLoc, &OmPivotTable::getLayerLoc},
    {&OmPivotTable::setLang, &OmPivotTable::getLang},
    {&OmPivotTable::setVariableMode, &OmPivotTable::getVariableMode},
    {&OmPivotTable::setValueMode, &OmPivotTable::getValueMode},
    {&OmPivotTable::setStartColor, &OmPivotTable::getStartColor},
    {&OmPivotTable::setEndColor, &OmPivotTable::getEndColor},
};

constexpr Attribute<long long> kIds[] = {{&OmPivotTable::TableId, &OmPivotTable::TableId}};

constexpr ReferenceAttribute<std::string> kTexts[] = {
    {&OmPivotTable::TableLocale, &OmPivotTable::TableLocale},
    {&OmPivotTable::setBorderInfo, &OmPivotTable::getBorderInfo},
    {&OmPivotTable::setTableLookInfo, &OmPivotTable::getTableLookInfo},
    {&OmPivotTable::setTablePropertiesInfo, &OmPivotTable::getTablePropertiesInfo},
};

constexpr ReferenceAttribute<std::vector<unsigned int>> kLists[] = {
    {&OmPivotTable::setTableCustomWidths, &OmPivotTable::getTableCustomWidths},
    {&OmPivotTable::setTableCustomHeights, &OmPivotTable::getTableCustomHeights},
};

constexpr AttributeOf<FormatArea, bool> kFormatFlags[] = {
    {&FormatArea::setUnderline, &FormatArea::getUnderline},
    {&FormatArea::setUseAltRowColors, &FormatArea::getUseAltRowColors},
};

constexpr AttributeOf<FormatArea, int> kFormatNumbers[] = {
    {&FormatArea::setFontStyle, &FormatArea::getFontStyle},
    {&FormatArea::setHorizontalAlignment, &FormatArea::getHorizontalAlignment},
    {&FormatArea::setVerticalAlignment, &FormatArea::getVerticalAlignment},
    {&FormatArea::setMarginLeft, &FormatArea::getMarginLeft},
    {&FormatArea::setMarginRight, &FormatArea::getMarginRight},
    {&FormatArea::setMarginTop, &FormatArea::getMarginTop},
    {&FormatArea::setMarginBottom, &FormatArea::getMarginBottom},
};

constexpr AttributeOf<FormatArea, float> kFormatSizes[] = {
    {&FormatArea::setFontSize, &FormatArea::getFontSize}};

constexpr AttributeOf<FormatArea, std::string, std::string const&, std::string const&>
    kFormatTexts[] = {
        {&FormatArea::setFontName, &FormatArea::getFontName},
        {&FormatArea::setTextColor, &FormatArea::getTextColor},
        {&FormatArea::setBackgroundColor, &FormatArea::getBackgroundColor},
        {&FormatArea::setAlternateTextColor, &FormatArea::getAlternateTextColor},
        {&FormatArea::setAlternateBackgroundColor, &FormatArea::getAlternateBackgroundColor},
};

template <class Owner, class List>
auto ReadAll(Owner const& owner, List const& attributes) {
  std::vector<std::decay_t<decltype((owner.*attributes[0].get)())>> values;
  for (auto const& attribute : attributes) {
    values.push_back((owner.*attribute.get)());
  }
  return values;
}

int Draw(int below) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, below));
}

int AnyNumber() {
  return *rc::gen::element(0, 1, -1, 17, INT_MAX, INT_MIN);
}

std::string AnyText() {
  return *rc::gen::element<std::string>("", "a", ",", "some longer text than fits in place");
}

/// Sets one of the attributes, and its copy.
template <class Owner, class List, class Values, class Value>
void SetAny(Owner& owner, List const& attributes, Values& values, Value const& value) {
  auto const which = static_cast<std::size_t>(Draw(static_cast<int>(std::size(attributes))));
  (owner.*attributes[which].set)(value);
  values[which] = value;
}

/// What a format says. At first, what one that nobody changed does.
struct PlainFormat {
  std::vector<bool> flags = {false, false};
  std::vector<int> numbers = {-1, -1, -1, 6, 2, 2, 2};
  std::vector<float> sizes = {0};
  std::vector<std::string> texts = std::vector<std::string>(std::size(kFormatTexts));

  void ChangeWith(FormatArea& format) {
    switch (Draw(5)) {
      case 0:
        return SetAny(format, kFormatFlags, flags, Draw(2) == 0);
      case 1:
        return SetAny(format, kFormatSizes, sizes, static_cast<float>(Draw(100)) / 4);
      case 2:
        return SetAny(format, kFormatTexts, texts, AnyText());
      default:
        return SetAny(format, kFormatNumbers, numbers, AnyNumber());
    }
  }

  void Check(FormatArea const& format) const {
    RC_ASSERT(ReadAll(format, kFormatFlags) == flags);
    RC_ASSERT(ReadAll(format, kFormatNumbers) == numbers);
    RC_ASSERT(ReadAll(format, kFormatSizes) == sizes);
    RC_ASSERT(ReadAll(format, kFormatTexts) == texts);
  }
};

/// The text of a cell and what its metadata say.
std::string Describe(OmCellText const* cell) {
  std::string text = TestTable::TextOf(cell);
  if (cell != nullptr && cell->hasMeta()) {
    for (unsigned int const footnote : cell->getMeta()->getFootnotes()) {
      text += " " + std::to_string(footnote);
    }
    text += " style " + std::to_string(cell->getMeta()->getStyle());
  }
  return text;
}

void AddMeta(OmCellText& cell) {
  OmCellMetaData meta;
  for (int count = Draw(3); count != 0; --count) {
    meta.addFootnote(static_cast<unsigned int>(Draw(5)));
  }
  meta.setStyle(static_cast<unsigned short>(Draw(3)));
  cell.setMeta(&meta);
}

/// A table and plain copies of all that it should say, which are changed alike.
class Pair {
 public:
  void Change() {
    switch (Draw(16)) {
      case 0:
        return SetAny(table_, kFlags, flags_, Draw(2) == 0);
      case 1:
        return SetAny(table_, kNumbers, numbers_, AnyNumber());
      case 2:
        return SetAny(table_, kTexts, texts_, AnyText());
      case 3:
        return SetAny(table_, kIds, ids_, *rc::gen::element(0LL, -1LL, 1LL << 40, LLONG_MIN));
      case 4:
        return SetAny(table_, kLists, lists_,
                      std::vector<unsigned int>(static_cast<std::size_t>(Draw(4)), UINT_MAX));
      case 5:
        return AddMiscProperty();
      case 6:
      case 7:
        return SetText();
      case 8:
        return SetFormat();
      case 9:
        return ChangeFormat();
      case 10:
        return BindTexts();
      case 11:
        return ChangeStyles();
      case 12:
        return ChangeAxis();
      case 13:
        return EndTable();
      default:
        return AddFootnote();
    }
  }

  void Check() const {
    RC_ASSERT(ReadAll(table_, kFlags) == flags_);
    RC_ASSERT(ReadAll(table_, kNumbers) == numbers_);
    RC_ASSERT(ReadAll(table_, kTexts) == texts_);
    RC_ASSERT(table_.getMiscProperties() == miscProperties_);
    RC_ASSERT(ReadAll(table_, kIds) == ids_);
    RC_ASSERT(ReadAll(table_, kLists) == lists_);
    RC_ASSERT(table_.hasMarkers() == hasMarkers_);
    RC_ASSERT(Describe(table_.GetTableTitle()) == title_);
    RC_ASSERT(Describe(table_.TableTitle()) == title_);
    RC_ASSERT(Describe(table_.Caption()) == caption_);
    RC_ASSERT(Describe(table_.CornerText()) == cornerText_);
    CheckFootnotes();
    CheckFormats();
    CheckStyles();
    for (std::size_t axis = 0; axis < axes_.size(); ++axis) {
      RC_ASSERT(std::as_const(Axis(axis)).elements == axes_[axis]);
    }
  }

 private:
  struct Footnote {
    bool number;
    std::string text;
    std::string described;  // the text and its metadata
    std::string marker;
    int count;
  };

  /// A cell of one of two kinds, which differ although their texts may be equal.
  static std::unique_ptr<OmCellText> AnyCell(bool number) {
    if (number) {
      return std::make_unique<OmNumber>(Draw(2), 0);
    }
    return std::make_unique<OmStringCell>(std::string(1, static_cast<char>('0' + Draw(3))));
  }

  void AddMiscProperty() {
    std::string const property = AnyText();
    table_.addMiscProperty(property);
    miscProperties_ += (miscProperties_.empty() ? "" : ",") + property;
  }

  void SetText() {
    std::unique_ptr<OmCellText> const cell = AnyCell(Draw(4) == 0);
    if (Draw(3) == 0) {
      AddMeta(*cell);
    }
    int const which = Draw(5);
    OmCellText const* const text = which > 2 ? nullptr : cell.get();
    if (which == 0) {
      table_.SetTableTitle(*cell);
      title_ = Describe(cell.get());
    } else if (which % 2 == 0) {
      table_.Caption(text);
      caption_ = Describe(text);
    } else {
      table_.CornerText(text);
      cornerText_ = Describe(text);
    }
  }

  /// Numbers that are no area are taken, and never found again.
  void SetFormat() {
    int const area = Draw(FormatArea::AreaFrame + 3);
    PlainFormat plain;
    auto format = std::make_unique<FormatArea>(static_cast<FormatArea::Area>(area));
    for (int changes = Draw(3); changes != 0; --changes) {
      plain.ChangeWith(*format);
    }
    formats_[area] = plain;
    table_.setAreaFormat(format.release());
    table_.setAreaFormat(nullptr);
  }

  /// Changes a format that the table has, or a copy, which shares its record.
  void ChangeFormat() {
    int const area = Draw(FormatArea::AreaFrame + 1);
    FormatArea* const format = table_.getAreaFormat(static_cast<FormatArea::Area>(area));
    if (format == nullptr) {
      return;
    }
    if (Draw(2) == 0) {
      FormatArea copy(*format);
      formats_[area].ChangeWith(copy);
    } else {
      formats_[area].ChangeWith(*format);
    }
  }

  void CheckFormats() const {
    for (int area = -1; area <= FormatArea::AreaFrame + 2; ++area) {
      FormatArea const* const format = table_.getAreaFormat(static_cast<FormatArea::Area>(area));
      auto const found = formats_.find(area);
      RC_ASSERT((format != nullptr) == (found != formats_.end() && area <= FormatArea::AreaFrame));
      if (format != nullptr) {
        RC_ASSERT(format->getArea() == area);
        found->second.Check(*format);
      }
    }
  }

  void ChangeStyles() {
    if (Draw(2) == 0) {
      auto const place = static_cast<unsigned long long>(Draw(4)) << 40U;
      auto const style = static_cast<unsigned short>(Draw(3));
      table_.emptyCellStyles()[place] = style;
      emptyCellStyles_[place] = style;
    } else if (Draw(4) == 0) {
      table_.cellStyles().clear();
      fontNames_.clear();
    } else {
      fontNames_.push_back(AnyText());
      table_.cellStyles().emplace_back().setFontName(fontNames_.back());
    }
    if (Draw(20) == 0) {
      table_.setHasMarkers();
      hasMarkers_ = true;
    }
  }

  void CheckStyles() const {
    RC_ASSERT(table_.getEmptyCellStyles() == emptyCellStyles_);
    std::vector<OmCellProperties> const& styles = table_.getCellStyles();
    RC_ASSERT(styles.size() == fontNames_.size());
    for (std::size_t i = 0; i < styles.size(); ++i) {
      RC_ASSERT(styles[i].getFontName() == fontNames_[i]);
    }
  }

  PuppetVector<short>& Axis(std::size_t which) {
    return which == 0 ? table_.Rows() : which == 1 ? table_.Columns() : table_.Layers();
  }
  PuppetVector<short> const& Axis(std::size_t which) const {
    return which == 0 ? table_.Rows() : which == 1 ? table_.Columns() : table_.Layers();
  }

  /// Adds an entry, takes the last away, or writes one by its number, which may be past the end.
  void ChangeAxis() {
    auto const which = static_cast<std::size_t>(Draw(3));
    std::vector<short>& plain = axes_[which];
    auto const entry = static_cast<short>(Draw(4) - 1);
    int const number = Draw(4);
    switch (Draw(3)) {
      case 0:
        Axis(which).push_back(entry);
        plain.push_back(entry);
        break;
      case 1:
        Axis(which)[number] = entry;
        plain.resize(std::max(plain.size(), static_cast<std::size_t>(number) + 1), -1);
        plain[static_cast<std::size_t>(number)] = entry;
        break;
      default:
        Axis(which).elements.clear();
        plain.clear();
    }
    RC_ASSERT(std::as_const(*this).Axis(which)[static_cast<long long>(plain.size())] == -1);
  }

  /// As documented: entries of -1 go, the last axis first, unless there are as many as dimensions.
  void EndTable() {
    std::array<std::vector<short>, 3> left = axes_;
    if (CountEntries(axes_) != kDimensions) {
      for (std::vector<short>& axis : left) {
        axis.erase(std::remove(axis.begin(), axis.end(), -1), axis.end());
      }
    }
    bool const fits = CountEntries(left) == kDimensions;
    try {
      table_.EndTable();
      RC_ASSERT(fits);
      axes_ = left;
    } catch (OMSException const& error) {
      RC_ASSERT(!fits);
      RC_ASSERT(error.Value1() == kDimensions);
      RC_ASSERT(error.Value2() == CountEntries(left));
    }
  }

  static double CountEntries(std::array<std::vector<short>, 3> const& axes) {
    return static_cast<double>(axes[0].size() + axes[1].size() + axes[2].size());
  }

  /// Lets texts share their storage, or no longer, which must not show.
  void BindTexts() {
    bool const fast = Draw(2) == 0;
    table_.setBackendSettings(Settings(fast, Draw(2) == 0));
    flags_[kFastTable] = fast;
  }

  void AddFootnote() {
    bool const number = Draw(3) == 0;
    bool const append = Draw(3) == 0;
    OmFootnote note;
    note.text = Draw(10) == 0 ? nullptr : AnyCell(number).release();
    note.marker = Draw(2) == 0 ? nullptr : AnyCell(false).release();
    for (OmCellText* const cell : {note.text, note.marker}) {
      if (cell != nullptr && Draw(3) == 0) {
        AddMeta(*cell);
      }
    }
    note.count = AnyNumber();
    int const position = table_.Footnote(note, append);
    if (note.text == nullptr) {
      RC_ASSERT(position == -1);
      return;
    }
    std::string const text = note.text->GetText();
    std::string const marker = Describe(note.marker);
    std::size_t at = 0;
    while (at < footnotes_.size() &&
           (append || footnotes_[at].number != number || footnotes_[at].text != text)) {
      ++at;
    }
    RC_ASSERT(position == static_cast<int>(at));
    if (at == footnotes_.size()) {
      footnotes_.push_back(
          {number, text, Describe(note.text), marker, note.count < 0 ? note.count : 1});
    } else {
      footnotes_[at].marker = marker;
      footnotes_[at].count = static_cast<int>(static_cast<unsigned int>(footnotes_[at].count) + 1);
    }
  }

  void CheckFootnotes() const {
    OmVector<OmFootnote> const& notes = table_.Footnotes();
    RC_ASSERT(notes.size() == footnotes_.size());
    for (std::size_t i = 0; i < notes.size(); ++i) {
      RC_ASSERT((dynamic_cast<OmNumber*>(notes[i].text) != nullptr) == footnotes_[i].number);
      RC_ASSERT(Describe(notes[i].text) == footnotes_[i].described);
      RC_ASSERT(Describe(notes[i].marker) == footnotes_[i].marker);
      RC_ASSERT(notes[i].count == footnotes_[i].count);
    }
  }

  static constexpr int kDimensions = 2;

  TestTable table_{kDimensions};
  std::vector<bool> flags_ = ReadAll(table_, kFlags);
  std::vector<int> numbers_ = ReadAll(table_, kNumbers);
  std::vector<std::string> texts_ = ReadAll(table_, kTexts);
  std::vector<long long> ids_ = {-1};
  std::vector<std::vector<unsigned int>> lists_ = ReadAll(table_, kLists);
  bool hasMarkers_ = false;
  std::string miscProperties_;
  std::string title_ = Describe(table_.GetTableTitle());
  std::string caption_ = "(none)";
  std::string cornerText_ = "(none)";
  std::map<int, PlainFormat> formats_;
  std::map<unsigned long long, unsigned short> emptyCellStyles_;
  std::vector<std::string> fontNames_;  // of the styles of cells
  std::array<std::vector<short>, 3> axes_;
  std::vector<Footnote> footnotes_;
};

}  // namespace

RANDOM_PROGRAM(OmPivotTableAttributes, AreWhatWasSetLastAfterAnySequence) {
  Pair pair;
  pair.Check();
  for (int steps = DrawStepCount(); steps > 0; --steps) {
    pair.Change();
    pair.Check();
  }
}
