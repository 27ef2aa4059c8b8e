#ifndef LAKRESVOS_OMHEADING_H
#define LAKRESVOS_OMHEADING_H

#include <array>
#include <string>

#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmVector.h>

/// A titled item that groups others below it.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmHeading : public OmOutputPart {
 public:
  /// An entry that callers may attach to a heading; the library only destroys its cells.
  struct HeadingRecord {
    unsigned long long first;  ///< a number of the caller's
    OmCellText* cell1;         ///< owned once the record is in Records(); may be null
    OmCellText* cell2;         ///< owned once the record is in Records(); may be null
    unsigned long long last;   ///< a number of the caller's
  };

  /// A heading without records.
  /// @param label the item's outline text, copied.
  /// @throws whatever the label's Clone throws, or std::bad_alloc.
  explicit OmHeading(OmCellText const& label);

  /// Deletes the cells of every record, in order, and then the label.
  ~OmHeading() override;
  void Accept(Visitor& visitor) override;

  /// The records, none at first, to read or change. The heading owns the cells of every record in
  /// it; a record that is erased from the vector takes its cells along, to be deleted by the
  /// caller. The vector takes its storage from the default heap and is valid as long as the
  /// heading.
  OmVector<HeadingRecord>& Records() { return *records_; }
  /// The same records, to read.
  OmVector<HeadingRecord> const& Records() const { return *records_; }

 private:
  OmVector<HeadingRecord>* records_;
};

/// The heading under which the output of one analysis procedure is collected.
///
/// References that queries return are valid as long as the item and show later changes. Queries
/// take constant time and throw nothing.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmProcedure : public OmHeading {
 public:
  /// A procedure without records.
  /// @param label the outline text, kept as the label and, rendered, as OutlineText().
  /// @param a     kept as Text1().
  /// @param b     kept as Text2().
  /// @param c     kept as Text3().
  /// @throws whatever the label's Clone or GetText throws, or std::bad_alloc.
  OmProcedure(OmCellText const& label, std::string const& a, std::string const& b,
              std::string const& c);
  ~OmProcedure() override;
  void Accept(Visitor& visitor) override;

  /// Replaces the outline text and then the label. The present label, or a part of it, may be
  /// passed.
  /// @throws whatever the label's GetText throws, with nothing changed, or its Clone, with the item
  ///         left without a label: the old one is deleted before the new one is copied. Only a
  ///         label that belongs to the old one is copied first, and nothing changes when that
  ///         fails.
  void setOutlineText(OmCellText const& label);

  /// The label rendered as text, in UTF-8, by the constructor or by the last setOutlineText().
  std::string const& OutlineText() const { return outlineText_; }

  /// The first text that the constructor was given; the library never reads it.
  std::string const& Text1() const { return text1_; }

  /// The second text that the constructor was given; the library never reads it.
  std::string const& Text2() const { return text2_; }

  /// The third text that the constructor was given; the library never reads it.
  std::string const& Text3() const { return text3_; }

  /// A fourth text, which is empty.
  std::string const& Text4() const { return text4_; }

  /// Four numbers of the caller's, each 2 at first, to read or change.
  std::array<int, 4>& Codes() { return codes_; }
  /// The same numbers, to read.
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
