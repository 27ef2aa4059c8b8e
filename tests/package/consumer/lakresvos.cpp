#include <iostream>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>

int main() {
  OmOutputTree document;
  std::cout << document.begin().Value()->Label()->GetText() << '\n';
}
