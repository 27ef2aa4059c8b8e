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

/// All properties of the program that PROPERTY() defines.
inline std::vector<Property>& Properties() {
  static std::vector<Property> properties;
  return properties;
}

struct PropertyRegistration {
  explicit PropertyRegistration(Property const& property) { Properties().push_back(property); }
};

/// As RC_GTEST_PROP(Suite, Name, ()), for fuzzing too.
#define PROPERTY(Suite, Name)                               \
  void Suite##_##Name##_Property();                         \
  PropertyRegistration const Suite##_##Name##_registration( \
      {#Suite "." #Name, Suite##_##Name##_Property});       \
  RC_GTEST_PROP(Suite, Name, ()) {                          \
    Suite##_##Name##_Property();                            \
  }                                                         \
  void Suite##_##Name##_Property()

#endif
