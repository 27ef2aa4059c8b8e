#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/json/Documents.h"
#include "render/support/HardCases.h"
#include "render/support/SmallBlocks.h"
#include "render/support/TextFormats.h"
#include "support/ZipParts.h"

using namespace lakresvos::render;

namespace {

/// Makes a group of the first category of each dimension, and dissolves it again.
void Regroup(OmPivotTable& table) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmDimension& dimension = table.Dimension(d);
    if (dimension.Root().NChildren() > 1) {
      OmDimension::Node first = dimension.Root()[0];
      dimension.insertChild(OmStringCell("around"), {&first});
      OmDimension::Node group = dimension.Root()[0];
      dimension.removeChild(group);
    }
  }
}

/// Builds a document, edits it, writes it in every format and reads it again, all by itself.
/// @return what was written.
std::string UseADocument() {
  OmOutputTree document;
  AppendHardCases(document);
  for (OmOutputTree::Node node = document.begin(); !node.AtEnd(); ++node) {
    if (auto* const table = dynamic_cast<OmPivotTable*>(*node)) {
      Regroup(*table);
      table->setBackendSettings(BackendSettings());
    }
  }
  std::string const text = json_documents::Written(document);
  std::ostringstream out;
  out << json_documents::Written(*json_documents::Read(text));
  TableOptions tables;
  tables.threads = 2;
  for (TextFormat const& format : TextFormats()) {
    format.write(document, out, tables);
  }
  std::ostringstream workbook;
  RenderXlsx(document, workbook);
  out << ZipParts(workbook.str(), kTimePart);
  return out.str();
}

}  // namespace

TEST(Threads, EachWithADocumentOfItsOwnWriteWhatOneDoes) {
  SmallBlocks const small(1);
  std::string const expected = UseADocument();
  std::vector<std::string> written(4);
  std::vector<std::thread> threads;
  threads.reserve(written.size());
  for (std::string& text : written) {
    threads.emplace_back([&text] { text = UseADocument(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (std::string const& text : written) {
    EXPECT_EQ(text == expected, true) << "of " << text.size() << " bytes";
  }
}
