// Writes a workbook from another directory than the one in which the program started.

#include <exception>
#include <filesystem>
#include <iostream>
#include <sstream>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/XlsxRenderer.h>

int main() try {
  std::filesystem::current_path("/");
  std::ostringstream workbook;
  lakresvos::render::RenderXlsx(OmOutputTree(), workbook);
  return workbook.str().empty() ? 1 : 0;
} catch (std::exception const& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
