#ifndef CELLS_OMNUMBER_H
#define CELLS_OMNUMBER_H

#include <string>

#include <cells/OmCellText.h>

/// A number and the number of decimals that it is shown with.
///
/// Rendering never depends on the locale: it is that of std::to_chars(). NaN is the system-missing
/// value and renders as "."; infinities render as "inf" and "-inf". A negative value that rounds to
/// zero keeps its sign ("-0.00"), and so does a negative zero.
///
/// Compare() orders numbers by value, then by decimals; NaN is below every number and equal to NaN.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmNumber : public OmCellText {
 public:
  /// @param value    any number; NaN is the system-missing value.
  /// @param decimals the digits after the point, to which the exact value is rounded, halves to the
  ///        even digit. At most 1,074 are rendered: no double has a digit other than zero after
  ///        these, as the smallest is 2^-1074. Negative (-1): the fewest digits that read back to
  ///        the same value, and of these the nearest to it; written plainly when its size is 0 or
  ///        from 1e-5 up to 1e15 and with an exponent otherwise.
  explicit OmNumber(double value, int decimals = -1);
  ~OmNumber() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  std::string GetText() const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;
  bool TakeValue(OmCellText const& other) override;

  /// The value, as given to the constructor.
  double Value() const { return value_; }

  /// The decimals, as given to the constructor.
  int Decimals() const { return decimals_; }

 protected:
  /// Copies everything, as Clone() does.
  /// @throws std::bad_alloc.
  OmNumber(OmNumber const& other);

 private:
  double value_;
  int decimals_;
};

#endif
