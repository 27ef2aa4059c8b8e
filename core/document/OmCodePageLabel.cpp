#include "document/OmCodePageLabel.h"

#include <cells/OmStringCell.h>
#include <codepage/codepage.h>

namespace {

/// A converter that is closed even when it could not be opened: what a handle means, null
/// included, is for the converter library to say.
struct Converter {
  explicit Converter(std::string const& codePage)
      : handle(VELKMBConverterNew_A(codePage.c_str())) {}
  ~Converter() { VELKMBConverterDelete_A(handle); }
  Converter(Converter const&) = delete;
  Converter& operator=(Converter const&) = delete;

  void* handle;
};

}  // namespace

std::unique_ptr<OmCellText> ConvertLabel(OmCellText const& label, std::string const& codePage) {
  std::string const text = label.GetText();
  std::string result;
  Converter const converter(codePage);
  if (VELKMBU8ToGeneric(converter.handle, result, text) != 0) {
    result = text;
  }
  return std::unique_ptr<OmCellText>(OmStringCell(result, false).Clone(nullptr));
}
