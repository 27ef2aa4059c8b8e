#ifndef CELLS_OMLABELLEDCELL_H
#define CELLS_OMLABELLEDCELL_H

#include <string>

#include <cells/OmCellBytes.h>
#include <cells/OmCellText.h>

/// What the kinds that have both a value (or name) and a label have in common.
///
/// Which of the two is shown is a setting of the cell or of its context; it never changes how cells
/// compare.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmLabelledCell : public OmCellText {
 public:
  ~OmLabelledCell() override;

  /// The value, the label or both, as Display() says.
  /// @throws std::bad_alloc.
  std::string GetText() const override;
  void UseTracker(icuTracker* tracker) override;
  icuTracker* GetTracker() const override;

  /// A copy of the label; may be empty.
  /// @throws std::bad_alloc.
  std::string Label() const;

  /// The cell's own display mode; until one is set, that of its context, ContextDisplay().
  OmLabelDisplay Display() const;

  /// Sets the cell's own display mode, which then goes before that of the context for good.
  void Display(OmLabelDisplay display) {
    display_ = display;
    hasDisplay_ = true;
  }

 protected:
  /// Copies `label` to where the cell lies.
  /// @throws std::bad_alloc.
  explicit OmLabelledCell(std::string const& label);

  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmLabelledCell(OmLabelledCell const& other, OmMemoryRegion* region);

  /// Compare() by label alone: -1, 0 or 1.
  /// @throws std::bad_alloc.
  short CompareLabels(OmLabelledCell const& other, bool ignoreCase) const;

  /// The value or name as text.
  /// @throws std::bad_alloc.
  virtual std::string ValueText() const = 0;

 private:
  OmCellBytes label_;
  OmLabelDisplay display_ = OmLabelDisplay::Label;
  bool hasDisplay_ = false;
};

/// A labelled cell whose value or name is a text.
///
/// Compare() orders cells of one kind by this text, then by label.
///
/// Thread safety: as OmCellText.
class CELLS_EXPORT OmLabelledText : public OmLabelledCell {
 public:
  ~OmLabelledText() override;

  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void UseTracker(icuTracker* tracker) override;

 protected:
  /// Copies both texts to where the cell lies.
  /// @throws std::bad_alloc.
  OmLabelledText(std::string const& value, std::string const& label);

  /// Copies everything into `region`, as Clone() does; null means where the copy lies.
  /// @throws std::bad_alloc.
  OmLabelledText(OmLabelledText const& other, OmMemoryRegion* region);

  std::string ValueText() const override;

 private:
  OmCellBytes value_;
};

#endif
