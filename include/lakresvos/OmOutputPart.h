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

  /// An item with nothing but a label.
  /// @param label the item's outline text, copied into the default heap.
  /// @throws whatever the label's Clone throws.
  explicit OmOutputPart(OmCellText const& label);
  OmOutputPart(OmOutputPart const&) = delete;
  OmOutputPart& operator=(OmOutputPart const&) = delete;

  /// Deletes the label. A derived destructor may throw; see OmOutputTree for who catches it.
  virtual ~OmOutputPart() noexcept(false);

  /// Calls the visitor's Visit for the item's own class, once, and does nothing else.
  /// @throws what that Visit throws.
  virtual void Accept(Visitor& visitor) = 0;

  /// The label; owned by the item, valid until the item replaces it. Null only after a replacement
  /// that failed, see OmProcedure::setOutlineText(). Constant time.
  OmCellText const* Label() const { return label_; }

  /// Replaces the label by a copy of `label`, made in the default heap as it is: no code page is
  /// looked at, no text tracker bound, and the outline text of an OmProcedure stays. The present
  /// label, or a part of it, may be passed. The old label is deleted.
  /// @throws whatever the label's Clone throws; the item is then unchanged.
  void setLabel(OmCellText const& label) { AdoptLabel(label.Clone(nullptr)); }

  /// A pointer of the caller's, null at first. The library never reads or frees what it points at.
  void* Extra() const { return extra_; }
  /// Replaces the caller's pointer; null is allowed.
  void Extra(void* extra) { extra_ = extra; }

  /// The first of two flags of the caller's, true at first. The library never reads or changes it.
  bool FlagA() const { return flagA_; }
  /// Replaces the caller's first flag.
  void FlagA(bool flag) { flagA_ = flag; }

  /// The second of two flags of the caller's, true at first. The library never reads or changes it.
  bool FlagB() const { return flagB_; }
  /// Replaces the caller's second flag.
  void FlagB(bool flag) { flagB_ = flag; }

 protected:
  /// The label, for a class that rebinds it; owned by the item, null as for Label().
  OmCellText* MutableLabel() { return label_; }

  /// Takes over `label`, made in the default heap, in place of the present one, which is deleted.
  /// Null leaves the item without a label.
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
/// about page titles gets them as text blocks. Every other kind has to be handled. A class that
/// overrides some forms of Visit names the others with `using OmOutputPart::Visitor::Visit`.
///
/// The item is the one that Accept() was called on; it still belongs to its tree. What a Visit
/// throws passes through Accept().
///
/// Thread safety: none; one thread at a time uses a visitor and the items that it visits.
class LAKRESVOS_EXPORT OmOutputPart::Visitor {
 public:
  virtual ~Visitor();

  /// Handles a pivot table.
  virtual void Visit(OmPivotTable& table) = 0;

  /// Handles a procedure: calls Visit(OmHeading&) unless overridden.
  virtual void Visit(OmProcedure& procedure);

  /// Handles a heading that is no procedure.
  virtual void Visit(OmHeading& heading) = 0;

  /// Handles a text block that is no page title.
  virtual void Visit(OmTextBlock& block) = 0;

  /// Handles a page title: calls Visit(OmTextBlock&) unless overridden.
  virtual void Visit(OmPageTitle& title);

  /// Handles a chart.
  virtual void Visit(OmChart& chart) = 0;

  /// Handles an answer tree.
  virtual void Visit(OmAnswerTree& tree) = 0;

  /// Handles a statistical model.
  virtual void Visit(OmModel& model) = 0;

  /// Handles an interactive item.
  virtual void Visit(OmInteractive& item) = 0;
};

#endif
