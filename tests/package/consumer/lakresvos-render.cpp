#include <filesystem>
#include <iostream>

#include <lakresvos/lakresvos.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

int main() {
  OmOutputTree document;
  lakresvos::render::RenderText(document, std::cout);
  lakresvos::render::RenderXlsx(document, std::filesystem::path("/dev/null"));
}
