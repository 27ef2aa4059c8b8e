#include "cli/Program.h"

int main(int argc, char** argv) {
  return lakresvos::report::RunProgram(argc, argv);
}
