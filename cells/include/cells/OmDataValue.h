#ifndef CELLS_OMDATAVALUE_H
#define CELLS_OMDATAVALUE_H

#include <string>

#include <cells/OmLabelledCell.h>

/// A numeric value of a variable, with its value label.
///
/// The value renders as an OmNumber without fixed decimals, and compares as one; cells with one
/// value compare by label.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmNumDataValue : public OmLabelledCell {
 public:
  /// @param value any number; NaN is the system-missing value.
  /// @param label shown for the value; when it is empty the value is shown itself.
  /// @throws std::bad_alloc.
  OmNumDataValue(double value, std::string const& label);
  ~OmNumDataValue() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;

  /// The value, as given to the constructor.
  double Value() const { return value_; }

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmNumDataValue(OmNumDataValue const& other, OmMemoryRegion* region = nullptr);

  std::string ValueText() const override;

 private:
  double value_;
};

/// A text value of a variable, with its value label. Compare() orders by value, then by label.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmStringDataValue : public OmLabelledText {
 public:
  /// @param value kept as it is, whatever its bytes are.
  /// @param label shown for the value; when it is empty the value is shown itself.
  /// @throws std::bad_alloc.
  OmStringDataValue(std::string const& value, std::string const& label);
  ~OmStringDataValue() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;

  /// A copy of the value, as given to the constructor.
  /// @throws std::bad_alloc.
  std::string Value() const { return ValueText(); }

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmStringDataValue(OmStringDataValue const& other, OmMemoryRegion* region = nullptr);
};

#endif
