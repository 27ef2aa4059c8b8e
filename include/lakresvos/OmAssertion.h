#ifndef LAKRESVOS_OMASSERTION_H
#define LAKRESVOS_OMASSERTION_H

#include <cstdio>
#include <cstdlib>

/// @file
/// The end of a process that breaks an invariant.

/// Ends the process because an internal condition does not hold.
///
/// Writes the one line "UNIT:LINE: FUNCTION: Assertion `CONDITION' failed." to standard error and
/// aborts; nothing is thrown and nothing unwound. Every assertion of the library ends here, in
/// every build type. May be called from any thread.
///
/// @param condition the text of the condition that failed.
/// @param unit      the source unit that the condition belongs to.
/// @param line      the line within that unit.
/// @param function  the function that tested the condition.
[[noreturn]] inline void OmAssertionFailed(char const* condition, char const* unit, int line,
                                           char const* function) {
  std::fprintf(stderr, "%s:%d: %s: Assertion `%s' failed.\n", unit, line, function, condition);
  std::abort();
}

#endif
