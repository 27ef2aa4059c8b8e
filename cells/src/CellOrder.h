#ifndef CELLS_CELLORDER_H
#define CELLS_CELLORDER_H

#include <string_view>

#include <cells/OmCellText.h>

/// The three-way comparisons that all kinds are built from; each gives -1, 0 or 1.
namespace cell_order {

/// By rank of kind: the two string kinds share the lowest one, the others follow in the order of
/// GetKind().
short CompareRanks(OmCellText const& a, OmCellText const& b);

/// `other`, when both cells are of the same rank and that is the rank of a kind of this library,
/// whose cells compare by more than their texts. Otherwise null.
template <class Class>
Class const* FindPeer(OmCellText const& cell, OmCellText const& other) {
  long const kind = cell.GetKind();
  bool const own = kind >= OmCellText::StringCellKind && kind <= OmCellText::CompositeKind;
  return own && CompareRanks(cell, other) == 0 ? dynamic_cast<Class const*>(&other) : nullptr;
}

/// By bytes; with `ignoreCase` by the bytes of the texts after simple case folding.
short CompareTexts(std::string_view a, std::string_view b, bool ignoreCase);

/// NaN is below every number and equal to NaN.
short CompareValues(double a, double b);

/// While one exists, the cells that this thread renders take no notice of their display modes: the
/// order of a composite, or of a kind made elsewhere, goes by GetText() and must not change with
/// the mode.
class ScopedDefaultDisplay {
 public:
  ScopedDefaultDisplay();
  ~ScopedDefaultDisplay();
  ScopedDefaultDisplay(ScopedDefaultDisplay const&) = delete;
  ScopedDefaultDisplay& operator=(ScopedDefaultDisplay const&) = delete;

  static bool Active();
};

}  // namespace cell_order

#endif
