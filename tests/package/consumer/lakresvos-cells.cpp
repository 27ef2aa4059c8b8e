#include <iostream>

#include <cells/cells.h>

int main() {
  std::cout << OmStringCell("Output").GetText() << '\n';
}
