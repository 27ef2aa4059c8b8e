#ifndef TESTS_SUPPORT_ERROROF_H
#define TESTS_SUPPORT_ERROROF_H

#include <string>

#include <lakresvos/tabulate/InputError.h>

/// The text of the InputError that `action` ends with; "none" when it ends without.
template <class Action>
std::string ErrorOf(Action action) {
  try {
    action();
  } catch (lakresvos::tabulate::InputError const& error) {
    return error.what();
  }
  return "none";
}

#endif
