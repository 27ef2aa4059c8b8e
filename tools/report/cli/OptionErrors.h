#ifndef LAKRESVOS_REPORT_CLI_OPTIONERRORS_H
#define LAKRESVOS_REPORT_CLI_OPTIONERRORS_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace lakresvos::report {

// What the program has to say of command lines instead of the library that parses them.

/// Takes one of these values only.
CLI::Validator OneOf(std::vector<std::string> const& values);

/// Takes whole numbers of this range only.
CLI::Validator WholeNumber(int least, int most);

/// Checks what the parser takes otherwise than the user meant it: `--name=` would get the argument
/// after it as its value, and a flag would take a value.
/// @throws InputError for the first such argument.
void CheckAssignments(CLI::App const& app, int argc, char const* const* argv);

/// @throws InputError for an option with an empty value, which no option has a use for.
void RefuseEmptyValues(CLI::App const& app);

/// @throws InputError for what the parser refused.
[[noreturn]] void Refuse(CLI::App const& app, CLI::ParseError const& error);

}  // namespace lakresvos::report

#endif
