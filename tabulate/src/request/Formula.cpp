#include <set>

#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Quoting.h>

#include "request/Scanner.h"

namespace lakresvos::tabulate {

namespace {

class FormulaParser {
 public:
  FormulaParser(std::string const& text, std::string const& source) : scanner_(source, text) {}

  Formula Parse(std::string const& text) {
    Formula formula;
    formula.text = text;
    if (!scanner_.Accept('~')) {
      formula.rows = ReadAxis();
      scanner_.Expect('~', "'*', '/' or '~'");
    }
    if (!scanner_.AtEnd() && !scanner_.Accept('|')) {
      formula.columns = ReadAxis();
      if (scanner_.AtEnd()) {
        return formula;
      }
      scanner_.Expect('|', "'*', '/', '|' or the end");
    }
    if (!scanner_.AtEnd()) {
      formula.layers = ReadAxis();
      scanner_.ExpectEnd("'*', '/' or the end");
    }
    return formula;
  }

 private:
  std::vector<FormulaTerm> ReadAxis() {
    std::vector<FormulaTerm> terms;
    do {
      terms.push_back(ReadTerm());
    } while (scanner_.Accept('*'));
    return terms;
  }

  FormulaTerm ReadTerm() {
    FormulaTerm term;
    do {
      NameToken column = scanner_.ReadName("~|*/", "a column name");
      if (!seen_.insert(column.name).second) {
        scanner_.Fail(column.position, "duplicate column " + Quote(column.name));
      }
      term.push_back(std::move(column));
    } while (scanner_.Accept('/'));
    return term;
  }

  Scanner scanner_;
  std::set<std::string> seen_;
};

}  // namespace

Formula ParseFormula(std::string const& text, std::string const& source) {
  Formula formula = FormulaParser(text, source).Parse(text);
  formula.source = source;
  return formula;
}

}  // namespace lakresvos::tabulate
