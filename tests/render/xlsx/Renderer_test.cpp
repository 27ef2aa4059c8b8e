#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <vector>

#include <cells/OmCellMetaData.h>
#include <cells/OmNumber.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/Collector.h"
#include "render/support/Pictures.h"
#include "render/support/SpyTable.h"
#include "support/TemporaryDirectory.h"
#include "support/ZipParts.h"
#include "support/faults/FailingNew.h"

using lakresvos::render::RenderXlsx;
using namespace render_tables;

namespace {

std::size_t OpenFiles() {
  auto const files = std::filesystem::directory_iterator("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

/// The number of bytes of the first table's sheet in a workbook, before they were packed.
std::size_t SheetSize(std::string const& workbook) {
  std::string const parts = ZipParts(workbook, kTimePart);
  std::string const name = "xl/worksheets/sheet2.xml\n";
  std::size_t const at =
      parts.find(name) + name.size() + 8;  // after the checksum and the packed size
  std::size_t size = 0;
  for (std::size_t i = 4; i != 0; --i) {
    size = size << 8U | static_cast<unsigned char>(parts.at(at + i - 1));
  }
  return size;
}

/// A cell that looks for something on a disk that is full.
class BusyCell : public OmStringCellUTF8 {
 public:
  using OmStringCellUTF8::OmStringCellUTF8;

  OmCellText* Clone(OmMemoryRegion* region) const override { return new (region) BusyCell("cell"); }

  std::string GetText() const override {
    errno = ENOSPC;
    return OmStringCellUTF8::GetText();
  }
};

/// Has temporary files in a directory of their own, to see what becomes of them.
class XlsxRendererTest : public testing::Test {
 protected:
  XlsxRendererTest() { setenv("TMPDIR", temporary_.Path("").c_str(), 1); }
  ~XlsxRendererTest() override { unsetenv("TMPDIR"); }

  Table& AddTable(std::string const& title) {
    auto& table = AppendItem<Table>(document_.begin());
    table.SetTableTitle(Utf8(title));
    return table;
  }

  std::string Rendered() {
    RenderXlsx(document_, out_);
    return out_.str();
  }

  /// What rendering fails with; nothing has been written then.
  template <class Error>
  std::string Failure() {
    std::size_t const files = OpenFiles();
    std::string message = "no error";
    try {
      RenderXlsx(document_, out_);
    } catch (Error const& error) {
      message = error.what();
    }
    EXPECT_EQ(out_.str(), "");
    EXPECT_EQ(OpenFiles(), files);
    EXPECT_EQ(temporary_.Entries(), 0u);
    return message;
  }

  void AddTallTable(std::string const& title) {
    Table& table = AddTable(title);
    table.AddFlat("r", 5000);
    table.Place({0}, {});
    table.PutAll();
  }

  /// What rendering fails with when no file may be larger than 10,000 bytes.
  std::string FailureWithSmallFiles() {
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    rlimit const small{10000, former.rlim_max};
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    std::string const message = Failure<std::runtime_error>();
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
    return message;
  }

  TemporaryDirectory temporary_;
  OmOutputTree document_;
  std::ostringstream out_;
};

}  // namespace

TEST_F(XlsxRendererTest, WritesAZipArchive) {
  EXPECT_EQ(Rendered().substr(0, 4), "PK\x03\x04");
}

TEST_F(XlsxRendererTest, LeavesNoTemporaryFilesBehind) {
  Table& table = AddTable("table");
  table.AddFlat("r", 2);
  table.Place({0}, {});
  table.PutAll();
  std::size_t const files = OpenFiles();
  EXPECT_NE(Rendered(), "");
  EXPECT_EQ(temporary_.Entries(), 0u);
  EXPECT_EQ(OpenFiles(), files);
}

TEST_F(XlsxRendererTest, NamesTheTableThatHasTooManyColumns) {
  Table& table = AddTable("wide");
  table.AddFlat("c", 16385);
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Failure<std::length_error>(),
            "'wide' is too large for a sheet, which has 1048576 rows and 16384 columns");
}

TEST_F(XlsxRendererTest, HasRoomForTheLastColumn) {
  Table& table = AddTable("wide");
  table.AddFlat("c", 16384);
  table.Place({}, {0});
  table.PutAll();
  EXPECT_NE(Rendered(), "");
}

TEST_F(XlsxRendererTest, NamesTheTableThatHasTooManyRows) {
  Table& table = AddTable("tall");
  table.AddFlat("r", 1048575);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Failure<std::length_error>(),
            "'tall' is too large for a sheet, which has 1048576 rows and 16384 columns");
}

TEST_F(XlsxRendererTest, TellsOfATextThatIsTooLongForACell) {
  Table& table = AddTable("wordy");
  table.AddFlat("r", 1);
  table.Place({0}, {});
  table.Cell({0}, Utf8(std::string(32768, 'x')));
  lakresvos::render::XlsxOptions options;
  std::vector<std::string> losses;
  options.onLoss = [&](std::string const& loss) {
    EXPECT_EQ(out_.str(), "");
    losses.push_back(loss);
  };
  RenderXlsx(document_, out_, options);
  EXPECT_EQ(losses,
            std::vector<std::string>{"1 text longer than the 32767 characters of a cell left "
                                     "out, the first at 'wordy'!B4"});
  EXPECT_NE(out_.str(), "");
}

TEST_F(XlsxRendererTest, WhoeverIsToldMayRefuse) {
  AddTable(std::string(40000, 'x'));
  AppendItem<OmChart>(document_.begin(), Utf8("bad"), "", 1).SetImageStream("x", 1);
  lakresvos::render::XlsxOptions options;
  options.onLoss = [](std::string const& loss) { throw std::runtime_error(loss); };
  EXPECT_THROW(RenderXlsx(document_, out_, options), std::runtime_error);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(temporary_.Entries(), 0u);
}

TEST_F(XlsxRendererTest, HasRoomForTheLongestText) {
  Table& table = AddTable("wordy");
  table.AddFlat("r", 1);
  table.Place({0}, {});
  table.Cell({0}, Utf8(std::string(32767, 'x')));
  EXPECT_NE(Rendered(), "");
}

TEST_F(XlsxRendererTest, SaysWhenThereIsNoRoomForTheFilesOfRows) {
  AddTallTable("table");
  EXPECT_EQ(FailureWithSmallFiles(), "cannot write the workbook: File too large");
}

TEST_F(XlsxRendererTest, SaysWhenThereIsNoRoomForTheFilesOfSheetsInMemory) {
  AddTallTable("a title " + std::string(90, 'x'));
  EXPECT_EQ(FailureWithSmallFiles(), "cannot write the workbook: File too large");
}

TEST_F(XlsxRendererTest, SaysWhenThereCanBeNoFurtherFile) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer opens files to look at the classes of objects";
#endif
  for (int i = 0; i < 40; ++i) {
    AddTable("table");
  }
  rlimit former{};
  getrlimit(RLIMIT_NOFILE, &former);
  rlimit const few{OpenFiles() + 20, former.rlim_max};
  setrlimit(RLIMIT_NOFILE, &few);
  std::string const message = Failure<std::runtime_error>();
  setrlimit(RLIMIT_NOFILE, &former);
  EXPECT_EQ(message, "cannot write the workbook: Too many open files");
}

TEST_F(XlsxRendererTest, ManyLayersAsSheetsNeedFewOpenFiles) {
  Table& table = AddTable("table");
  table.AddFlat("r", 1);
  table.AddFlat("l", 60);
  table.Place({0}, {}, {1});
  table.PutAll();
  lakresvos::render::XlsxOptions options;
  options.layersAsSheets = true;
  rlimit former{};
  getrlimit(RLIMIT_NOFILE, &former);
  rlimit const few{OpenFiles() + 20, former.rlim_max};
  setrlimit(RLIMIT_NOFILE, &few);
  EXPECT_NO_THROW(RenderXlsx(document_, out_, options));
  setrlimit(RLIMIT_NOFILE, &former);
  EXPECT_NE(out_.str(), "");
}

TEST_F(XlsxRendererTest, LeavesNoFileOpenForSheetsWithoutText) {
  OmOutputTree empty;
  OmOutputTree::Node root = empty.begin();
  empty.Erase(root);
  std::size_t const files = OpenFiles();
  RenderXlsx(empty, out_);
  EXPECT_NE(out_.str(), "");
  EXPECT_EQ(OpenFiles(), files);
}

TEST_F(XlsxRendererTest, AsksEachLabelAndCellForItsTextOnce) {
  for (bool const flag : {false, true}) {
    OmOutputTree document;
    FillWithSpies(AppendItem<Table>(document.begin()));
    lakresvos::render::XlsxOptions options;
    options.layersAsSheets = flag;
    options.mergeRows = flag;
    options.mergeColumns = flag;
    SpyLog const log;
    RenderXlsx(document, out_, options);
    std::map<std::string, int> const times = TimesAsked(log);
    EXPECT_EQ(times.size(), 16u);
    for (auto const& [text, count] : times) {
      EXPECT_EQ(count, 1) << text;
    }
  }
}

TEST_F(XlsxRendererTest, ACornerBetweenDeepHeadingsHasCellsAtItsEdgesAlone) {
  constexpr int kLevels = 300;
  Table& table = AddTable("table");
  for (char const* const name : {"rows", "columns"}) {
    OmDimension& dimension = table.Add(name);
    OmDimension::Node parent = dimension.Root();
    for (int level = 1; level < kLevels; ++level) {
      parent = Group(dimension, parent, "g");
    }
    Category(dimension, parent, "leaf", 0);
  }
  table.Place({0}, {1});
  table.PutAll();
  RenderXlsx(document_, out_);
  constexpr std::size_t kCell = 20;  // about how many bytes an empty one takes
  EXPECT_GT(SheetSize(out_.str()), 4 * kLevels * kCell);
  EXPECT_LT(SheetSize(out_.str()), 20 * kLevels * kCell);
}

TEST_F(XlsxRendererTest, SaysWhenThereCanBeNoTemporaryFile) {
  setenv("TMPDIR", "/proc", 1);
  EXPECT_THROW(RenderXlsx(document_, out_), std::runtime_error);
  EXPECT_EQ(out_.str(), "");
}

TEST_F(XlsxRendererTest, AStreamThatFailsSaysSoItself) {
  out_.setstate(std::ios::badbit);
  RenderXlsx(document_, out_);
  EXPECT_TRUE(out_.bad());
}

TEST_F(XlsxRendererTest, ErrorsOfCellsAreNotTakenForErrorsOfWriting) {
  Table& table = AddTable("table");
  table.AddFlat("A", 2);
  table.Place({0}, {});
  table.Cell({0}, BusyCell("cell"));
  EXPECT_NE(Rendered(), "");
}

TEST_F(XlsxRendererTest, AStreamMayThrow) {
  out_.setstate(std::ios::badbit);
  EXPECT_THROW(out_.exceptions(std::ios::badbit), std::ios::failure);
  EXPECT_THROW(RenderXlsx(document_, out_), std::ios::failure);
  EXPECT_EQ(temporary_.Entries(), 0u);
}

TEST_F(XlsxRendererTest, BearsAHundredThousandLevels) {
  auto node = document_.begin();
  for (int i = 0; i < 100000; ++i) {
    node = node.AppendChild(new OmHeading(Utf8("level")));
  }
  EXPECT_NE(Rendered(), "");
}

class XlsxRendererWithoutMemory : public XlsxRendererTest {
 protected:
  /// Two tables, the first with styles and notes, texts, and a picture that is none.
  void FillDocument() {
    FillWithAll(AddTable("a title that is long enough for the heap"));
    FillWithAll(AddTable("two lines\nof another title that is long enough for the heap"));
    AppendItem<OmHeading>(document_.begin(), Utf8("a heading that is long enough for the heap"));
    AppendItem<OmTextBlock>(document_.begin(), Utf8("label"), "a text that is long enough");
    AppendItem<OmChart>(document_.begin(), Utf8("chart"), "", 1).SetImageStream("no picture", 10);
  }

  static void FillWithAll(Table& table) {
    table.AddFlat("A", 2);
    table.AddFlat("B", 2);
    table.AddFlat("C", 2);
    table.AddFlat("D", 2);
    table.Place({0}, {1, 2}, {3});
    table.PutAll();
    AddFootnote(table, "note");
    OmStringCellUTF8 marked("日本語, long enough for the heap");
    OmCellMetaData styled;
    styled.setStyle(1);
    styled.addFootnote(0);
    marked.setMeta(&styled);
    table.Cell({0, 0, 0, 0}, marked);
    OmNumber number(1.5, 2);
    table.Cell({1, 0, 0, 0}, WithFootnotes(number, {0}));
    table.cellStyles().resize(2);
    table.cellStyles()[1].setTextColor("#102030");
    OmStringCellUTF8 const caption("a caption that is long enough for the heap");
    table.Caption(&caption);
    auto format = std::make_unique<FormatArea>(FormatArea::AreaData);
    format->setFontName("a font with a name that is long enough for the heap");
    table.setAreaFormat(format.release());
  }

  /// Renders with each request for memory refused, and compares what there is with the whole.
  /// @return the number of failures.
  template <class Render>
  std::size_t Failures(Render render) {
    std::size_t const files = OpenFiles();
    std::size_t const entries = temporary_.Entries();
    std::size_t const failures = FailEveryAllocationOf(render);
    EXPECT_EQ(temporary_.Entries(), entries);
    EXPECT_EQ(OpenFiles(), files);
    return failures;
  }
};

TEST_F(XlsxRendererWithoutMemory, WritesAllOrThrows) {
  FillDocument();
  Collector collector;
  for (bool const layersAsSheets : {false, true}) {
    lakresvos::render::XlsxOptions options;
    options.layersAsSheets = layersAsSheets;
    EXPECT_GT(Failures([&] {
                collector.Clear();
                std::ostream out(&collector);
                RenderXlsx(document_, out, options);
                return ZipParts(collector.Text(), kTimePart);
              }),
              100U);
    EXPECT_NE(collector.Text(), "");
  }
}

TEST_F(XlsxRendererWithoutMemory, AddsPicturesAndTellsOfLossesOrThrows) {
  AppendItem<OmChart>(document_.begin(), Utf8("a picture with a label for the heap"), "", 1)
      .SetImageStream(kPixelPng.data(), static_cast<unsigned int>(kPixelPng.size()));
  Table& table = AddTable("a text that is too long for a cell");
  table.AddFlat("A", 1);
  table.Place({0}, {});
  table.Cell({0}, Utf8(std::string(32768, 'x')));
  Collector collector;
  std::string losses;
  lakresvos::render::XlsxOptions options;
  options.onLoss = [&](std::string const& loss) { losses = loss; };
  EXPECT_GT(Failures([&] {
              collector.Clear();
              std::ostream out(&collector);
              RenderXlsx(document_, out, options);
              return losses + ZipParts(collector.Text(), kTimePart);
            }),
            100U);
  EXPECT_NE(collector.Text().find("xl/media/image1.png"), std::string::npos);
  EXPECT_NE(losses.find("too long"), std::string::npos) << losses;
}

TEST_F(XlsxRendererWithoutMemory, ReplacesAFileOrThrows) {
  FillDocument();
  TemporaryDirectory const directory;
  std::string const path = directory.Path("book.xlsx");
  EXPECT_GT(Failures([&] {
              RenderXlsx(document_, path);
              return ZipParts(ReadFile(path), kTimePart);
            }),
            100U);
  EXPECT_EQ(directory.Entries(), 1U);
}
