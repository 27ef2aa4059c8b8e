#include "xlsx/Archive.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <xlsxwriter.h>

#include "support/TemporaryDirectory.h"
#include "support/faults/FailingMalloc.h"

using lakresvos::render::HasWholeParts;

namespace {

/// A workbook as the XLSX library writes it.
std::string Workbook(int rows) {
  TemporaryDirectory const directory;
  lxw_workbook* const book = workbook_new(directory.Path("book.xlsx").c_str());
  lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
  for (int row = 0; row < rows; ++row) {
    worksheet_write_number(sheet, static_cast<lxw_row_t>(row), 0, row * 1.5, nullptr);
  }
  EXPECT_EQ(workbook_close(book), LXW_NO_ERROR);
  std::ifstream in(directory.Path("book.xlsx"), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

TEST(XlsxArchive, WorkbooksHaveWholeParts) {
  EXPECT_TRUE(HasWholeParts(Workbook(0)));
  EXPECT_TRUE(HasWholeParts(Workbook(20000)));
}

TEST(XlsxArchive, AWorkbookThatIsCutOffHasNot) {
  std::string const book = Workbook(10);
  for (std::size_t size = 0; size < book.size(); ++size) {
    EXPECT_FALSE(HasWholeParts(std::string_view(book).substr(0, size))) << size;
  }
}

TEST(XlsxArchive, DamagedWorkbooksAreRead) {
  std::string const book = Workbook(10);
  for (std::size_t at = 0; at < book.size(); ++at) {
    std::string damaged = book;
    damaged[at] = static_cast<char>(damaged[at] ^ 0xFF);
    HasWholeParts(damaged);
  }
}

TEST(XlsxArchive, AWorkbookThatIsWholeIsNotTakenForADamagedOneWithoutMemory) {
  if (!FailMallocAfter::Works()) {
    GTEST_SKIP() << "sanitizers want malloc() for themselves";
  }
  std::string const book = Workbook(20000);
  bool whole = true;
  EXPECT_GT(FailEvery<FailMallocAfter>([&] { whole = HasWholeParts(book) && whole; }, [] {}), 20U);
  EXPECT_TRUE(whole);
}
