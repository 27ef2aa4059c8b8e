#ifndef CELLS_OMCOMPOSITE_H
#define CELLS_OMCOMPOSITE_H

#include <cstddef>
#include <string>

#include <cells/OmCellBytes.h>
#include <cells/OmCellText.h>
#include <lakresvos/OmVectorTree.h>

/// A text made of other cells: a pattern with marks, and the parts that stand in for them.
///
/// The marks "{0}", "{1}", ... stand for the texts of the parts of these numbers. A mark without a
/// part, and any other brace, stays as it is written; there is no way to escape a mark.
///
/// Deep structures need no deep stack: parts below parts, and composites as parts of composites,
/// may be nested to any depth.
///
/// Compare() orders composites by their texts, as they are when no part has a display mode.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmComposite : public OmCellText {
 public:
  /// Makes a composite without parts; any text is a pattern.
  /// @throws std::bad_alloc.
  explicit OmComposite(std::string const& pattern);

  /// Deletes all parts, at whatever depth, without memory of its own. Time in proportion to their
  /// number.
  ~OmComposite() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  std::string GetText() const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void Accept(Visitor& visitor) override;

  /// Binds the pattern alone; the parts are left as they are.
  void UseTracker(icuTracker* tracker) override;
  icuTracker* GetTracker() const override;

  /// How much making the text takes: its bytes and one for each piece that it is put together of,
  /// so that pieces without a text count too. Few bytes of nested patterns can ask for more text
  /// than there is memory for; a caller that reads patterns from outside checks this before
  /// GetText().
  /// @param limit where to stop counting: a higher cost is reported only as some value above it.
  /// @throws std::bad_alloc.
  std::size_t TextCost(std::size_t limit) const;

  /// A copy of the pattern.
  /// @throws std::bad_alloc.
  std::string Pattern() const { return pattern_.Text(); }

  /// The parts: the children of the root, whose own value is null. Nodes below them take no part in
  /// the text. The composite owns every cell in the tree, and clones and deletes it with itself.
  /// Null values are allowed. Valid until the end of the composite.
  /// Requires: a cell that is put there was made by `new` or Clone(), and nobody else owns it.
  OmVectorTree<OmCellText*>& Parts() { return parts_; }

  /// The same, for reading.
  OmVectorTree<OmCellText*> const& Parts() const { return parts_; }

  /// Appends a copy of `part`, made in the region that the composite lies in, or else on the
  /// default heap.
  /// @throws std::bad_alloc; nothing has changed then.
  void AddPart(OmCellText const& part);

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  OmComposite(OmComposite const& other, OmMemoryRegion* region = nullptr);

 private:
  using PartTree = OmVectorTree<OmCellText*>;

  enum class NoParts {};

  OmComposite(OmComposite const& other, OmMemoryRegion* region, NoParts);

  void CloneParts(OmComposite const& other, OmMemoryRegion* region);

  /// Calls `visit` with each piece of the text in turn, until it returns false.
  template <class Visit>
  void VisitPieces(Visit visit) const;

  OmCellBytes pattern_;
  PartTree parts_;
};

#endif
