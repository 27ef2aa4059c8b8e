#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/tabulate/InputError.h>

#include "cli/Options.h"
#include "document/Document.h"
#include "document/Rendering.h"
#include "harness/MemoryFile.h"
#include "harness/Target.h"
#include "render/support/EveryFormat.h"

namespace {

using namespace lakresvos::report;

constexpr char kData[] =
    "a,b,c,w,x\n"
    "p,10,u,1,1.5\n"
    "q,9,v,2,\n"
    "r,,u,0,-7.25\n"
    "p,10,,0.5,text\n"
    "NA,9,v,1,2\n"
    "too,few\n";

/// Parses the lines as arguments.
std::optional<Options> Parse(std::string_view lines, std::ostream& out) {
  std::vector<std::string> arguments{"lakresvos-report"};
  std::istringstream in{std::string(lines)};
  for (std::string line; std::getline(in, line);) {
    arguments.push_back(line);
  }
  std::vector<char const*> pointers;
  for (std::string const& argument : arguments) {
    pointers.push_back(argument.c_str());
  }
  return ParseCommandLine(static_cast<int>(pointers.size()), pointers.data(), out);
}

void Run(std::string_view lines) {
  Sink sink;
  std::ostream out(&sink);
  std::optional<Options> options = Parse(lines, out);
  if (!options || options->dataFile.empty()) {
    return;
  }
  MemoryFile const data(kData);
  options->dataFile = data.Path();
  options->styleFile.clear();  // may be any file of the machine
  options->charts = false;     // drawing takes long, and has a target of its own
  OmOutputTree document;
  AppendReport(document, *options);
  Render(document, *options, out);
}

}  // namespace

// The command line of the report program, an argument in each line; when it names a data file, the
// report on a small one.
void Exercise(std::string_view input) {
  try {
    Run(input);
  } catch (lakresvos::tabulate::InputError const&) {
  }
}
