#ifndef CELLS_OMSTRINGCELL_H
#define CELLS_OMSTRINGCELL_H

#include <cstddef>
#include <string>

#include <cells/OmCellBytes.h>
#include <cells/OmCellText.h>

/// What the two kinds of plain texts have in common: one text, kept as the bytes that were given.
/// Compare() orders both kinds as one, by these bytes.
///
/// A clone whose text is short enough lies in one block of 64 bytes with it, which a look at the
/// text then brings into the cache with the cell. These bytes go with the cell, even when a tracker
/// keeps the text in the meantime.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmPlainText : public OmCellText {
 public:
  ~OmPlainText() override;

  std::string GetText() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void UseTracker(icuTracker* tracker) override;
  icuTracker* GetTracker() const override;

 protected:
  /// Copies `text` to where the cell lies.
  /// @throws std::bad_alloc.
  explicit OmPlainText(std::string const& text);

  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmPlainText(OmPlainText const& other, OmMemoryRegion* region);

  /// Marks a copy whose text lies in one block with it.
  struct InOneBlock {};

  /// Copies everything, the text to `room`, which is in the block that the copy lies in.
  /// @throws std::bad_alloc.
  OmPlainText(OmPlainText const& other, std::byte* room);

  /// How much room the text needs in one block with a clone of `size` bytes; 0 when the text is
  /// empty or too long for that.
  std::size_t RoomBeside(std::size_t size) const;

 private:
  OmCellBytes text_;
};

/// A plain text, in the encoding that the back end works in.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmStringCell : public OmPlainText {
 public:
  /// @param text         kept as it is.
  /// @param translatable whether the text may be shown in another language.
  /// @throws std::bad_alloc.
  explicit OmStringCell(std::string const& text, bool translatable = false);
  ~OmStringCell() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;

  /// Whether the text may be shown in another language, as given to the constructor.
  bool IsTranslatable() const { return translatable_; }

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmStringCell(OmStringCell const& other, OmMemoryRegion* region = nullptr);

 private:
  OmStringCell(OmStringCell const& other, InOneBlock);

  bool translatable_;
};

/// A plain text that is UTF-8 whatever the back end works in.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmStringCellUTF8 : public OmPlainText {
 public:
  /// @param text kept as it is; it is not checked to be UTF-8.
  /// @throws std::bad_alloc.
  explicit OmStringCellUTF8(std::string const& text);
  ~OmStringCellUTF8() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  long GetKind() const override;
  void Accept(Visitor& visitor) override;
  bool GoesWithRegion() const override;

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmStringCellUTF8(OmStringCellUTF8 const& other, OmMemoryRegion* region = nullptr);

 private:
  OmStringCellUTF8(OmStringCellUTF8 const& other, InOneBlock);
};

#endif
