#include "OmCodePageLabel.h"

#include <cells/OmStringCell.h>
#include <codepage/codepage.h>

namespace {

struct CloseConverter {
  void operator()(void* converter) const { VELKMBConverterDelete_A(converter); }
};

}  // namespace

std::unique_ptr<OmCellText> LabelInCodePage(OmCellText const& label, std::string const& codePage) {
  std::string const text = label.GetText();
  std::string result;
  std::unique_ptr<void, CloseConverter> const converter(VELKMBConverterNew_A(codePage.c_str()));
  if (VELKMBU8ToGeneric(converter.get(), result, text) != 0) {
    result = text;
  }
  return std::unique_ptr<OmCellText>(OmStringCell(result, false).Clone(nullptr));
}
