#ifndef CELLS_OMCELLTEXT_H
#define CELLS_OMCELLTEXT_H

#include <cstddef>
#include <memory>
#include <string>

#include <cells/Export.h>
#include <cells/OmLabelDisplay.h>
#include <cells/OmMemoryRegion.h>

class OmCellMetaData;
class OmComposite;
class OmNumDataValue;
class OmNumber;
class OmStringCell;
class OmStringCellUTF8;
class OmStringDataValue;
class OmVariable;
class icuTracker;

/// The value of one table cell, or one label: a text, a number, a variable, a composite, ...
///
/// Cells are handled through pointers and their virtual operations. They are made with `new` on the
/// default heap, with `new (region)` in a region, on the stack, or by Clone(); `delete` is right
/// for every cell that was made by `new` or Clone(), wherever it lives.
///
/// The texts of a cell lie in the region that the cell lies in, on the default heap when it lies in
/// none: a region that goes as a whole takes them along, and its cells need not be deleted.
/// Metadata, a context and a tracker's text lie elsewhere: only deleting the cell gives these back,
/// and the region is told that it holds such a cell (OmMemoryRegion::HasOwners()).
///
/// Beside its value a cell may carry metadata and a context. A context is a setting that the labels
/// of one family share, so that changing it through one of them changes it for all.
///
/// Thread safety: none; one thread at a time uses a cell and those that share its region (unless
/// that is a shared one), its context or its tracker. But while none changes them, several may call
/// GetText(), GetKind(), getMeta() and, with a visitor that changes nothing, Accept() on cells of this
/// library; what is derived from them elsewhere answers for itself.
class CELLS_EXPORT OmCellText {
 public:
  class Visitor;

  /// The values of GetKind() for the kinds of this library. Kinds made elsewhere use other values.
  enum Kind : long {
    StringCellKind = 1,   ///< OmStringCell
    StringCellUTF8Kind,   ///< OmStringCellUTF8
    NumberKind,           ///< OmNumber
    VariableKind,         ///< OmVariable
    NumDataValueKind,     ///< OmNumDataValue
    StringDataValueKind,  ///< OmStringDataValue
    CompositeKind,        ///< OmComposite
  };

  OmCellText& operator=(OmCellText const&) = delete;

  /// Gives back the texts, the metadata, and the shares in a context and in a tracker's texts.
  virtual ~OmCellText();

  /// A copy in `region` (null: the default heap) with all of its state: value, metadata, display
  /// mode, and a context of its own that has the same setting. It is bound to no tracker and
  /// depends on nothing but the region, which must outlive it. Never null; the caller owns it. Time
  /// and memory in proportion to the texts.
  /// @throws std::bad_alloc; nothing has changed then.
  virtual OmCellText* Clone(OmMemoryRegion* region) const = 0;

  /// The value rendered as UTF-8; texts as the bytes that they were made from. Time in proportion
  /// to the text.
  /// @throws std::bad_alloc.
  virtual std::string GetText() const = 0;

  /// A number that is the same for all cells of one class and differs between classes: one of Kind
  /// for the classes of this library.
  virtual long GetKind() const = 0;

  /// Orders this cell against `other`: negative, 0 or positive. This is one order over all cells,
  /// and no display mode changes it. Kinds come first: the two string kinds count as one and come
  /// before all others, which follow in the order of GetKind(). Within a kind
  /// - strings compare by their bytes, which is code point order in UTF-8,
  /// - numbers by value, then by decimals,
  /// - variables by name, data values by value, then both by label,
  /// - composites and kinds made elsewhere by what GetText() gives where every display mode is
  ///   OmLabelDisplay::Label.
  /// @param ignoreCase compares texts after simple case folding (CaseFolding.txt of Unicode 14.0,
  ///        statuses C and S), whatever the locale. Bytes that are not UTF-8 fold to themselves.
  /// @throws std::bad_alloc.
  virtual short Compare(OmCellText const& other, bool ignoreCase) const = 0;

  /// Drops the own context and shares that of `other`; none when `other` has none. The context
  /// exists until the last cell that shares it is gone. Constant time.
  /// @throws std::bad_alloc; nothing has changed then.
  virtual void ShareContext(OmCellText const& other);

  /// Binds the texts of the cell to `tracker`, which keeps each distinct text once; null gives them
  /// storage of their own again. Does nothing for kinds without texts, and for a cell that is bound
  /// to `tracker` already. The tracker is not owned and may go before the cell.
  /// @throws std::bad_alloc; nothing has changed then.
  virtual void UseTracker(icuTracker* tracker);

  /// Writes `indent` times two spaces and GetText() to standard output, without a line end. Meant
  /// for people who debug. A negative `indent` counts as 0.
  /// @throws std::bad_alloc.
  virtual void Dump(int indent) const;

  /// Calls the `Visit` of `visitor` for the class of this cell.
  virtual void Accept(Visitor& visitor) = 0;

  /// The tracker that the cell is bound to, which is not owned; null when there is none, or when it
  /// is gone.
  virtual icuTracker* GetTracker() const;

  /// Whether a cell of this class need not be deleted when the region that it lies in goes: all that
  /// it owns lies there too, or the cell told the region otherwise with NoteOwnership(). True for
  /// the kinds of this library but composites; a class that is derived from them answers for itself,
  /// false unless it overrides this. One that answers true also promises that its Clone() gives a
  /// cell and touches nothing but the memory that it asks for.
  virtual bool GoesWithRegion() const;

  /// Becomes a copy of `other` but for its own metadata, which it keeps if it has any, where that
  /// takes no memory and cannot be told from a clone. Returns whether it did; nothing has changed
  /// otherwise.
  virtual bool TakeValue(OmCellText const& other);

  /// Whether the cell has metadata.
  bool hasMeta() const { return getMeta() != nullptr; }

  /// The cell's metadata; null when it has none. Valid until the next setMeta() or the end of the
  /// cell, which owns it.
  OmCellMetaData const* getMeta() const;

  /// Replaces the cell's metadata by a copy of `*meta`; null removes it. A cell's own metadata may
  /// be given back to it.
  /// @throws std::bad_alloc; nothing has changed then.
  void setMeta(OmCellMetaData const* meta);

  /// Whether the cell has a context, one of its own or a shared one.
  bool hasContext() const;

  /// The display mode that the context holds; OmLabelDisplay::Label when there is no context.
  OmLabelDisplay ContextDisplay() const;

  /// Sets the display mode for all cells that share the context; makes a context when there is
  /// none.
  /// @throws std::bad_alloc; nothing has changed then.
  void ContextDisplay(OmLabelDisplay display);

  /// Memory for a cell on the default heap, as OmMemoryRegion::Allocate() gives it.
  /// @throws std::bad_alloc.
  static void* operator new(std::size_t size) {
    return OmMemoryRegion::DefaultHeap()->Allocate(size);
  }
  /// Memory for a cell in `region`; null means the default heap. The region must outlive the cell.
  /// @throws std::bad_alloc.
  static void* operator new(std::size_t size, OmMemoryRegion* region) {
    return (region != nullptr ? region : OmMemoryRegion::DefaultHeap())->Allocate(size);
  }

  /// Returns the memory of a cell to the region that it came from; null does nothing.
  static void operator delete(void* cell) { OmMemoryRegion::Release(cell); }

  /// The same, for a cell whose constructor throws in a region.
  static void operator delete(void* cell, OmMemoryRegion*) { OmMemoryRegion::Release(cell); }

 protected:
  /// Makes a cell without metadata, context or tracker.
  OmCellText() noexcept;

  /// Copies metadata and context, as Clone() does.
  /// @throws std::bad_alloc.
  OmCellText(OmCellText const& other);

  /// Compare() for kinds that have no more to compare than their texts, and for any two cells of
  /// different kinds. -1, 0 or 1.
  /// @throws std::bad_alloc.
  short CompareTexts(OmCellText const& other, bool ignoreCase) const;

  /// Whether the cell has neither metadata nor a context.
  bool IsBare() const { return extras_ == nullptr; }

  /// Tells the region that the cell lies in, if it lies in one, that the cell owns something outside
  /// it and has to be deleted.
  void NoteOwnership() const;

  /// Memory for a cell in `region` (null: the default heap) with `room` bytes after it.
  /// @throws std::bad_alloc.
  static void* operator new(std::size_t size, OmMemoryRegion* region, std::size_t room) {
    return operator new(size + room, region);
  }
  /// The same, for a cell whose constructor throws.
  static void operator delete(void* cell, OmMemoryRegion*, std::size_t) {
    OmMemoryRegion::Release(cell);
  }

  /// Where the texts of this cell belong: `region`, or when that is null the region that the cell
  /// lies in. Null, which means the default heap, for a cell that lies in none.
  OmMemoryRegion* Home(OmMemoryRegion* region = nullptr) const;

 private:
  struct Extras;

  Extras& MakeExtras();

  std::unique_ptr<Extras> extras_;  // null until metadata or a context is needed
};

/// Tells the kinds of cells apart: OmCellText::Accept() calls the operation for the class of the
/// cell. Each does nothing unless it is overridden, so that a visitor names only the kinds that it
/// knows.
///
/// Thread safety: none; one thread at a time uses a visitor.
class CELLS_EXPORT OmCellText::Visitor {
 public:
  virtual ~Visitor();

  /// Called for a number.
  virtual void Visit(OmNumber& cell);

  /// Called for a plain text.
  virtual void Visit(OmStringCell& cell);

  /// Called for a plain text that is always UTF-8.
  virtual void Visit(OmStringCellUTF8& cell);

  /// Called for a variable.
  virtual void Visit(OmVariable& cell);

  /// Called for a numeric value of a variable.
  virtual void Visit(OmNumDataValue& cell);

  /// Called for a text value of a variable.
  virtual void Visit(OmStringDataValue& cell);

  /// Called for a composite; its parts are not visited on their own.
  virtual void Visit(OmComposite& cell);
};

#endif
