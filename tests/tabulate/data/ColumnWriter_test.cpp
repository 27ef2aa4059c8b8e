#include "data/ColumnWriter.h"

#include <gtest/gtest.h>
#include <string>

#include "support/faults/FailingNew.h"

using namespace lakresvos::tabulate;

namespace {

/// A value of some ten thousand that come in no order; some are long, and some are missing.
std::string MakeValue(int row) {
  int const number = row * 7919 % 10007;
  return number % 11 == 0 ? "NA" : std::string(number % 20, 'x') + std::to_string(number);
}

}  // namespace

TEST(ColumnWriter, AppendsWhatTheColumnAppends) {
  DataColumn plain("a");
  DataColumn written("a");
  ColumnWriter writer(written);
  for (int row = 0; row < 30000; ++row) {
    plain.Append(MakeValue(row));
    writer.Append(MakeValue(row));
    if (row % 5003 == 0) {
      writer.Flush();
      ASSERT_EQ(written.Codes(), plain.Codes());
    }
  }
  writer.Flush();
  EXPECT_EQ(written.Codes(), plain.Codes());
  EXPECT_EQ(written.MissingCount(), plain.MissingCount());
  ASSERT_EQ(written.Values().size(), plain.Values().size());
  for (std::uint32_t code = 0; code < plain.Values().size(); ++code) {
    ASSERT_EQ(written.Values()[code], plain.Values()[code]);
  }
}

TEST(ColumnWriter, AddsToTheNumbersOfTheColumn) {
  DataColumn column("a");
  ColumnWriter writer(column);
  for (int row = 0; row < 5000; ++row) {
    writer.Append(std::to_string(row));
  }
  EXPECT_EQ(column.Numbers().byCode.size(), column.Values().size());
  writer.Append("5000");
  writer.Flush();
  EXPECT_EQ(column.Numbers().byCode.size(), 5001u);
}

TEST(ColumnWriter, ARowThatThereIsNoMemoryForCanBeAddedAgain) {
  DataColumn plain("a");
  DataColumn written("a");
  ColumnWriter writer(written);
  std::size_t failures = 0;
  for (int row = 0; row < 8300; ++row) {
    std::string const value = "a value that is long: " + std::to_string(row);
    plain.Append(value);
    if (row < 4096) {
      writer.Append(value);
      continue;
    }
    failures += FailEveryAllocation([&] { writer.Append(value); },
                                    [&] {
                                      ASSERT_EQ(written.Codes().size(), plain.Codes().size() - 1);
                                      if (row % 3 == 0) {
                                        writer.Flush();
                                      }
                                    });
  }
  failures += FailEveryAllocation([&] { writer.Flush(); }, [] {});
  EXPECT_GT(failures, 10u);
  EXPECT_EQ(written.Codes(), plain.Codes());
  EXPECT_EQ(written.Values().size(), plain.Values().size());
}
