#ifndef CELLS_OMNUMBER_H
#define CELLS_OMNUMBER_H

#include <string>

#include <cells/OmCellText.h>

/// A number and the number of decimals that it is shown with.
///
/// Rendering never depends on the locale. NaN is the system-missing value and renders as ".";
/// infinities render as "inf" and "-inf". A negative value that rounds to zero keeps its sign
/// ("-0.00"), and so does a negative zero.
///
/// Compare() orders numbers by value, then by decimals; NaN is below every number and equal to NaN.
///
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmNumber : public OmCellText {
 public:
  /// @param decimals the digits after the point, or -1 (and any other negative number) for the
  ///        fewest digits that read back to the same value, written plainly when its size is 0 or
  ///        from 1e-5 up to 1e15 and with an exponent otherwise. At most 1,074 decimals are
  ///        rendered: no double has a digit other than zero after these.
  explicit OmNumber(double value, int decimals = -1);
  ~OmNumber() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  std::string GetText() const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void Accept(Visitor& visitor) override;

  double Value() const { return value_; }

  /// As given to the constructor.
  int Decimals() const { return decimals_; }

 protected:
  OmNumber(OmNumber const& other);

 private:
  double value_;
  int decimals_;
};

#endif
