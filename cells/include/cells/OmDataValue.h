#ifndef CELLS_OMDATAVALUE_H
#define CELLS_OMDATAVALUE_H

#include <string>

#include <cells/OmLabelledCell.h>

/// A numeric value of a variable, with its value label.
///
/// The value renders as an OmNumber without fixed decimals, and compares as one.
///
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmNumDataValue : public OmLabelledCell {
 public:
  /// @param label may be empty; the value stands for it then.
  /// @throws std::bad_alloc.
  OmNumDataValue(double value, std::string const& label);
  ~OmNumDataValue() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void Accept(Visitor& visitor) override;

  double Value() const { return value_; }

 protected:
  OmNumDataValue(OmNumDataValue const& other, OmMemoryRegion* region = nullptr);

  std::string ValueText() const override;

 private:
  double value_;
};

/// A text value of a variable, with its value label.
///
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmStringDataValue : public OmLabelledText {
 public:
  /// @param label may be empty; the value stands for it then.
  /// @throws std::bad_alloc.
  OmStringDataValue(std::string const& value, std::string const& label);
  ~OmStringDataValue() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;

  std::string Value() const { return ValueText(); }

 protected:
  OmStringDataValue(OmStringDataValue const& other, OmMemoryRegion* region = nullptr);
};

#endif
