#ifndef CELLS_OMLABELLEDCELL_H
#define CELLS_OMLABELLEDCELL_H

#include <string>

#include <cells/OmCellBytes.h>
#include <cells/OmCellText.h>

/// What the kinds that have both a value (or name) and a label have in common.
///
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmLabelledCell : public OmCellText {
 public:
  ~OmLabelledCell() override;

  /// The value, the label or both, as Display() says.
  std::string GetText() const override;
  void UseTracker(icuTracker* tracker) override;
  icuTracker* GetTracker() const override;

  /// The label; may be empty.
  std::string Label() const;

  /// The cell's own display mode; that of its context until one is set, ContextDisplay().
  OmLabelDisplay Display() const;

  /// Sets the cell's own display mode, which then goes before that of the context.
  void Display(OmLabelDisplay display) {
    display_ = display;
    hasDisplay_ = true;
  }

 protected:
  explicit OmLabelledCell(std::string const& label);
  OmLabelledCell(OmLabelledCell const& other, OmMemoryRegion* region);

  /// Compare() by label alone.
  short CompareLabels(OmLabelledCell const& other, bool ignoreCase) const;

  /// The value or name as text.
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
/// Thread safety: see OmCellText.
class CELLS_EXPORT OmLabelledText : public OmLabelledCell {
 public:
  ~OmLabelledText() override;

  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void UseTracker(icuTracker* tracker) override;

 protected:
  OmLabelledText(std::string const& value, std::string const& label);
  OmLabelledText(OmLabelledText const& other, OmMemoryRegion* region);

  std::string ValueText() const override;

 private:
  OmCellBytes value_;
};

#endif
