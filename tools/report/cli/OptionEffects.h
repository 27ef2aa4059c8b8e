#ifndef LAKRESVOS_REPORT_CLI_OPTIONEFFECTS_H
#define LAKRESVOS_REPORT_CLI_OPTIONEFFECTS_H

#include <functional>

#include "cli/Options.h"

namespace lakresvos::report {

/// Checks that every option on the command line makes a difference, with the format that is written
/// and with the tables that are asked for, and that there is anything to write.
///
/// @param isGiven whether the command line has the option with this name.
/// @throws InputError for the first one that has no effect, and for a format that has nothing to write.
void CheckEffects(Options const& options, std::function<bool(char const*)> const& isGiven);

}  // namespace lakresvos::report

#endif
