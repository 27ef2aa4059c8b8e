#include <cells/OmDataValue.h>
#include <cells/OmVariable.h>
// These headers come first to show that they stand alone.
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

static_assert(sizeof(OmVariable) <= 64);
static_assert(sizeof(OmNumDataValue) <= 64);

namespace {

TEST(OmVariable, KeepsNameAndLabel) {
  OmVariable const variable("age", "Age in years");
  EXPECT_EQ(variable.Name(), "age");
  EXPECT_EQ(variable.Label(), "Age in years");
}

TEST(OmVariable, ShowsItsLabelByDefault) {
  OmVariable const variable("age", "Age in years");
  EXPECT_EQ(variable.Display(), OmLabelDisplay::Label);
  EXPECT_EQ(variable.GetText(), "Age in years");
}

TEST(OmVariable, ShowsItsNameWhenTheLabelIsEmpty) {
  OmVariable variable("age", "");
  EXPECT_EQ(variable.GetText(), "age");
  variable.Display(OmLabelDisplay::Both);
  EXPECT_EQ(variable.GetText(), "age");
}

TEST(OmVariable, ShowsNameOrBothWhenAsked) {
  OmVariable variable("age", "Age in years");
  variable.Display(OmLabelDisplay::Value);
  EXPECT_EQ(variable.GetText(), "age");
  variable.Display(OmLabelDisplay::Both);
  EXPECT_EQ(variable.GetText(), "age Age in years");
  variable.Display(OmLabelDisplay::Label);
  EXPECT_EQ(variable.GetText(), "Age in years");
}

TEST(OmNumDataValue, KeepsValueAndLabel) {
  OmNumDataValue value(2.5, "middling");
  EXPECT_EQ(value.Value(), 2.5);
  EXPECT_EQ(value.Label(), "middling");
  EXPECT_EQ(value.GetText(), "middling");
  value.Display(OmLabelDisplay::Both);
  EXPECT_EQ(value.GetText(), "2.5 middling");
}

TEST(OmNumDataValue, ShowsTheValueWhenTheLabelIsEmpty) {
  EXPECT_EQ(OmNumDataValue(2.5, "").GetText(), "2.5");
  EXPECT_EQ(OmNumDataValue(std::nan(""), "").GetText(), ".");
}

TEST(OmStringDataValue, KeepsValueAndLabel) {
  OmStringDataValue value("f", "female");
  EXPECT_EQ(value.Value(), "f");
  EXPECT_EQ(value.Label(), "female");
  EXPECT_EQ(value.GetText(), "female");
  value.Display(OmLabelDisplay::Value);
  EXPECT_EQ(value.GetText(), "f");
}

TEST(LabelContext, GivesTheModeUntilTheCellHasItsOwn) {
  OmVariable variable("age", "Age");
  variable.ContextDisplay(OmLabelDisplay::Value);
  EXPECT_EQ(variable.Display(), OmLabelDisplay::Value);
  EXPECT_EQ(variable.GetText(), "age");
  variable.Display(OmLabelDisplay::Label);
  EXPECT_EQ(variable.GetText(), "Age");
}

TEST(LabelContext, ChangesForTheWholeFamily) {
  OmVariable root("age", "Age");
  root.ContextDisplay(OmLabelDisplay::Label);
  OmNumDataValue child(1, "young");
  OmStringDataValue grandchild("y", "youngest");
  child.ShareContext(root);
  grandchild.ShareContext(child);
  grandchild.ContextDisplay(OmLabelDisplay::Value);
  EXPECT_EQ(root.GetText(), "age");
  EXPECT_EQ(child.GetText(), "1");
  EXPECT_EQ(grandchild.GetText(), "y");
}

TEST(LabelContext, OutlivesTheCellThatMadeIt) {
  OmNumDataValue child(1, "young");
  {
    OmVariable root("age", "Age");
    root.ContextDisplay(OmLabelDisplay::Both);
    child.ShareContext(root);
  }
  EXPECT_EQ(child.GetText(), "1 young");
}

TEST(LabelContext, OfACloneIsItsOwn) {
  OmVariable variable("age", "Age");
  variable.ContextDisplay(OmLabelDisplay::Both);
  std::unique_ptr<OmCellText> const clone(variable.Clone(nullptr));
  variable.ContextDisplay(OmLabelDisplay::Value);
  EXPECT_EQ(clone->GetText(), "age Age");
  EXPECT_EQ(variable.GetText(), "age");
}

TEST(LabelDisplay, OfACloneIsThatOfTheOriginal) {
  OmNumDataValue value(4, "four");
  value.Display(OmLabelDisplay::Both);
  std::unique_ptr<OmCellText> const clone(value.Clone(nullptr));
  value.Display(OmLabelDisplay::Value);
  EXPECT_EQ(clone->GetText(), "4 four");
}

}  // namespace
