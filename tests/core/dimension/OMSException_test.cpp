#include <exception>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

#include <lakresvos/OMSException.h>

#include "support/VirtualSlot.h"

namespace {

static_assert(std::is_base_of_v<std::exception, OMSException>);
static_assert(std::is_convertible_v<OMSException*, std::exception*>, "public, single inheritance");
static_assert(std::has_virtual_destructor_v<OMSException>);
static_assert(std::is_nothrow_destructible_v<OMSException>);
static_assert(std::is_copy_constructible_v<OMSException>);

TEST(OMSException, KeepsItsMessageAndValues) {
  OMSException const exception("OmPivotTable::Size() -- which < 0", -3, 2.5);
  EXPECT_EQ(exception.Message(), "OmPivotTable::Size() -- which < 0");
  EXPECT_EQ(exception.Value1(), -3);
  EXPECT_EQ(exception.Value2(), 2.5);
}

TEST(OMSException, WhatGivesTheMessageAndBothValues) {
  EXPECT_STREQ(OMSException("OmPivotTable::Size() -- which < 0", -3, 0).what(),
               "OmPivotTable::Size() -- which < 0, value 1 == -3, value 2 == 0");
}

TEST(OMSException, WritesValuesAsAStandardStreamDoes) {
  EXPECT_STREQ(OMSException("m", 1234567, 0.1).what(), "m, value 1 == 1.23457e+06, value 2 == 0.1");
  EXPECT_STREQ(OMSException("m", 4294967295.0, -0.5).what(),
               "m, value 1 == 4.29497e+09, value 2 == -0.5");
  EXPECT_STREQ(OMSException("m", 100000, 2).what(), "m, value 1 == 100000, value 2 == 2");
}

TEST(OMSException, AnEmptyMessageLeavesTheValues) {
  EXPECT_STREQ(OMSException("", 0, 0).what(), ", value 1 == 0, value 2 == 0");
}

TEST(OMSException, IsCaughtAsAStandardException) {
  try {
    throw OMSException("m", 1, 2);
  } catch (std::exception const& caught) {
    EXPECT_STREQ(caught.what(), "m, value 1 == 1, value 2 == 2");
  }
}

TEST(OMSException, ACopyOutlivesItsOriginal) {
  OMSException copy("other", 0, 0);
  {
    OMSException const original("a message that is too long to be kept in place", 1, 2);
    copy = original;
  }
  EXPECT_STREQ(copy.what(),
               "a message that is too long to be kept in place, value 1 == 1, value 2 == 2");
  EXPECT_EQ(copy.Value2(), 2);
}

TEST(OMSException, WhatFollowsTheTwoSlotsOfTheDestructorAndIsTheLast) {
  struct Probe : OMSException {
    using OMSException::OMSException;
    virtual void Next() {}
  };
  EXPECT_EQ(VirtualSlot(&OMSException::what), 2);
  EXPECT_EQ(VirtualSlot(&Probe::Next), 3);
  EXPECT_EQ(VirtualSlot(&OMSException::Message), -1);
}

}  // namespace
