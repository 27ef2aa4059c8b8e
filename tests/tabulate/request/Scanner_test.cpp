#include "request/Scanner.h"

#include <gtest/gtest.h>

#include "support/ErrorOf.h"

using lakresvos::tabulate::NameToken;
using lakresvos::tabulate::Scanner;

TEST(Scanner, ReadsNamesAndSignsWithSpacesAroundThem) {
  Scanner scanner("list", " a:\tb , c");
  EXPECT_EQ(scanner.ReadName(":,", "a name").name, "a");
  EXPECT_FALSE(scanner.Accept(','));
  EXPECT_TRUE(scanner.Accept(':'));
  NameToken const second = scanner.ReadName(":,", "a name");
  EXPECT_EQ(second.name, "b");
  EXPECT_EQ(second.position, 5U);
  scanner.Expect(',', "','");
  EXPECT_FALSE(scanner.AtEnd());
  EXPECT_EQ(scanner.ReadName(":,", "a name").name, "c");
  EXPECT_TRUE(scanner.AtEnd());
  scanner.ExpectEnd("','");
}

TEST(Scanner, NameInBackquotesMayHoldAnything) {
  Scanner scanner("list", "`a, b:``c```x");
  NameToken const name = scanner.ReadName(",:", "a name");
  EXPECT_EQ(name.name, "a, b:`c`");
  EXPECT_EQ(name.position, 1U);
  EXPECT_EQ(scanner.ReadName(",:", "a name").name, "x");
}

TEST(Scanner, BackquoteEndsABareName) {
  Scanner scanner("list", "a`b`");
  EXPECT_EQ(scanner.ReadName("", "a name").name, "a");
  EXPECT_EQ(scanner.ReadName("", "a name").name, "b");
}

TEST(Scanner, PositionsCountCharacters) {
  Scanner scanner("list", "\xC3\xA9\xE6\xBC\xA2 x");
  EXPECT_EQ(scanner.Position(), 1U);
  EXPECT_EQ(scanner.ReadName("", "a name").name, "\xC3\xA9\xE6\xBC\xA2");
  EXPECT_EQ(scanner.Position(), 4U);
}

TEST(Scanner, ErrorsNameTheTextAndThePosition) {
  EXPECT_EQ(ErrorOf([] { Scanner("list", "a b").Expect(',', "','"); }),
            "list 'a b': expected ',' at position 1");
  EXPECT_EQ(ErrorOf([] { Scanner("list", "  ").ReadName("", "a name"); }),
            "list '  ': expected a name at position 3");
  EXPECT_EQ(ErrorOf([] { Scanner("list", ",").ReadName(",", "a name"); }),
            "list ',': expected a name at position 1");
  EXPECT_EQ(ErrorOf([] { Scanner("list", " `a``").ReadName("", "a name"); }),
            "list ' `a``': unclosed backquote at position 2");
  EXPECT_EQ(ErrorOf([] { Scanner("list", " x").ExpectEnd("the end"); }),
            "list ' x': expected the end at position 2");
}
