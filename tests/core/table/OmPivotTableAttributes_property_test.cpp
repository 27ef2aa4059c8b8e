#include <climits>
#include <cstddef>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/Property.h"

namespace {

// All attributes of one type, each as its setter and its getter

template <class Value, class Argument = Value, class Result = Value>
struct Attribute {
  void (OmPivotTable::*set)(Argument);
  Result (OmPivotTable::*get)() const;
};

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

constexpr Attribute<std::string, std::string const&, std::string const&> kTexts[] = {
    {&OmPivotTable::TableLocale, &OmPivotTable::TableLocale},
    {&OmPivotTable::setBorderInfo, &OmPivotTable::getBorderInfo},
    {&OmPivotTable::setTableLookInfo, &OmPivotTable::getTableLookInfo},
    {&OmPivotTable::setTablePropertiesInfo, &OmPivotTable::getTablePropertiesInfo},
};

template <class List>
auto ReadAll(OmPivotTable const& table, List const& attributes) {
  std::vector<std::decay_t<decltype((table.*attributes[0].get)())>> values;
  for (auto const& attribute : attributes) {
    values.push_back((table.*attribute.get)());
  }
  return values;
}

int Draw(int below) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, below));
}

/// A table and plain copies of all that it should say, which are changed alike.
class Pair {
 public:
  void Change() {
    switch (Draw(9)) {
      case 0:
        return SetAny(kFlags, flags_, Draw(2) == 0);
      case 1:
        return SetAny(kNumbers, numbers_, AnyNumber());
      case 2:
        return SetAny(kTexts, texts_, AnyText());
      case 3:
        return AddMiscProperty();
      case 4:
        return SetText();
      case 5:
        return SetFormat();
      case 6:
        return BindTexts();
      default:
        return AddFootnote();
    }
  }

  void Check() const {
    RC_ASSERT(ReadAll(table_, kFlags) == flags_);
    RC_ASSERT(ReadAll(table_, kNumbers) == numbers_);
    RC_ASSERT(ReadAll(table_, kTexts) == texts_);
    RC_ASSERT(table_.getMiscProperties() == miscProperties_);
    RC_ASSERT(TestTable::TextOf(table_.GetTableTitle()) == title_);
    RC_ASSERT(TestTable::TextOf(table_.Caption()) == caption_);
    RC_ASSERT(TestTable::TextOf(table_.CornerText()) == cornerText_);
    CheckFootnotes();
    for (int area = 0; area <= FormatArea::AreaFrame; ++area) {
      FormatArea const* const format = table_.getAreaFormat(static_cast<FormatArea::Area>(area));
      auto const found = fontNames_.find(area);
      RC_ASSERT((format != nullptr) == (found != fontNames_.end()));
      if (format != nullptr) {
        RC_ASSERT(format->getFontName() == found->second);
      }
    }
  }

 private:
  struct Footnote {
    bool number;
    std::string text;
    std::string marker;
    int count;
  };

  static int AnyNumber() { return *rc::gen::element(0, 1, -1, 17, INT_MAX, INT_MIN); }
  static std::string AnyText() {
    return *rc::gen::element<std::string>("", "a", ",", "some longer text than fits in place");
  }

  /// A cell of one of two kinds, which differ although their texts may be equal.
  static std::unique_ptr<OmCellText> AnyCell(bool number) {
    if (number) {
      return std::make_unique<OmNumber>(Draw(2), 0);
    }
    return std::make_unique<OmStringCell>(std::string(1, static_cast<char>('0' + Draw(3))));
  }

  template <class List, class Values, class Value>
  void SetAny(List const& attributes, Values& values, Value const& value) {
    auto const which = static_cast<std::size_t>(Draw(static_cast<int>(std::size(attributes))));
    (table_.*attributes[which].set)(value);
    values[which] = value;
  }

  void AddMiscProperty() {
    std::string const property = AnyText();
    table_.addMiscProperty(property);
    miscProperties_ += (miscProperties_.empty() ? "" : ",") + property;
  }

  void SetText() {
    std::unique_ptr<OmCellText> const cell = AnyCell(false);
    int const which = Draw(5);
    OmCellText const* const text = which > 2 ? nullptr : cell.get();
    if (which == 0) {
      table_.SetTableTitle(*cell);
      title_ = cell->GetText();
    } else if (which % 2 == 0) {
      table_.Caption(text);
      caption_ = TestTable::TextOf(text);
    } else {
      table_.CornerText(text);
      cornerText_ = TestTable::TextOf(text);
    }
  }

  void SetFormat() {
    int const area = Draw(FormatArea::AreaFrame + 1);
    auto format = std::make_unique<FormatArea>(static_cast<FormatArea::Area>(area));
    format->setFontName(AnyText());
    fontNames_[area] = format->getFontName();
    table_.setAreaFormat(format.release());
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
    note.count = AnyNumber();
    int const position = table_.Footnote(note, append);
    if (note.text == nullptr) {
      RC_ASSERT(position == -1);
      return;
    }
    std::string const text = note.text->GetText();
    std::string const marker = TestTable::TextOf(note.marker);
    std::size_t at = 0;
    while (at < footnotes_.size() &&
           (append || footnotes_[at].number != number || footnotes_[at].text != text)) {
      ++at;
    }
    RC_ASSERT(position == static_cast<int>(at));
    if (at == footnotes_.size()) {
      footnotes_.push_back({number, text, marker, note.count < 0 ? note.count : 1});
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
      RC_ASSERT(TestTable::TextOf(notes[i].text) == footnotes_[i].text);
      RC_ASSERT(TestTable::TextOf(notes[i].marker) == footnotes_[i].marker);
      RC_ASSERT(notes[i].count == footnotes_[i].count);
    }
  }

  TestTable table_{2};
  std::vector<bool> flags_ = ReadAll(table_, kFlags);
  std::vector<int> numbers_ = ReadAll(table_, kNumbers);
  std::vector<std::string> texts_ = ReadAll(table_, kTexts);
  std::string miscProperties_;
  std::string title_ = TestTable::TextOf(table_.GetTableTitle());
  std::string caption_ = "(none)";
  std::string cornerText_ = "(none)";
  std::map<int, std::string> fontNames_;
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
