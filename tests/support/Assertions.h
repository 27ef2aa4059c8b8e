#ifndef TESTS_SUPPORT_ASSERTIONS_H
#define TESTS_SUPPORT_ASSERTIONS_H

#include <csignal>
#include <gtest/gtest.h>
#include <string>

/// `text` as a regular expression that matches nothing else.
inline std::string LiteralPattern(std::string const& text) {
  std::string pattern;
  for (char const c : text) {
    if (std::string(R"(\^$.|?*+()[]{})").find(c) != std::string::npos) {
      pattern += '\\';
    }
    pattern += c;
  }
  return pattern;
}

/// What the library writes when an internal condition does not hold.
/// @param place    "UNIT:LINE", or a pattern for it.
/// @param function the text of the function, or a pattern for it.
inline std::string AssertionPattern(std::string const& place, std::string const& function,
                                    std::string const& condition) {
  return place + ": " + function + ": Assertion `" + LiteralPattern(condition) + "' failed\\.";
}

/// Checks that `statement` aborts the process with the given message on standard error.
#define EXPECT_ABORT(statement, pattern) \
  EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT), pattern)

#endif
