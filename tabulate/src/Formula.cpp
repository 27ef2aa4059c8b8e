#include <set>

#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::tabulate {

namespace {

class FormulaParser {
 public:
  explicit FormulaParser(std::string const& text) : scanner_("--table", text) {}

  Formula Parse(std::string const& text) {
    Formula formula;
    formula.text = text;
    if (!scanner_.Take('~')) {
      formula.rows = Axis();
      Expect(scanner_.Take('~'), "'*', '/' or '~'");
    }
    if (!scanner_.AtEnd() && !scanner_.Take('|')) {
      formula.columns = Axis();
      if (scanner_.AtEnd()) {
        return formula;
      }
      Expect(scanner_.Take('|'), "'*', '/', '|' or the end");
    }
    if (!scanner_.AtEnd()) {
      formula.layers = Axis();
      Expect(scanner_.AtEnd(), "'*', '/' or the end");
    }
    return formula;
  }

 private:
  std::vector<FormulaTerm> Axis() {
    std::vector<FormulaTerm> terms;
    do {
      terms.push_back(Term());
    } while (scanner_.Take('*'));
    return terms;
  }

  FormulaTerm Term() {
    FormulaTerm term;
    do {
      NamedColumn column = scanner_.Name("~|*/", "the name of a column");
      if (!seen_.insert(column.name).second) {
        scanner_.Fail(column.position, "the column " + Quoted(column.name) + " comes twice");
      }
      term.push_back(std::move(column));
    } while (scanner_.Take('/'));
    return term;
  }

  void Expect(bool met, char const* what) {
    if (!met) {
      scanner_.Fail(scanner_.Position(), std::string("there should be ") + what);
    }
  }

  Scanner scanner_;
  std::set<std::string> seen_;
};

}  // namespace

Formula ParseFormula(std::string const& text) {
  return FormulaParser(text).Parse(text);
}

}  // namespace lakresvos::tabulate
