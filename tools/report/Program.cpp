#include "Program.h"

#include <exception>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

#include <lakresvos/OmOutputTree.h>

#include "Document.h"
#include "Options.h"
#include "OutputFile.h"
#include "Quoting.h"
#include "Rendering.h"
#include "ReportError.h"
#include "SavedDocument.h"

namespace lakresvos::report {

namespace {

void RefuseToReplace(std::string const& input, char const* what, std::string const& outputFile) {
  std::error_code ignored;
  if (std::filesystem::equivalent(input, outputFile, ignored)) {
    throw ReportError(outputFile + ": the output would replace the " + what);
  }
}

std::unique_ptr<OmOutputTree> MakeDocument(Options const& options) {
  if (!options.documentFile.empty()) {
    return ReadDocument(options.documentFile);
  }
  auto document = std::make_unique<OmOutputTree>();
  AppendReport(*document, options);
  return document;
}

void Tell(std::vector<std::string> const& losses, std::ostream& err) {
  for (std::string const& loss : losses) {
    err << "lakresvos-report: " << OneLine(loss) << '\n';
  }
}

void Run(Options const& options, std::ostream& out, std::ostream& err) {
  if (options.format == OutputFormat::Xlsx && options.outputFile.empty() && isatty(STDOUT_FILENO)) {
    throw ReportError("--format xlsx: a workbook is nothing for a terminal; name a file with -o");
  }
  std::unique_ptr<OmOutputTree> const document = MakeDocument(options);
  if (options.outputFile.empty()) {
    std::vector<std::string> const losses = Render(*document, options, out);
    if (!out.flush()) {
      throw ReportError("standard output cannot be written");
    }
    Tell(losses, err);
    return;
  }
  RefuseToReplace(options.dataFile, "data", options.outputFile);
  RefuseToReplace(options.documentFile, "document", options.outputFile);
  RefuseToReplace(options.styleFile, "style", options.outputFile);
  OutputFile file(options.outputFile);
  std::vector<std::string> const losses = Render(*document, options, file.Stream());
  file.Commit();
  Tell(losses, err);
}

}  // namespace

int RunProgram(int argc, char const* const* argv, std::ostream& out, std::ostream& err) {
  try {
    if (std::optional<Options> const options = ParseCommandLine(argc, argv, out)) {
      Run(*options, out, err);
    }
    return 0;
  } catch (ReportError const& error) {
    err << "lakresvos-report: " << OneLine(error.what()) << '\n';
  } catch (std::bad_alloc const&) {
    err << "lakresvos-report: out of memory\n";
  } catch (std::exception const& error) {
    err << "lakresvos-report: " << OneLine(error.what()) << '\n';
  }
  return 2;
}

}  // namespace lakresvos::report
