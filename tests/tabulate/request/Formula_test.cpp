#include <gtest/gtest.h>

#include <lakresvos/tabulate/Formula.h>

#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

/// An axis written out: terms separated by a space, nested columns by '/'.
std::string Text(std::vector<FormulaTerm> const& axis) {
  std::string text;
  for (FormulaTerm const& term : axis) {
    text += text.empty() ? "" : " ";
    for (std::size_t i = 0; i < term.size(); ++i) {
      text += i > 0 ? "/[" : "[";
      text += term[i].name + "]";
    }
  }
  return text;
}

std::string Parsed(std::string const& text) {
  Formula const formula = ParseFormula(text);
  return Text(formula.rows) + " ~ " + Text(formula.columns) + " | " + Text(formula.layers);
}

std::string ErrorIn(std::string const& text) {
  std::string const error = ErrorOf([&] { ParseFormula(text); });
  std::string const start = "formula '" + text + "': ";
  return error.starts_with(start) ? error.substr(start.size()) : error;
}

}  // namespace

TEST(Formula, ReadsAllThreeAxes) {
  EXPECT_EQ(Parsed("Class * Sex ~ Survived | Age"), "[Class] [Sex] ~ [Survived] | [Age]");
}

TEST(Formula, NeedsNoSpaces) {
  EXPECT_EQ(Parsed("A*B~C|D"), "[A] [B] ~ [C] | [D]");
}

TEST(Formula, ReadsNestedColumns) {
  EXPECT_EQ(Parsed("A/B/C * D ~ E / F"), "[A]/[B]/[C] [D] ~ [E]/[F] | ");
}

TEST(Formula, LetsTheRowsBeEmpty) {
  EXPECT_EQ(Parsed("~ A"), " ~ [A] | ");
}

TEST(Formula, LetsTheColumnsBeEmpty) {
  EXPECT_EQ(Parsed("A ~"), "[A] ~  | ");
  EXPECT_EQ(Parsed("A ~ | B"), "[A] ~  | [B]");
}

TEST(Formula, LetsTheLayersBeEmpty) {
  EXPECT_EQ(Parsed("A ~ B |"), "[A] ~ [B] | ");
}

TEST(Formula, LetsAllAxesBeEmpty) {
  EXPECT_EQ(Parsed("~"), " ~  | ");
  EXPECT_EQ(Parsed(" ~ | "), " ~  | ");
}

TEST(Formula, TakesAnythingInBackQuotes) {
  EXPECT_EQ(Parsed("`Solar R` * `a~b|c*d/e` ~ `back``quote` * ``"),
            "[Solar R] [a~b|c*d/e] ~ [back`quote] [] | ");
}

TEST(Formula, TakesNamesOfAnyLetters) {
  EXPECT_EQ(Parsed("Größe ~ 年.月"), "[Größe] ~ [年.月] | ");
}

TEST(Formula, RemembersItsTextAndPositionsInCharacters) {
  Formula const formula = ParseFormula("Größe * `年 月` ~ x");
  EXPECT_EQ(formula.text, "Größe * `年 月` ~ x");
  EXPECT_EQ(formula.rows[1][0].position, 9u);
  EXPECT_EQ(formula.columns[0][0].position, 17u);
}

TEST(FormulaErrors, EmptyFormula) {
  EXPECT_EQ(ErrorIn(""), "expected a column name at position 1");
}

TEST(FormulaErrors, NoTilde) {
  EXPECT_EQ(ErrorIn("A * B"), "expected '*', '/' or '~' at position 6");
}

TEST(FormulaErrors, BarBeforeTilde) {
  EXPECT_EQ(ErrorIn("A | B"), "expected '*', '/' or '~' at position 3");
}

TEST(FormulaErrors, TwoTildes) {
  EXPECT_EQ(ErrorIn("A ~~ B"), "expected a column name at position 4");
  EXPECT_EQ(ErrorIn("A ~ B ~ C"), "expected '*', '/', '|' or the end at position 7");
}

TEST(FormulaErrors, TwoBars) {
  EXPECT_EQ(ErrorIn("A ~ B | C | D"), "expected '*', '/' or the end at position 11");
}

TEST(FormulaErrors, SpaceInsideAPlainName) {
  EXPECT_EQ(ErrorIn("Solar R ~"), "expected '*', '/' or '~' at position 7");
}

TEST(FormulaErrors, NothingAfterAnOperator) {
  EXPECT_EQ(ErrorIn("A * ~ B"), "expected a column name at position 5");
  EXPECT_EQ(ErrorIn("~ A /"), "expected a column name at position 6");
}

TEST(FormulaErrors, OpenBackQuote) {
  EXPECT_EQ(ErrorIn("A ~ `B"), "unclosed backquote at position 5");
  EXPECT_EQ(ErrorIn("`A`` ~ B"), "unclosed backquote at position 1");
}

TEST(FormulaErrors, TextAfterABackQuote) {
  EXPECT_EQ(ErrorIn("`A`B ~"), "expected '*', '/' or '~' at position 4");
}

TEST(FormulaErrors, OneColumnTwice) {
  EXPECT_EQ(ErrorIn("A ~ B | `A`"), "duplicate column 'A' at position 9");
}

TEST(FormulaErrors, PositionsCountCharacters) {
  EXPECT_EQ(ErrorIn("年月 * ~"), "expected a column name at position 6");
}

TEST(Formula, SaysWhereItsTextIsFrom) {
  EXPECT_EQ(ParseFormula("a ~ b", "the second --table").source, "the second --table");
}
