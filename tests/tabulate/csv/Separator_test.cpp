#include "csv/Separator.h"

#include <gtest/gtest.h>

using namespace lakresvos::tabulate;

TEST(Separator, IsTheOneInTheHeader) {
  EXPECT_EQ(GuessSeparator("a,b\n1,2\n"), ',');
  EXPECT_EQ(GuessSeparator("a;b\n1;2\n"), ';');
  EXPECT_EQ(GuessSeparator("a\tb\n1\t2\n"), '\t');
  EXPECT_EQ(GuessSeparator("a|b\n1|2\n"), '|');
}

TEST(Separator, IsAtTheSamePlacesInEveryRecord) {
  EXPECT_EQ(GuessSeparator("a;b\n1,5;2,5\n3,5;4\n"), ';');
  EXPECT_EQ(GuessSeparator("name, first;name, last;age\nx;y;1\n"), ';');
  EXPECT_EQ(GuessSeparator("a,b,c;d\n1,2,3\n4,5,6\n"), ',');
}

TEST(Separator, IsTheMostFrequentOfSeveralThatFit) {
  EXPECT_EQ(GuessSeparator("a|b;c;d\n1|2;3;4\n"), ';');
  EXPECT_EQ(GuessSeparator("a,b;c\n1,2;3\n"), ',');
}

TEST(Separator, IsTheMostFrequentInTheHeaderWhenNoneFits) {
  EXPECT_EQ(GuessSeparator("a;b;c,d\n1;2\n3,4,5\n"), ';');
}

TEST(Separator, IsACommaWhenThereIsNone) {
  EXPECT_EQ(GuessSeparator(""), ',');
  EXPECT_EQ(GuessSeparator("\n\n"), ',');
  EXPECT_EQ(GuessSeparator("a\n1;2\n"), ',');
}

TEST(Separator, IsNotInQuotes) {
  EXPECT_EQ(GuessSeparator("\"a,b,c\";d\n\"x,\n,y\";2\n"), ';');
  EXPECT_EQ(GuessSeparator("\"a \"\",\"\" b\";d\n"), ';');
}

TEST(Separator, IsGuessedOfCompleteRecordsAlone) {
  EXPECT_EQ(GuessSeparator("a,b\n1,2\n3;4;5"), ',');
  EXPECT_EQ(GuessSeparator("a;b;c"), ';');
}

TEST(Separator, IsGuessedOfTheFirstTwentyRecords) {
  std::string bytes;
  for (int i = 0; i < 20; ++i) {
    bytes += "a,b;c;d\r\n\r\n";
  }
  EXPECT_EQ(GuessSeparator(bytes + "a,b\n"), ';');
  EXPECT_EQ(GuessSeparator("a,b;c;d\n" + bytes.substr(0, bytes.size() / 20 * 18) + "a,b\n"), ',');
}

TEST(Separator, HasAName) {
  EXPECT_EQ(NameSeparator(','), "Comma");
  EXPECT_EQ(NameSeparator(';'), "Semicolon");
  EXPECT_EQ(NameSeparator('\t'), "Tab");
  EXPECT_EQ(NameSeparator('|'), "Bar");
  EXPECT_EQ(NameSeparator('^'), "^");
}
