#ifndef TESTS_CELLS_EVERYKIND_H
#define TESTS_CELLS_EVERYKIND_H

#include <memory>
#include <vector>

#include <cells/cells.h>

using CellPointer = std::unique_ptr<OmCellText>;

/// One cell of every kind, each with all the state that its kind has of its own.
inline std::vector<CellPointer> EveryKind() {
  std::vector<CellPointer> cells;
  cells.emplace_back(new OmStringCell("text", true));
  cells.emplace_back(new OmStringCellUTF8("t\xC3\xA9xt"));
  cells.emplace_back(new OmNumber(2.5, 2));
  auto* variable = new OmVariable("age", "Age in years");
  variable->Display(OmLabelDisplay::Both);
  cells.emplace_back(variable);
  auto* number = new OmNumDataValue(3, "third");
  number->Display(OmLabelDisplay::Value);
  cells.emplace_back(number);
  cells.emplace_back(new OmStringDataValue("m", "male"));
  auto* composite = new OmComposite("{0} of {1}");
  composite->AddPart(OmNumber(1));
  composite->AddPart(OmStringCell("many"));
  cells.emplace_back(composite);
  return cells;
}

/// Footnotes 1 and 2, style 3.
inline OmCellMetaData SomeMetaData() {
  OmCellMetaData meta;
  meta.addFootnote(1);
  meta.addFootnote(2);
  meta.setStyle(3);
  return meta;
}

#endif
