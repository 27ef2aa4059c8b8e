#include <memory>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/tabulate/InputError.h>

#include "harness/MemoryFile.h"
#include "harness/Target.h"
#include "render/json/Documents.h"
#include "render/support/EveryFormat.h"
#include "style/StyleSheet.h"
#include "support/LayoutTables.h"

// A style file: read, given to a table, and the table rendered in every format.
void Exercise(std::string_view input) {
  auto table = std::make_unique<layout_tables::Table>();
  table->AddFlat("a", 2);
  table->AddFlat("b", 2);
  table->Place({0}, {1});
  table->PutAll();
  try {
    MemoryFile const file(input);
    using namespace lakresvos::report;
    Attach(ReadStyleSheet(file.Path()), *table);
  } catch (lakresvos::tabulate::InputError const&) {
    return;
  }
  OmOutputTree document;
  document.begin().AppendChild(table.release());
  std::string const written = json_documents::Written(document);
  if (json_documents::Written(*json_documents::Read(written)) != written) {
    Fail("a style is not read as it was written");
  }
  RenderInEveryFormat(document);
}
