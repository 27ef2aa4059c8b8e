#ifndef LAKRESVOS_REPORT_CLI_OPTIONERRORS_H
#define LAKRESVOS_REPORT_CLI_OPTIONERRORS_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace lakresvos::report {

// The program's own words for command lines that the parsing library would refuse in others.

/// Accepts these values only.
CLI::Validator AllowValues(std::vector<std::string> const& values);

/// Accepts whole numbers from `min` to `max` only.
CLI::Validator AllowRange(int min, int max);

/// Refuses what the parser would misread: `--name=`, which would get the next argument as its
/// value, and a flag with a value.
/// @throws InputError for the first such argument.
void CheckAssignments(CLI::App const& app, int argc, char const* const* argv);

/// @throws InputError for an option with an empty value, which is never of use.
void RefuseEmptyValues(CLI::App const& app);

/// Says in the program's own words what the parser refused.
/// @throws InputError always.
[[noreturn]] void Refuse(CLI::App const& app, CLI::ParseError const& error);

}  // namespace lakresvos::report

#endif
