#include <iostream>

#include <lakresvos/lakresvos.h>
#include <lakresvos/render/TextRenderer.h>

int main() {
  OmOutputTree document;
  lakresvos::render::RenderText(document, std::cout);
}
