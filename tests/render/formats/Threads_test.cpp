#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <cells/OmComposite.h>

#include "render/support/HardCases.h"
#include "render/support/RenderTables.h"
#include "render/support/SmallBlocks.h"
#include "render/support/TextFormats.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

TableOptions WithThreads(unsigned int threads) {
  TableOptions tables;
  tables.threads = threads;
  return tables;
}

std::string Written(TextFormat const& format, OmOutputTree const& document,
                    TableOptions const& tables = {}) {
  std::ostringstream out;
  format.write(document, out, tables);
  return out.str();
}

/// Expects that any number of threads writes the same of a document.
void ExpectSame(OmOutputTree const& document) {
  for (TextFormat const& format : TextFormats()) {
    std::string const expected = Written(format, document);
    EXPECT_GT(expected.size(), 100U) << format.name;
    for (std::size_t cells : {1U, 5U, 40U}) {
      SmallBlocks const small(cells);
      for (unsigned int threads : {1U, 2U, 3U, 7U}) {
        EXPECT_EQ(Written(format, document, WithThreads(threads)), expected)
            << format.name << " with " << threads << " threads, " << cells << " cells in a block";
      }
    }
  }
}

/// A table of `rows` by four with nothing special.
Table& AppendTable(OmOutputTree& document, unsigned int rows) {
  auto& table = AppendItem<Table>(document.begin());
  table.AddFlat("r", rows);
  table.AddFlat("c", 4);
  table.Place({0}, {1});
  table.PutAll();
  return table;
}

/// Who asked the cells of a kind for their texts. Each waits a while for a second one to come.
class Meeting {
 public:
  void Come() {
    std::unique_lock<std::mutex> lock(mutex_);
    who_.insert(std::this_thread::get_id());
    came_.notify_all();
    came_.wait_for(lock, patience_, [this] { return who_.size() > 1; });
  }

  std::set<std::thread::id> Restart(std::chrono::seconds patience) {
    patience_ = patience;
    return std::exchange(who_, {});
  }

 private:
  std::mutex mutex_;
  std::condition_variable came_;
  std::set<std::thread::id> who_;
  std::chrono::seconds patience_{0};
};

Meeting meeting;

class MeetingCell : public OmNumber {
 public:
  using OmNumber::OmNumber;

  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) MeetingCell(*this);
  }
  std::string GetText() const override {
    meeting.Come();
    return OmNumber::GetText();
  }
};

/// A text that cannot be had while `broken` says so.
class BrokenCell : public OmStringCellUTF8 {
 public:
  BrokenCell() : OmStringCellUTF8("the last words") {}

  OmCellText* Clone(OmMemoryRegion* region) const override { return new (region) BrokenCell(); }
  std::string GetText() const override {
    if (broken) {
      throw std::runtime_error("no text");
    }
    return OmStringCellUTF8::GetText();
  }

  static std::atomic<bool> broken;
};

std::atomic<bool> BrokenCell::broken = false;

/// Takes so many bytes and then no more.
class FullDisk : public std::streambuf {
 public:
  explicit FullDisk(std::size_t room) : room_(room) {}

  std::string const& Text() const { return text_; }

 protected:
  int_type overflow(int_type c) override {
    char const byte = traits_type::to_char_type(c);
    return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
  }
  std::streamsize xsputn(char const* text, std::streamsize count) override {
    std::size_t const taken = std::min(static_cast<std::size_t>(count), room_ - text_.size());
    text_.append(text, taken);
    return static_cast<std::streamsize>(taken);
  }

 private:
  std::size_t room_;
  std::string text_;
};

}  // namespace

// The output does not depend on the threads

TEST(Threads, FootnotesInCellsAndLabels) {
  OmOutputTree document;
  Table& table = AppendTable(document, 20);
  for (char const* note : {"first note", "second note", "note of nothing"}) {
    AddFootnote(table, note);
  }
  for (int row = 0; row < 20; row += 3) {
    WithFootnotes(*table.Dimension(0).Root().Child(static_cast<unsigned int>(row)).Value().label,
                  {0});
    OmNumber number(row + 0.5, 1);
    table.Cell({row, row % 4}, WithFootnotes(number, {1, 0}));
    OmStringCellUTF8 text("text");
    table.Cell({row, (row + 1) % 4}, WithFootnotes(text, {1}));
  }
  ExpectSame(document);
}

TEST(Threads, ALastCellThatIsTheOnlyOneWithAFootnote) {
  OmOutputTree document;
  Table& table = AppendTable(document, 20);
  AddFootnote(table, "the note");
  OmNumber number(1);
  table.Cell({19, 3}, WithFootnotes(number, {0}));
  ExpectSame(document);
}

// A label goes on through blocks that are drawn without it, and others are longer than their groups.
TEST(Threads, GroupsOfRowsThatReachOverSeveralBlocks) {
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  OmDimension& rows = table.Add("rows");
  unsigned long subscript = 0;
  for (char const* outer : {"A", "an outer label of many words that wraps over several lines"}) {
    auto const group = Group(rows, rows.Root(), outer);
    for (char const* inner : {"B", "C\nE", "a long label of an inner group", "D"}) {
      auto const below = Group(rows, group, inner);
      for (int i = 0; i < (*inner == 'B' ? 25 : 3); ++i) {
        Category(rows, below, "row " + std::to_string(i), subscript++);
      }
    }
    Category(rows, rows.Root(), "alone", subscript++);
  }
  table.AddFlat("c", 3);
  table.Place({0}, {1});
  table.PutAll();
  table.Cell({30, 1}, Utf8("some\nmore\nlines"));
  ExpectSame(document);
}

TEST(Threads, RowsWithoutGroupsBelowOneDimensionOfGroups) {
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  table.AddFlat("outer", 3);
  table.AddFlat("inner", 7);
  table.AddFlat("c", 2);
  table.Place({1, 0}, {2});
  table.PutAll();
  ExpectSame(document);
}

TEST(Threads, TotalsAndAlternateRows) {
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  for (char const* name : {"r", "c"}) {
    OmDimension& dimension = table.AddFlat(name, 9);
    OmStringCell label("Total");
    OmCellMetaData meta;
    meta.setTotal(true);
    label.setMeta(&meta);
    dimension.AddNewChild(dimension.Root(), label, 9, false);
  }
  table.Place({0}, {1});
  table.PutAll();
  auto* const data = new FormatArea(FormatArea::AreaData);
  data->setUseAltRowColors(true);
  data->setAlternateBackgroundColor("#EEEEEE");
  table.setAreaFormat(data);
  ExpectSame(document);
}

TEST(Threads, SeveralLayersAndTables) {
  OmOutputTree document;
  for (int i = 0; i < 3; ++i) {
    auto& table = AppendItem<Table>(document.begin());
    table.AddFlat("r", 8);
    table.AddFlat("c", 3);
    table.AddFlat("layer", 4);
    table.Place({0}, {1}, {2});
    table.PutAll();
    table.Clear({3, 1, 2});
  }
  ExpectSame(document);
}

TEST(Threads, TablesWithoutColumnsOrRowsOrHeadings) {
  OmOutputTree document;
  for (int shape = 0; shape < 3; ++shape) {
    auto& table = AppendItem<Table>(document.begin());
    table.AddFlat("d", 12);
    table.Place({}, {}, {});
    (shape == 0 ? table.Rows() : shape == 1 ? table.Columns() : table.Layers()).elements = {0};
    table.Dimension(0).Root().Value().hide = shape == 0;
    table.PutAll();
  }
  ExpectSame(document);
}

TEST(Threads, HardCases) {
  OmOutputTree document;
  AppendHardCases(document);
  for (TextFormat const& format : TextFormats()) {
    EXPECT_EQ(Written(format, document, WithThreads(3)), Written(format, document)) << format.name;
  }
}

// Who writes

TEST(Threads, SeveralThreadsWriteATable) {
  for (TextFormat const& format : TextFormats()) {
    OmOutputTree document;
    Table& table = AppendTable(document, 8);
    for (std::vector<int> const& index : StoredCells(table)) {
      // The long shape of CSV writes numbers by itself, and asks others for their texts.
      OmComposite cell("{0}");
      cell.AddPart(MeetingCell(index[0]));
      table.Cell(index, cell);
    }
    SmallBlocks const small(1);
    meeting.Restart(std::chrono::seconds(20));
    Written(format, document, WithThreads(2));
    EXPECT_EQ(meeting.Restart(std::chrono::seconds(0)).size(), 2U) << format.name;
    Written(format, document);
    EXPECT_EQ(meeting.Restart(std::chrono::seconds(0)),
              std::set<std::thread::id>{std::this_thread::get_id()})
        << format.name;
  }
}

// Failures

TEST(Threads, WhatACellThrowsReachesTheCaller) {
  OmOutputTree document;
  Table& table = AppendTable(document, 200);
  table.Cell({120, 2}, BrokenCell());
  for (TextFormat const& format : TextFormats()) {
    std::string const whole = Written(format, document);
    SmallBlocks const small(3);
    for (unsigned int threads : {1U, 2U, 7U}) {
      BrokenCell::broken = true;
      std::ostringstream out;
      EXPECT_THROW(format.write(document, out, WithThreads(threads)), std::runtime_error);
      BrokenCell::broken = false;
      EXPECT_EQ(whole.substr(0, out.str().size()), out.str()) << format.name << threads;
      EXPECT_LE(out.str().size(), whole.find("the last words")) << format.name << threads;
    }
  }
}

TEST(Threads, AStreamThatFailsGetsTheStartOfTheOutput) {
  OmOutputTree document;
  AppendTable(document, 3000);
  for (TextFormat const& format : TextFormats()) {
    std::string const start = Written(format, document).substr(0, 20'000);
    SmallBlocks const small(100);
    for (unsigned int threads : {1U, 2U, 7U}) {
      FullDisk disk(start.size());
      std::ostream out(&disk);
      format.write(document, out, WithThreads(threads));
      EXPECT_FALSE(out.good());
      EXPECT_EQ(disk.Text(), start) << format.name << threads;

      FullDisk other(start.size());
      std::ostream throwing(&other);
      throwing.exceptions(std::ios::badbit);
      EXPECT_THROW(format.write(document, throwing, WithThreads(threads)), std::ios::failure);
      EXPECT_EQ(other.Text(), start) << format.name << threads;
    }
  }
}
