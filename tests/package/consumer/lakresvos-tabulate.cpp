#include <iostream>

#include <lakresvos/tabulate/Formula.h>

int main() {
  auto const formula = lakresvos::tabulate::ParseFormula("Output ~");
  std::cout << formula.rows.front().front().name << '\n';
}
