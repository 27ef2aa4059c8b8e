#ifndef CELLS_OMVARIABLE_H
#define CELLS_OMVARIABLE_H

#include <string>

#include <cells/OmLabelledCell.h>

/// A variable: its name and its label. Compare() orders by name, then by label.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmVariable : public OmLabelledText {
 public:
  /// @param name  kept as it is, whatever its bytes are.
  /// @param label shown for the name; when it is empty the name is shown itself.
  /// @throws std::bad_alloc.
  OmVariable(std::string const& name, std::string const& label);
  ~OmVariable() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;

  /// A copy of the name, as given to the constructor.
  /// @throws std::bad_alloc.
  std::string Name() const { return ValueText(); }

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmVariable(OmVariable const& other, OmMemoryRegion* region = nullptr);
};

#endif
