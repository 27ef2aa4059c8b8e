#include <iostream>

#include "Program.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  return lakresvos::report::RunProgram(argc, argv, std::cout, std::cerr);
}
