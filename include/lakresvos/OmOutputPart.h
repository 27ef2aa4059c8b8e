#ifndef LAKRESVOS_OMOUTPUTPART_H
#define LAKRESVOS_OMOUTPUTPART_H

#include <cells/OmCellText.h>
#include <lakresvos/Export.h>

class OmAnswerTree;
class OmChart;
class OmHeading;
class OmInteractive;
class OmModel;
class OmPageTitle;
class OmPivotTable;
class OmProcedure;
class OmTextBlock;

/// One item of an output document.
///
/// An item owns a deep copy of its label. Once appended to an OmOutputTree it belongs to the tree,
/// which deletes it; until then to whoever made it.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmOutputPart {
 public:
  class Visitor;

  /// @param label the item's outline text, copied into the default heap.
  explicit OmOutputPart(OmCellText const& label);
  OmOutputPart(OmOutputPart const&) = delete;
  OmOutputPart& operator=(OmOutputPart const&) = delete;

  /// Deletes the label. A derived destructor may throw; see OmOutputTree for who catches it.
  virtual ~OmOutputPart() noexcept(false);

  /// Calls the visitor's Visit for the item's own class.
  virtual void Accept(Visitor& visitor) = 0;

  /// The label; owned by the item, valid until the item replaces it.
  OmCellText const* Label() const { return label_; }

  /// Replaces the label by a copy of `label`, made in the default heap as it is: no code page is
  /// looked at, no text tracker bound, and the outline text of an OmProcedure stays. The present
  /// label, or a part of it, may be passed.
  /// @throws whatever the label's Clone throws; the item is then unchanged.
  void setLabel(OmCellText const& label) { AdoptLabel(label.Clone(nullptr)); }

  /// A pointer of the caller's, null at first. The library never reads or frees it.
  void* Extra() const { return extra_; }
  void Extra(void* extra) { extra_ = extra; }

  /// Two flags of the caller's, true at first. The library never reads or changes them.
  bool FlagA() const { return flagA_; }
  void FlagA(bool flag) { flagA_ = flag; }
  bool FlagB() const { return flagB_; }
  void FlagB(bool flag) { flagB_ = flag; }

 protected:
  /// The label, for a class that rebinds it.
  OmCellText* MutableLabel() { return label_; }

  /// Takes over `label` in place of the present one, which is deleted. Null leaves the item
  /// without.
  void AdoptLabel(OmCellText* label);

 private:
  OmCellText* label_;
  void* extra_ = nullptr;
  bool flagA_ = true;
  bool flagB_ = true;
};

/// Tells the kinds of item apart by double dispatch.
///
/// A visitor that does not care about procedures gets them as headings, and one that does not care
/// about page titles gets them as text blocks. Every other kind has to be handled.
class LAKRESVOS_EXPORT OmOutputPart::Visitor {
 public:
  virtual ~Visitor();
  virtual void Visit(OmPivotTable& table) = 0;
  /// Calls Visit(OmHeading&) unless overridden.
  virtual void Visit(OmProcedure& procedure);
  virtual void Visit(OmHeading& heading) = 0;
  virtual void Visit(OmTextBlock& block) = 0;
  /// Calls Visit(OmTextBlock&) unless overridden.
  virtual void Visit(OmPageTitle& title);
  virtual void Visit(OmChart& chart) = 0;
  virtual void Visit(OmAnswerTree& tree) = 0;
  virtual void Visit(OmModel& model) = 0;
  virtual void Visit(OmInteractive& item) = 0;
};

#endif
