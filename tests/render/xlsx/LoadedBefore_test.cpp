#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <xlsxwriter.h>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "support/TemporaryDirectory.h"

// This program has libxlsxwriter loaded when it starts, so the module cannot see its errors.
TEST(XlsxLibraryLoadedBefore, IsNotTrusted) {
  ASSERT_STRNE(lxw_version(), "");
  TemporaryDirectory const directory;
  std::string const file = directory.Write("report.xlsx", "former");
  try {
    lakresvos::render::RenderXlsx(OmOutputTree(), std::filesystem::path(file));
    FAIL() << "no error";
  } catch (std::runtime_error const& error) {
    EXPECT_STREQ(error.what(),
                 "cannot write the workbook: the process had loaded libxlsxwriter before, which "
                 "does not tell then when a disk is full");
  }
  EXPECT_EQ(ReadFile(file), "former");
}
