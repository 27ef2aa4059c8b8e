#include <cmath>
#include <gtest/gtest.h>

#include <lakresvos/tabulate/RowWeights.h>

#include "support/ErrorOf.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

TEST(RowWeights, AreOneWithoutAColumn) {
  RowWeights const weights;
  EXPECT_EQ(weights.At(0), 1);
  EXPECT_EQ(weights.At(12345), 1);
  EXPECT_EQ(weights.Decimals(), 0);
}

TEST(RowWeights, ComeFromTheColumn) {
  WarningLog warnings;
  DataSet const data = ReadData("w\n2\n0\n2.25\n", {"w"});
  RowWeights const weights(data, "w", warnings);
  EXPECT_EQ(weights.At(0), 2);
  EXPECT_EQ(weights.At(1), 0);
  EXPECT_EQ(weights.At(2), 2.25);
  EXPECT_EQ(weights.Decimals(), 2);
  EXPECT_EQ(warnings.Total(), 0u);
}

TEST(RowWeights, HaveNoDecimalsWhenAllAreIntegers) {
  WarningLog warnings;
  DataSet const data = ReadData("w\n2.00\n3.0\n", {"w"});
  EXPECT_EQ(RowWeights(data, "w", warnings).Decimals(), 0);
}

TEST(RowWeights, WarnOfRowsWithoutOne) {
  WarningLog warnings;
  DataSet const data = ReadData("w\n2\nNA\n", {"w"});
  RowWeights const weights(data, "w", warnings);
  EXPECT_TRUE(std::isnan(weights.At(1)));
  ASSERT_EQ(warnings.Total(), 1u);
  EXPECT_EQ(warnings.First()[0].line, 3u);
  EXPECT_EQ(warnings.First()[0].column, "w");
  EXPECT_EQ(warnings.First()[0].problem, "the weight is missing; the line was skipped");
}

TEST(RowWeights, RefuseATextWhereverItIs) {
  WarningLog warnings;
  DataSet const data = ReadData("a,w\n1,2\n1,many\n1,x\n", {"w"});
  EXPECT_EQ(ErrorOf([&] { RowWeights(data, "w", warnings); }),
            "data.csv:3: column 'w': expected a weight of 0 or more, not 'many'");
}

TEST(RowWeights, RefuseANegativeOne) {
  WarningLog warnings;
  DataSet const data = ReadData("w\n-0.5\n", {"w"});
  EXPECT_EQ(ErrorOf([&] { RowWeights(data, "w", warnings); }),
            "data.csv:2: column 'w': expected a weight of 0 or more, not '-0.5'");
}
