#ifndef TESTS_SUPPORT_ERROROF_H
#define TESTS_SUPPORT_ERROROF_H

#include <string>

#include "ReportError.h"

/// The text of the ReportError that `action` ends with; "none" when it ends without.
template <class Action>
std::string ErrorOf(Action action) {
  try {
    action();
  } catch (lakresvos::report::ReportError const& error) {
    return error.what();
  }
  return "none";
}

#endif
