#ifndef LAKRESVOS_OMHEADING_H
#define LAKRESVOS_OMHEADING_H

#include <array>
#include <string>

#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmVector.h>

/// A titled item that groups others below it.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmHeading : public OmOutputPart {
 public:
  /// An entry that callers may attach to a heading; the library only destroys its cells.
  struct HeadingRecord {
    unsigned long long first;
    OmCellText* cell1;  ///< owned once the record is in Records(); may be null
    OmCellText* cell2;  ///< owned once the record is in Records(); may be null
    unsigned long long last;
  };

  explicit OmHeading(OmCellText const& label);
  ~OmHeading() override;
  void Accept(Visitor& visitor) override;

  /// The records, none at first. The heading owns the cells of every record in it.
  OmVector<HeadingRecord>& Records() { return *records_; }
  OmVector<HeadingRecord> const& Records() const { return *records_; }

 private:
  OmVector<HeadingRecord>* records_;
};

/// The heading under which the output of one analysis procedure is collected.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmProcedure : public OmHeading {
 public:
  /// @param label the outline text; Text1() to Text3() keep `a`, `b` and `c`.
  OmProcedure(OmCellText const& label, std::string const& a, std::string const& b,
              std::string const& c);
  ~OmProcedure() override;
  void Accept(Visitor& visitor) override;

  /// Replaces the outline text and then the label. The present label, or a part of it, may be
  /// passed.
  /// @throws whatever the label's GetText throws, with nothing changed, or its Clone, with the item
  ///         left without a label: the old one is deleted before the new one is copied. Only a
  ///         label that belongs to the old one is copied first, and nothing changes when that fails.
  void setOutlineText(OmCellText const& label);

  /// The label rendered as text.
  std::string const& OutlineText() const { return outlineText_; }
  std::string const& Text1() const { return text1_; }
  std::string const& Text2() const { return text2_; }
  std::string const& Text3() const { return text3_; }
  /// Empty at first.
  std::string const& Text4() const { return text4_; }

  /// Four numbers of the caller's, each 2 at first.
  std::array<int, 4>& Codes() { return codes_; }
  std::array<int, 4> const& Codes() const { return codes_; }

 private:
  std::string outlineText_;
  std::string text1_;
  std::string text2_;
  std::string text3_;
  std::string text4_;
  std::array<int, 4> codes_;
};

#endif
