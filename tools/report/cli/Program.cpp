#include "cli/Program.h"

#include <csignal>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/OutputFile.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "cli/Options.h"
#include "cli/SkipMessages.h"
#include "document/Document.h"
#include "document/Rendering.h"
#include "document/SavedDocument.h"

namespace lakresvos::report {

namespace {

constexpr char kProgram[] = "lakresvos-report: ";
constexpr char kStandardOutput[] = "standard output";

void RefuseToOverwrite(std::string const& input, char const* what, std::string const& outputFile) {
  std::error_code ignored;
  if (std::filesystem::equivalent(input, outputFile, ignored)) {
    throw tabulate::InputError(outputFile + ": refusing to overwrite the " + what);
  }
}

std::unique_ptr<OmOutputTree> MakeDocument(Options const& options, tabulate::WarningLog& skipped) {
  if (!options.documentFile.empty()) {
    return ReadDocument(options.documentFile);
  }
  auto document = std::make_unique<OmOutputTree>();
  skipped = AppendReport(*document, options);
  return document;
}

std::string MakeLine(std::string_view message) {
  return kProgram + tabulate::Shorten(tabulate::EscapeControls(message)) + '\n';
}

std::string MakeLines(std::vector<std::string> const& messages) {
  std::string lines;
  for (std::string const& message : messages) {
    lines += MakeLine(message);
  }
  return lines;
}

/// Renders the document; an error of the system names the output.
/// @return lines that say what the format could not hold.
std::string RenderTo(std::string const& name, OmOutputTree const& document, Options const& options,
                     std::ostream& out) {
  try {
    return MakeLines(Render(document, options, out));
  } catch (std::system_error const& error) {
    throw tabulate::InputError(name + ": " + error.what());
  }
}

/// Writes the document to where it belongs, but not with --strict when the format cannot hold all
/// of it. Once it is there, there is nothing left to do that may fail.
/// @return lines that say what the format could not hold.
std::string Write(OmOutputTree const& document, Options const& options, render::OutputFile& out) {
  if (options.outputFile.empty()) {
    std::ostringstream held;
    held.exceptions(std::ios::badbit);  // it leaves out what there is no memory for otherwise
    std::string losses =
        RenderTo(kStandardOutput, document, options, options.strict ? held : out.Stream());
    if (options.strict && losses.empty()) {
      out.Stream() << held.view();
    }
    out.Commit();
    return losses;
  }
  if (!options.ReadsStandardInput()) {
    RefuseToOverwrite(options.dataFile, "data file", options.outputFile);
  }
  RefuseToOverwrite(options.documentFile, "saved document", options.outputFile);
  RefuseToOverwrite(options.styleFile, "style file", options.outputFile);
  render::OutputFile file(options.outputFile);
  std::string losses = RenderTo(options.outputFile, document, options, file.Stream());
  if (!options.strict || losses.empty()) {
    file.Commit();
  }
  return losses;
}

int Run(Options const& options, render::OutputFile& out) {
  if (options.format == OutputFormat::Xlsx && options.outputFile.empty() && isatty(STDOUT_FILENO)) {
    throw tabulate::InputError("refusing to write a workbook to a terminal; use -o FILE");
  }
  tabulate::WarningLog skipped;
  std::unique_ptr<OmOutputTree> const document = MakeDocument(options, skipped);
  std::string const skips = MakeLines(MakeSkipMessages(skipped, options.DataName()));
  std::string losses;
  if (!options.strict || skips.empty()) {
    losses = Write(*document, options, out);
  }
  std::cerr << losses << skips;
  return options.strict && !(losses.empty() && skips.empty()) ? 1 : 0;
}

/// Opens those of the three standard files that are closed, so that no file that is opened later
/// passes for one of them. Writing to them still fails.
void OpenStandardFiles() {
  for (int const file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(file, F_GETFD) < 0) {
      static_cast<void>(::open("/dev/null", O_RDONLY));  // gets the lowest free number
    }
  }
}

}  // namespace

int RunProgram(int argc, char const* const* argv) try {
  OpenStandardFiles();
  std::signal(SIGXFSZ, SIG_IGN);  // so that the write fails, which is reported
  try {
    render::OutputFile out(STDOUT_FILENO, kStandardOutput);
    if (std::optional<Options> const options = ParseCommandLine(argc, argv, out.Stream())) {
      return Run(*options, out);
    }
    out.Commit();
    return 0;
  } catch (std::bad_alloc const&) {
    throw;
  } catch (std::exception const& error) {
    std::cerr << MakeLine(error.what());
  }
  return 2;
} catch (std::bad_alloc const&) {
  std::cerr << kProgram << "out of memory\n";
  return 2;
}

}  // namespace lakresvos::report
