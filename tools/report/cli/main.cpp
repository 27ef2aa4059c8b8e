#include <malloc.h>

#include "cli/Program.h"

int main(int argc, char** argv) {
  // What one column of the data has outgrown is soon enough for another one, so memory is not given
  // back to the system in between: to get it again takes longer than to fill it.
  mallopt(M_MMAP_THRESHOLD, 1 << 25);
  mallopt(M_TRIM_THRESHOLD, 1 << 28);
  return lakresvos::report::RunProgram(argc, argv);
}
