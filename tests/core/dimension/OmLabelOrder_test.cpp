#include "dimension/OmLabelOrder.h"

#include <gtest/gtest.h>

#include <cells/OmStringCell.h>

namespace {

OmStringCell const kA("a");
OmStringCell const kB("b");
OmStringCellUTF8 const kOtherA("a");

TEST(LabelEqual, ComparesKindAndText) {
  EXPECT_TRUE(LabelEqual(&kA, &kA));
  EXPECT_FALSE(LabelEqual(&kA, &kB));
  EXPECT_FALSE(LabelEqual(&kA, &kOtherA));
}

TEST(LabelEqual, MissingLabelEqualsOnlyAnotherOne) {
  EXPECT_TRUE(LabelEqual(nullptr, nullptr));
  EXPECT_FALSE(LabelEqual(&kA, nullptr));
  EXPECT_FALSE(LabelEqual(nullptr, &kA));
}

TEST(LabelLess, ComparesTexts) {
  EXPECT_TRUE(LabelLess(&kA, &kB));
  EXPECT_FALSE(LabelLess(&kB, &kA));
  EXPECT_FALSE(LabelLess(&kA, &kA));
}

TEST(LabelLess, MissingLabelStandsFirst) {
  EXPECT_TRUE(LabelLess(nullptr, &kA));
  EXPECT_FALSE(LabelLess(&kA, nullptr));
  EXPECT_FALSE(LabelLess(nullptr, nullptr));
}

}  // namespace
