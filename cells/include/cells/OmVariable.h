#ifndef CELLS_OMVARIABLE_H
#define CELLS_OMVARIABLE_H

#include <string>

#include <cells/OmLabelledCell.h>

/// A variable: its name and its label.
///
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmVariable : public OmLabelledText {
 public:
  /// @param label may be empty; the name stands for it then.
  /// @throws std::bad_alloc.
  OmVariable(std::string const& name, std::string const& label);
  ~OmVariable() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;

  std::string Name() const { return ValueText(); }

 protected:
  OmVariable(OmVariable const& other, OmMemoryRegion* region = nullptr);
};

#endif
