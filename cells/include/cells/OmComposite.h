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
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmComposite : public OmCellText {
 public:
  /// Makes a composite without parts.
  /// @throws std::bad_alloc.
  explicit OmComposite(std::string const& pattern);

  /// Deletes all parts.
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
  /// so that pieces without a text count too. Nested patterns can ask for more than there is memory
  /// for in few bytes.
  /// @param limit where to stop counting: what is more is cut to little more than that.
  /// @throws std::bad_alloc.
  std::size_t TextCost(std::size_t limit) const;

  /// The pattern.
  std::string Pattern() const { return pattern_.Text(); }

  /// The parts: the children of the root, whose own value is null. Nodes below them take no part in
  /// the text. The composite owns every cell in the tree: a cell that is put there must have been
  /// made by `new` or Clone(), and is deleted and cloned with the composite. Null values are
  /// allowed.
  OmVectorTree<OmCellText*>& Parts() { return parts_; }
  OmVectorTree<OmCellText*> const& Parts() const { return parts_; }

  /// Appends a copy of `part`, made in the region that the composite lies in, or else on the default
  /// heap.
  /// @throws std::bad_alloc; nothing has changed then.
  void AddPart(OmCellText const& part);

 protected:
  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  OmComposite(OmComposite const& other, OmMemoryRegion* region = nullptr);

 private:
  using PartTree = OmVectorTree<OmCellText*>;

  enum class WithoutParts {};

  OmComposite(OmComposite const& other, OmMemoryRegion* region, WithoutParts);

  void CloneParts(OmComposite const& other, OmMemoryRegion* region);

  /// Hands the pieces of the text over one by one until `take` has enough and gives false.
  template <class Take>
  void EachPiece(Take take) const;

  OmCellBytes pattern_;
  PartTree parts_;
};

#endif
