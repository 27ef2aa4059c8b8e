#ifndef TESTS_SUPPORT_PROPERTY_H
#define TESTS_SUPPORT_PROPERTY_H

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string_view>
#include <vector>

/// A property that draws from RapidCheck all that it needs. As a test it is tried with random draws;
/// fuzzing decides each draw itself.
struct Property {
  std::string_view name;  ///< "Suite.Name"
  void (*run)();
};

/// All properties of the program that PROPERTY() and RANDOM_PROGRAM() define.
inline std::vector<Property>& Properties() {
  static std::vector<Property> properties;
  return properties;
}

struct PropertyRegistration {
  explicit PropertyRegistration(Property const& property) { Properties().push_back(property); }
};

/// Lets the environment variable LAKRESVOS_PROPERTY_RUNS, a number above 0, multiply how often each
/// property is tried. RC_PARAMS still has the last word: its max_success is taken as it is.
///
/// To be called before the first property is checked.
/// @throws std::invalid_argument when the variable is no such number.
void MultiplyPropertyRuns();

/// Checks a random program as a part of the current test: as many sequences as the CMake variable
/// LAKRESVOS_SEQUENCES says, multiplied as MultiplyPropertyRuns() says.
void CheckRandomProgram(void (*run)());

/// The most steps that a random program takes.
constexpr int kMostSteps = 200;

/// How many steps a sequence is to have: few in small cases, any number up to kMostSteps in the
/// largest. RapidCheck's cases grow up to a size of 99, where its ranges have all but a few numbers.
inline rc::Gen<int> StepCounts() {
  return rc::gen::scale(1.02, rc::gen::inRange(0, kMostSteps + 1));
}

inline int DrawStepCount() {
  return *StepCounts();
}

#define DEFINE_PROPERTY(Suite, Name, check)                 \
  void Suite##_##Name##_Property();                         \
  PropertyRegistration const Suite##_##Name##_registration( \
      {#Suite "." #Name, Suite##_##Name##_Property});       \
  TEST(Suite, Name) {                                       \
    check(&Suite##_##Name##_Property);                      \
  }                                                         \
  void Suite##_##Name##_Property()

/// As RC_GTEST_PROP(Suite, Name, ()), for fuzzing too.
#define PROPERTY(Suite, Name) DEFINE_PROPERTY(Suite, Name, rc::detail::checkGTest)

/// A property that takes DrawStepCount() random steps and compares with a plain model after each. It
/// is tried far more often than the others.
#define RANDOM_PROGRAM(Suite, Name) DEFINE_PROPERTY(Suite, Name, CheckRandomProgram)

#endif
