#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <utility>

#include <cells/OmComposite.h>
#include <cells/OmNumber.h>
#include <cells/OmVariable.h>
#include <cells/icuTracker.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

using Operation = SpyCell::Operation;

// Everything about a table that an operation may change, as one text

void Describe(std::ostream& out, OmCellText const* text) {
  if (text == nullptr) {
    out << "-";
    return;
  }
  out << text->GetText();
  if (text->hasMeta()) {
    out << "{" << text->getMeta()->getStyle();
    for (unsigned int const note : text->getMeta()->getFootnotes()) {
      out << "," << note;
    }
    out << "}";
  }
}

void Describe(std::ostream& out, OmPivotTable::PointerVector const* node, std::size_t level) {
  out << "[";
  for (unsigned long position = 0; position < node->size(); ++position) {
    void* const entry = node->Entry(position);
    if (entry == nullptr) {
      out << "_";
    } else if (level == 1) {
      Describe(out, static_cast<OmCellText*>(entry));
    } else {
      Describe(out, OmPivotTable::PointerVector::FromEntry(entry), level - 1);
    }
    out << " ";
  }
  out << "]";
}

void Describe(std::ostream& out, OmDimension::ConstNode node) {
  Describe(out, node.Value().label);
  out << ":" << node.Value().subscript << "(";
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    Describe(out, node.Child(i));
  }
  out << ")";
}

std::string Describe(TestTable& table) {
  std::ostringstream out;
  OmPivotTable::Data& data = table.data();
  for (OmDimension const* dimension : data._dimensions.Elements()) {
    Describe(out, dimension->Root());
    out << dimension->CategoryCount() << ";";
  }
  if (data.cells != nullptr) {
    Describe(out, data.cells, data._dimensions.size());
  }
  for (OmCellText const* text :
       std::vector<OmCellText const*>{table.Label(), table.TemplateName(), table.TableTitle(),
                                      table.Caption(), table.CornerText()}) {
    out << ";";
    Describe(out, text);
  }
  for (OmFootnote const& note : table.Footnotes().Elements()) {
    out << ";";
    Describe(out, note.text);
    out << "/";
    Describe(out, note.marker);
    out << "/" << note.count;
  }
  out << ";" << table.TableLocale() << ";" << table.getBorderInfo() << ";"
      << table.getTableLookInfo() << ";" << table.getTablePropertiesInfo() << ";"
      << table.getMiscProperties() << ";";
  for (std::vector<unsigned int> const& sizes :
       {table.getTableCustomWidths(), table.getTableCustomHeights()}) {
    for (unsigned int const size : sizes) {
      out << size << ",";
    }
  }
  for (PuppetVector<short> const* axis : {&table.Rows(), &table.Columns(), &table.Layers()}) {
    out << ";";
    for (std::size_t i = 0; i < axis->size(); ++i) {
      out << (*axis)[static_cast<int>(i)] << ",";
    }
  }
  BackendSettings const& settings = table.getBackendSettings();
  out << ";" << table.fastTable() << table.IsScratched() << table.HasRemovedFootnotes()
      << table.hasMarkers() << table.IsNotes() << table.IsWarnings() << table.Show() << ";"
      << settings.getLocale() << settings.getMaxCells() << settings.getUnicode()
      << settings.getFastTables() << ";" << table.getCellStyles().size() << ";"
      << table.getEmptyCellStyles().size() << ";";
  for (int area = 0; area <= FormatArea::AreaFrame; ++area) {
    out << (table.getAreaFormat(static_cast<FormatArea::Area>(area)) != nullptr);
  }
  if (table.getICUTracker() != nullptr) {
    out << "," << table.getICUTracker()->getLocale() << table.getICUTracker()->TextCount();
  }
  return out.str();
}

std::string const kLong(100, 'x');

/// What an operation is given: all of it made beforehand, so that only the operation fails.
struct Material {
  explicit Material(OmCellText const& made)
      : text(made.Clone(nullptr)), dimension(OmDimensionNode(made, 0, true, nullptr), nullptr) {
    OmDimension::Node const group = dimension.Child(dimension.Root(), made, 0, true);
    dimension.Child(group, made, 0, false);
    dimension.Child(dimension.Root(), made, 1, false);
    note.text = made.Clone(nullptr);
    note.marker = made.Clone(nullptr);
    settings.setFastTables(true);
    settings.setUnicode(false);
    settings.setLocale(kLong);
  }

  std::unique_ptr<OmCellText> text;
  OmDimension dimension;
  OmFootnote note;
  BackendSettings settings;
  std::vector<unsigned int> sizes = std::vector<unsigned int>(50, 9);

  Index const newBranch{1, 2, 3, 30};
  Index const newNode{2, 2, 0, 0};
  Index const doubled{8, 0, 0, 0};
  Index const exact{40, 0, 0, 0};
  Index const clearedSlot{1, 0, 0, 0};
  Index const stored{0, 0, 0, 0};
  Index const storedWithMeta{3, 0, 0, 0};
};

/// A table with something of everything: four dimensions and four footnotes, which fill their
/// lists, and a bottom node of the store that is full too.
std::unique_ptr<TestTable> Filled(bool fast) {
  auto table = std::make_unique<TestTable>(0);
  if (fast) {
    table->setBackendSettings(BackendSettings());
  }
  for (char const* label : {"a", "b", "c", "d"}) {
    OmDimension& dimension = table->AddDimension(SpyCell(label));
    dimension.Child(dimension.Root(), OmVariable(label, "category"), 0, false);
  }
  table->Cell({0, 0, 0, 0}, SpyCell("first"));
  table->Put({3, 0, 0, 0}, "with metadata");
  table->Clear({1, 0, 0, 0});
  OmCellMetaData meta;
  meta.setStyle(7);
  meta.addFootnote(1);
  table->Cell({3, 0, 0, 0})->setMeta(&meta);
  table->SetTableTitle(SpyCell("title"));
  table->Caption(std::make_unique<SpyCell>("caption").get());
  table->CornerText(std::make_unique<SpyCell>("corner").get());
  for (char const* text : {"1", "2", "3", "4"}) {
    OmFootnote note;
    note.text = new SpyCell(text);
    note.marker = new OmStringCell("marker");
    table->Footnote(note, true);
  }
  table->addMiscProperty("first");
  if (!fast) {
    BackendSettings slow;
    slow.setFastTables(false);
    table->setBackendSettings(slow);
  }
  return table;
}

struct Attempt {
  enum class Calls { Some, SomeInASlowTable, None };

  char const* name;
  std::function<void(OmPivotTable&, Material const&)> run;
  Calls calls = Calls::Some;  ///< of cells
  /// Lists keep their room, and bound texts need not return to the block that they were in.
  bool bytesMayDiffer = false;
};

Attempt const kAttempts[] = {
    {"AddDimensionByLabel",
     [](OmPivotTable& table, Material const& with) { table.AddDimension(*with.text); },
     Attempt::Calls::Some, true},
    {"AddDimensionByCopy",
     [](OmPivotTable& table, Material const& with) { table.AddDimension(with.dimension); },
     Attempt::Calls::Some, true},
    {"WriteInANewBranch",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.newBranch, *with.text); }},
    {"WriteInANewNode",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.newNode, *with.text); }},
    {"WriteThatGrowsTwiceByDoubling",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.doubled, *with.text); }},
    {"WriteThatReservesExactly",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.exact, *with.text); }},
    {"WriteInAClearedSlot",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.clearedSlot, *with.text); }},
    {"Replace",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.stored, *with.text); }},
    {"ReplaceWithMetaData",
     [](OmPivotTable& table, Material const& with) {
       table.Cell(with.storedWithMeta, *with.text);
     }},
    {"ClearInANewBranch",
     [](OmPivotTable& table, Material const& with) { table.Cell(with.newBranch, nullptr); },
     Attempt::Calls::None},
    {"SetTitle",
     [](OmPivotTable& table, Material const& with) { table.SetTableTitle(*with.text); }},
    {"SetCaption",
     [](OmPivotTable& table, Material const& with) { table.Caption(with.text.get()); }},
    {"SetCornerText",
     [](OmPivotTable& table, Material const& with) { table.CornerText(with.text.get()); }},
    {"AddFootnote",
     [](OmPivotTable& table, Material const& with) { table.Footnote(with.note, false); }},
    {"SetBackendSettings",
     [](OmPivotTable& table, Material const& with) { table.setBackendSettings(with.settings); },
     Attempt::Calls::SomeInASlowTable, true},
    {"SetLocale", [](OmPivotTable& table, Material const&) { table.TableLocale(kLong); },
     Attempt::Calls::None},
    {"SetBorderInfo", [](OmPivotTable& table, Material const&) { table.setBorderInfo(kLong); },
     Attempt::Calls::None},
    {"SetTableLookInfo",
     [](OmPivotTable& table, Material const&) { table.setTableLookInfo(kLong); },
     Attempt::Calls::None},
    {"SetTablePropertiesInfo",
     [](OmPivotTable& table, Material const&) { table.setTablePropertiesInfo(kLong); },
     Attempt::Calls::None},
    {"AddMiscProperty", [](OmPivotTable& table, Material const&) { table.addMiscProperty(kLong); },
     Attempt::Calls::None},
    {"SetCustomWidths",
     [](OmPivotTable& table, Material const& with) { table.setTableCustomWidths(with.sizes); },
     Attempt::Calls::None},
    {"SetCustomHeights",
     [](OmPivotTable& table, Material const& with) { table.setTableCustomHeights(with.sizes); },
     Attempt::Calls::None},
};

class OmPivotTableFailure : public testing::TestWithParam<std::tuple<std::size_t, bool>> {
 protected:
  OmPivotTableFailure() { Remember(); }

  void TearDown() override {
    table.reset();
    EXPECT_EQ(SpyCell::Live(), outside) << "the table left cells behind";
  }

  static Attempt const& attempt() { return kAttempts[std::get<0>(GetParam())]; }

  void Try(Material const& with) { attempt().run(*table, with); }

  void Remember() {
    before = Describe(*table);
    trackers = {table->getICUTracker(), table->getU8Tracker()};
    cells = table->Walk();
    live = SpyCell::Live();
    bytes = table->data().BytesInUse();
  }

  void ExpectUnchanged() {
    EXPECT_EQ(Describe(*table), before);
    EXPECT_EQ(std::pair(table->getICUTracker(), table->getU8Tracker()), trackers);
    EXPECT_EQ(table->Walk(), cells);
    EXPECT_EQ(SpyCell::Live(), live);
    if (!attempt().bytesMayDiffer) {
      EXPECT_EQ(table->data().BytesInUse(), bytes);
    }
  }

  static bool CallsCells() {
    bool const inAFastTable = std::get<1>(GetParam());
    return attempt().calls == Attempt::Calls::Some ||
           (attempt().calls == Attempt::Calls::SomeInASlowTable && !inAFastTable);
  }

  /// The table is as one that never saw a failure.
  void ExpectDone(Material const& with) {
    EXPECT_NE(Describe(*table), before);
    auto const twin = Filled(std::get<1>(GetParam()));
    attempt().run(*twin, with);
    EXPECT_EQ(Describe(*table), Describe(*twin));
  }

  Material const variable{OmVariable("a name that is long enough to be allocated", kLong)};
  Material const spy{SpyCell("new")};
  long const outside = SpyCell::Live();
  std::unique_ptr<TestTable> table = Filled(std::get<1>(GetParam()));
  std::string before;
  std::pair<icuTracker*, icuTracker*> trackers;
  Walked cells;
  long live = 0;
  unsigned long bytes = 0;
};

INSTANTIATE_TEST_SUITE_P(EveryOperation, OmPivotTableFailure,
                         testing::Combine(testing::Range(std::size_t{0}, std::size(kAttempts)),
                                          testing::Bool()),
                         [](auto const& info) {
                           return std::string(kAttempts[std::get<0>(info.param)].name) +
                                  (std::get<1>(info.param) ? "InAFastTable" : "InASlowTable");
                         });

TEST_P(OmPivotTableFailure, AnyAllocationMayFail) {
  EXPECT_GT(FailEveryAllocation([&] { Try(variable); }, [&] { ExpectUnchanged(); }), 0U);
  ExpectDone(variable);
}

TEST_P(OmPivotTableFailure, AnyCallOfACellMayFail) {
  std::size_t failures = 0;
  for (SpyCell::Operation const operation : SpyCell::kThrowing) {
    failures += FailEveryCall(
        operation, [&] { Try(spy); }, [&] { ExpectUnchanged(); });
    ExpectDone(spy);
    table = Filled(std::get<1>(GetParam()));
    Remember();
  }
  EXPECT_EQ(failures > 0, CallsCells());
}

TEST(OmPivotTableDimensionFailure, LeavesTheTableAsItWasHoweverManyDimensionsItHas) {
  for (std::size_t count = 1; count < 10; ++count) {
    TestTable table(static_cast<int>(count));
    Index index(count, 1);
    table.Put(index, "cell");
    SpyCell const label("another");
    EXPECT_GT(FailEveryAllocation([&] { table.AddDimension(label); },
                                  [&] {
                                    ASSERT_EQ(table.NDimensions(), static_cast<int>(count));
                                    ASSERT_EQ(table.At(index), "cell");
                                  }),
              0U);
    index.push_back(0);
    EXPECT_EQ(table.At(index), "cell");
  }
}

// A write that fails

TEST(OmPivotTableWriteFailure, IsCounted) {
  TestTable table(1);
  SpyCell const spy("cell");
  {
    SpyFailure const failing(Operation::Clone, 1, FailAfter::Mode::Once);
    EXPECT_THROW(table.Cell({0}, spy), SpyFailure::Exception);
  }
  EXPECT_EQ(table.getNumCells(), 1);
}

TEST(OmPivotTableWriteFailure, LeavesNoRootBehind) {
  TestTable table(3);
  Material const with{SpyCell("cell")};
  Index const index{1, 2, 3};
  EXPECT_GT(FailEveryAllocation([&] { table.Cell(index, *with.text); },
                                [&] { EXPECT_EQ(table.data().cells, nullptr); }),
            0U);
  EXPECT_EQ(table.At(index), "cell");
}

TEST(OmPivotTableWriteFailure, CanBeRepeatedAfterAReplacedCellWithMetaData) {
  TestTable table(1);
  table.Cell({0}, SpyCell("old"));
  OmCellMetaData meta;
  meta.addFootnote(4);
  table.Cell({0})->setMeta(&meta);
  OmCellText const* const old = table.Cell({0});
  SpyCell const fresh("fresh");
  Index const index{0};
  EXPECT_GT(FailEveryAllocation([&] { table.Cell(index, fresh); },
                                [&] {
                                  EXPECT_EQ(table.Cell(index), old);
                                  EXPECT_EQ(table.At(index), "old");
                                  EXPECT_EQ(SpyCell::Live(), 2);
                                }),
            0U);
  EXPECT_EQ(table.At(index), "fresh");
  ASSERT_TRUE(table.Cell(index)->hasMeta());
  EXPECT_EQ(table.Cell(index)->getMeta()->getFootnotes(), std::vector<unsigned int>{4});
}

TEST(OmPivotTableWriteFailure, MayHappenInTwentyDimensions) {
  TestTable table(20);
  table.Put(Index(20, 0), "first");
  unsigned long const bytes = table.data().BytesInUse();
  Index index(20, 0);
  index[19] = 3;
  OmStringCell const text("second");
  EXPECT_GT(FailEveryAllocation([&] { table.Cell(index, text); },
                                [&] { EXPECT_EQ(table.data().BytesInUse(), bytes); }),
            20U);
  EXPECT_EQ(table.Walk().size(), 2U);
}

// Copying all dimensions

class OmPivotTableCopyFailure : public testing::Test {
 protected:
  OmPivotTableCopyFailure() {
    for (int number = 0; number < 5; ++number) {
      source.AddDimension(with.dimension);
    }
    live = SpyCell::Live();
  }

  void ExpectEmpty() {
    EXPECT_EQ(copy.NDimensions(), 0);
    EXPECT_EQ(SpyCell::Live(), live);
    EXPECT_EQ(copy.data().BytesInUse(), bytes);
  }

  Material const with{SpyCell("label")};
  TestTable source;
  TestTable copy;
  unsigned long const bytes = copy.data().BytesInUse();
  long live = 0;
};

TEST_F(OmPivotTableCopyFailure, AnyAllocationMayFail) {
  EXPECT_GT(FailEveryAllocation([&] { copy.CopyDimensions(source); }, [&] { ExpectEmpty(); }), 0U);
  EXPECT_EQ(copy.NDimensions(), 5);
}

TEST_F(OmPivotTableCopyFailure, AnyCloneMayFail) {
  EXPECT_EQ(FailEveryCall(
                Operation::Clone, [&] { copy.CopyDimensions(source); }, [&] { ExpectEmpty(); }),
            20U);
  EXPECT_EQ(copy.NDimensions(), 5);
}

TEST_F(OmPivotTableCopyFailure, AnyCallOfALabelMayFailInABoundTable) {
  copy.setBackendSettings(Settings(true));
  std::size_t failures = 0;
  for (SpyCell::Operation const operation : SpyCell::kThrowing) {
    TestTable bound;
    bound.setBackendSettings(Settings(true));
    failures += FailEveryCall(
        operation, [&] { bound.CopyDimensions(source); },
        [&] { EXPECT_EQ(bound.NDimensions(), 0); });
    EXPECT_EQ(bound.NDimensions(), 5);
    EXPECT_EQ(LabelOf(std::as_const(bound).Dimension(4).Root()), "label");
  }
  EXPECT_EQ(failures, 20U) << "labels are cloned, and asked nothing else";
}

// Labels that are compared, texts that are bound

TEST(OmPivotTableCellFailure, LeavesDimensionsThatAreLookedFor) {
  SpyBalance const balance;
  TestTable table;
  table.AddDimension(SpyCell("first"));
  table.AddDimension(SpyCell("second"));
  SpyCell const sought("second");
  for (Operation const operation : {Operation::Compare, Operation::GetKind}) {
    int found = -2;
    EXPECT_GT(
        FailEveryCall(
            operation, [&] { found = table.FindDimension(sought); }, [&] { EXPECT_EQ(found, -2); }),
        1U);
    EXPECT_EQ(found, 1);
  }
}

TEST(OmPivotTableCellFailure, LeavesATextThatIsToBeBound) {
  /// A text that cannot be bound.
  struct Unbindable : OmStringCell {
    using OmStringCell::OmStringCell;
    void UseTracker(icuTracker* /*tracker*/) override { throw std::length_error("unbindable"); }
  };
  TestTable table;
  table.setBackendSettings(Settings(true));
  std::size_t const texts = table.getICUTracker()->TextCount();
  Unbindable text("text");
  EXPECT_THROW(table.setHelper(text), std::length_error);
  EXPECT_EQ(text.GetText(), "text");
  EXPECT_EQ(text.GetTracker(), nullptr);
  EXPECT_EQ(table.getICUTracker()->TextCount(), texts);
  SpyCell spy("spy");
  EXPECT_EQ(FailEveryCall(
                Operation::Accept, [&] { table.setHelper(spy); },
                [&] { EXPECT_EQ(table.getICUTracker()->TextCount(), texts); }),
            1U);
}

// Construction

TEST(OmPivotTableConstructionFailure, AnyAllocationMayFail) {
  Material const with{OmVariable(kLong, kLong)};
  std::unique_ptr<OmPivotTable> table;
  unsigned long const bytes = OmMemoryRegion::DefaultHeap()->BytesInUse();
  EXPECT_GT(FailEveryAllocation(
                [&] { table = std::make_unique<OmPivotTable>(*with.text, *with.text, true); },
                [&] { EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), bytes); }),
            0U);
  EXPECT_EQ(table->TemplateName()->GetText(), kLong);
}

TEST(OmPivotTableConstructionFailure, AnyCallOfACellMayFail) {
  SpyCell const label("label");
  SpyCell const name("Notes");
  for (Operation const operation : {Operation::Clone, Operation::GetText}) {
    std::unique_ptr<OmPivotTable> table;
    EXPECT_GE(FailEveryCall(
                  operation, [&] { table = std::make_unique<OmPivotTable>(label, name, false); },
                  [&] { EXPECT_EQ(SpyCell::Live(), 2); }),
              operation == Operation::Clone ? 2U : 1U);
    EXPECT_TRUE(table->IsNotes());
  }
}

// Back end settings

TEST(OmPivotTableSettingsFailure, BindsNothingToATrackerThatIsGone) {
  TestTable table(2);
  table.SetTableTitle(Text("title"));
  table.setFastTable(false);
  BackendSettings settings;
  settings.setUnicode(false);
  EXPECT_GT(FailEveryAllocation([&] { table.setBackendSettings(settings); },
                                [&] {
                                  EXPECT_EQ(table.getICUTracker(), nullptr);
                                  EXPECT_EQ(table.getU8Tracker(), nullptr);
                                  EXPECT_FALSE(table.fastTable());
                                  EXPECT_EQ(table.Label()->GetTracker(), nullptr);
                                  EXPECT_EQ(table.TableTitle()->GetTracker(), nullptr);
                                  EXPECT_EQ(table.Dimension(1).value.label->GetTracker(), nullptr);
                                  OmStringCell late("late");
                                  table.setHelper(late);
                                  EXPECT_EQ(late.GetTracker(), nullptr);
                                }),
            0U);
  EXPECT_EQ(table.TableTitle()->GetTracker(), table.getICUTracker());
  EXPECT_EQ(table.TableTitle()->GetText(), "title");
  EXPECT_EQ(table.Dimension(1).value.label->GetTracker(), table.getICUTracker());
}

// Iterators

TEST(OmPivotTableIteratorFailure, AnyAllocationMayFail) {
  TestTable table(3);
  table.Put({0, 0, 0}, "a");
  table.Put({1, 0, 0}, "b");
  OmCellText const* first = nullptr;
  OmCellText const* second = nullptr;
  std::size_t const failures = FailEveryAllocation(
      [&] {
        OmPivotTable::Iterator at = table.FirstCell();
        first = at.Cell();
        OmPivotTable::Iterator copy(at);
        second = (++copy).Cell();
      },
      [] {});
  EXPECT_GT(failures, 0U);
  EXPECT_EQ(first, table.Cell({0, 0, 0}));
  EXPECT_EQ(second, table.Cell({1, 0, 0}));
}

TEST(OmPivotTableIteratorFailure, AssignmentAllocatesNothing) {
  TestTable table(1);
  table.Put({0}, "a");
  OmPivotTable::Iterator const source = table.FirstCell();
  OmPivotTable::Iterator target;
  {
    FailAfter const failing(1);
    target = source;
  }
  EXPECT_EQ(target.Cell(), table.Cell({0}));
}

// Reading a table, and what belongs to one

/// Takes the place of standard output and counts what is written.
class CountedOutput : public std::streambuf {
 public:
  CountedOutput() : before_(std::cout.rdbuf(this)) {}
  ~CountedOutput() override { std::cout.rdbuf(before_); }
  CountedOutput(CountedOutput const&) = delete;
  CountedOutput& operator=(CountedOutput const&) = delete;

  std::streamsize Count() const { return count_; }

 protected:
  int_type overflow(int_type c) override {
    ++count_;
    return traits_type::not_eof(c);
  }
  std::streamsize xsputn(char const* /*text*/, std::streamsize count) override {
    count_ += count;
    return count;
  }

 private:
  std::streambuf* before_;
  std::streamsize count_ = 0;
};

class OmPivotTableRefusedMemory : public testing::Test {
 protected:
  OmPivotTableRefusedMemory() {
    table.AddDimension(*Nested("a dimension with a long name"));
    table.AddDimension(*Nested(kLong));
    table.Put({0, 0}, kLong);
    table.Put({2, 1}, "b");
    OmStringCell const text(kLong);
    table.Caption(&text);
    table.CornerText(&text);
    OmFootnote note;
    note.text = new OmStringCell(kLong);
    table.Footnote(note, true);
  }

  TestTable table;
};

TEST_F(OmPivotTableRefusedMemory, WhileItIsRead) {
  EXPECT_GT(FailEveryAllocationOf([&] { return table.Walk(); }), 6U);
  EXPECT_GT(FailEveryAllocationOf([&] { return table.SizeVector(); }), 0U);
  OmStringCell const label(kLong);
  FailEveryAllocationOf([&] { return table.FindDimension(label); });
  EXPECT_EQ(table.FindDimension(label), 1);
  Index const index{2, 1};
  FailEveryAllocationOf([&] { return table.Cell(index); });
  OmPivotTable::Iterator const at = table.FirstCell();
  EXPECT_GT(FailEveryAllocationOf([&] {
              Index filled;
              at.Index(filled);
              return filled;
            }),
            0U);
  EXPECT_GT(FailEveryAllocationOf([&] { return at.Index(); }), 0U);
  OmPivotTable::ConstIterator const constant = std::as_const(table).FirstCell();
  EXPECT_GT(FailEveryAllocationOf([&] { return constant.Index(); }), 0U);
}

TEST_F(OmPivotTableRefusedMemory, WhileItIsPrinted) {
  auto const printed = [&](auto const& print) {
    return [&] {
      CountedOutput const output;
      print();
      return output.Count();
    };
  };
  EXPECT_GT(FailEveryAllocationOf(printed([&] { table.Print(); })), 10U);
  EXPECT_GT(FailEveryAllocationOf(printed([&] { table.PrintCells(table.data().cells, 0, 0); })),
            2U);
}

TEST_F(OmPivotTableRefusedMemory, WhileAxesAndStylesGrow) {
  for (PuppetVector<short>* const axis : {&table.Rows(), &table.Columns(), &table.Layers()}) {
    EXPECT_GT(FailEveryAllocation([&] { axis->push_back(1); }, [&] { EXPECT_TRUE(axis->empty()); }),
              0U);
    EXPECT_GT(FailEveryAllocation([&] { (*axis)[20] = 3; }, [&] { EXPECT_EQ(axis->size(), 1U); }),
              0U);
    EXPECT_EQ(axis->size(), 21U);
    EXPECT_EQ((*axis)[19], -1);
  }
  EXPECT_GT(FailEveryAllocation([&] { table.emptyCellStyles()[7] = 1; },
                                [&] { EXPECT_TRUE(table.getEmptyCellStyles().empty()); }),
            0U);
  OmCellProperties style;
  style.setFontName(kLong);
  EXPECT_GT(FailEveryAllocation([&] { table.cellStyles().push_back(style); },
                                [&] { EXPECT_TRUE(table.getCellStyles().empty()); }),
            1U);
  EXPECT_EQ(table.getCellStyles()[0].getFontName(), kLong);
}

TEST_F(OmPivotTableRefusedMemory, LeavesAFormatWithTheCaller) {
  auto format = std::make_unique<FormatArea>(FormatArea::AreaData);
  EXPECT_GT(
      FailEveryAllocation([&] { table.setAreaFormat(format.get()); },
                          [&] { EXPECT_EQ(table.getAreaFormat(FormatArea::AreaTitle), nullptr); }),
      0U);
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaData), format.release());
}

TEST_F(OmPivotTableRefusedMemory, IsNotWhereNoneIsNeeded) {
  table.setAreaFormat(new FormatArea(FormatArea::AreaData));
  auto format = std::make_unique<FormatArea>(FormatArea::AreaData);
  Index const stored{0, 0};
  TestTable::Place(table.Rows(), {0});
  TestTable::Place(table.Columns(), {1});
  FailAfter const failing(1);
  table.setAreaFormat(format.release());
  FormatArea copy(*table.getAreaFormat(FormatArea::AreaData));
  copy = *table.getAreaFormat(FormatArea::AreaData);
  copy.setFontSize(2);
  table.deleteCell(stored);
  table.RemovedFootnotes(true);
  table.EndTable();
  EXPECT_FALSE(failing.HasRefused());
}

TEST_F(OmPivotTableRefusedMemory, LeavesACompositeReadableThatIsBoundInParts) {
  table.setBackendSettings(Settings(true));
  std::size_t const texts = table.getICUTracker()->TextCount();
  {
    OmComposite composite("{0} of {1}: a pattern that is long");
    composite.AddPart(OmStringCell(kLong));
    composite.AddPart(OmNumber(2));
    std::string const text = composite.GetText();
    EXPECT_GT(FailEveryAllocation([&] { table.setHelper(composite); },
                                  [&] { EXPECT_EQ(composite.GetText(), text); }),
              4U);
    EXPECT_EQ(composite.GetText(), text);
    EXPECT_EQ(composite.Parts().Root().Child(0).Value()->GetTracker(), table.getICUTracker());
  }
  EXPECT_EQ(table.getICUTracker()->TextCount(), texts);
}

}  // namespace
