#ifndef CELLS_CELLORDER_H
#define CELLS_CELLORDER_H

#include <string_view>
#include <typeinfo>

#include <cells/OmCellText.h>

/// The three-way comparisons that all kinds are built from; each gives -1, 0 or 1.
namespace cell_order {

inline short Sign(int order) {
  return static_cast<short>((order > 0) - (order < 0));
}

/// By rank of kind: the two string kinds share the lowest one, the others follow in the order of
/// GetKind().
short CompareRanks(OmCellText const& a, OmCellText const& b);

inline bool IsString(long kind) {
  return kind == OmCellText::StringCellKind || kind == OmCellText::StringCellUTF8Kind;
}

/// Whether cells of these kinds are of one rank and that is the rank of a kind of this library.
inline bool ArePeers(long a, long b) {
  bool const own = a >= OmCellText::StringCellKind && a <= OmCellText::CompositeKind;
  return own && (a == b || (IsString(a) && IsString(b)));
}

/// `other`, when both cells are of the same rank and that is the rank of a kind of this library,
/// whose cells compare by more than their texts. Otherwise null.
/// @tparam Kinds the classes of this library that are such a `Class`. Cells that are compared are
///         nearly always both of one of them, which their types tell at once.
template <class... Kinds, class Class>
Class const* FindPeer(Class const& cell, OmCellText const& other) {
  std::type_info const* const type = &typeid(cell);
  if (type == &typeid(other) && ((type == &typeid(Kinds)) || ...)) {
    return static_cast<Class const*>(&other);
  }
  return ArePeers(cell.GetKind(), other.GetKind()) ? dynamic_cast<Class const*>(&other) : nullptr;
}

/// By the bytes of the texts after simple case folding, neither of which is copied.
short CompareFolded(std::string_view a, std::string_view b);

/// By bytes; with `ignoreCase` by those after simple case folding.
inline short CompareTexts(std::string_view a, std::string_view b, bool ignoreCase) {
  return ignoreCase ? CompareFolded(a, b) : Sign(a.compare(b));
}

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
