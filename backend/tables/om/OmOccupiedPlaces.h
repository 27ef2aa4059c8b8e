#ifndef LAKRESVOS_BACKEND_OMOCCUPIEDPLACES_H
#define LAKRESVOS_BACKEND_OMOCCUPIEDPLACES_H

#include <cstddef>
#include <vector>

#include "OmDisplayLayerHeadingData.h"
#include "OmPivotTableData.h"
#include "OmPlaceSet.h"

/// The dense search for the places of an axis that hold a cell, as one walk over the cell store.
///
/// Its answer is that of trying every combination: a place is kept when, for the leaves that its
/// digits name, some combination of raw category numbers on the other axis has a cell, with the
/// dimensions on neither axis at the current layer's categories. The walk therefore admits, per
/// dimension,
///
/// - on the other axis: every subscript below the dimension's size, whether a leaf carries it or
/// not;
/// - on the heads axis only: the subscripts of those leaves whose display position is below the
/// size;
/// - on neither: the current layer's subscript.
///
/// Of a dimension that stands on an axis twice, the last entry decides; the digit of any other
/// entry is free. An entry that names no dimension has the digit 0. Places and raw numbers at or
/// above the axis' size, which is the product of the radices modulo 2^64, are not tried.
///
/// Each stored cell is visited at most once; below the lowest heads dimension the first hit
/// suffices.
class OmOccupiedPlaces {
 public:
  OmOccupiedPlaces(OmDisplayLayerHeading::Data& layout, OmPivotTable::PointerVector* root,
                   PuppetVector<short> const& heads, PuppetVector<short> const& others);

  /// Appends the places, ascending.
  void AppendTo(std::vector<unsigned long long>& result);

 private:
  static constexpr unsigned int kNone = OmDimHeader::kNoPosition;

  /// The leaves of one dimension by subscript: the last one that carries it, and to each leaf the
  /// one before it with the same subscript.
  struct Leaves {
    std::vector<unsigned int> last;
    std::vector<unsigned int> previous;
  };

  enum class Role { kFixed, kOther, kHead };

  struct Dimension {
    Role role = Role::kFixed;
    long long bound = 0;  ///< for kOther the size, for kFixed the subscript
    Leaves leaves;        ///< for kHead
    /// For kOther, what one step of its subscript adds to the raw number; saturated.
    unsigned long long weight = 0;
  };

  /// One digit of a place.
  struct Digit {
    long long dimension = -1;  ///< whose subscript decides the digit; -1: it is free
    unsigned int count = 1;    ///< how many values a free digit takes, from 0 on
    unsigned long long weight = 1;
  };

  /// One level of the walk.
  struct Frame {
    OmPivotTable::PointerVector const* node;
    unsigned long next;
  };

  static Leaves LeavesBySubscript(OmDimHeader const& header, std::size_t count);

  void PlanOthers(PuppetVector<short> const& others, std::vector<int> const& sizes);
  void PlanHeads(OmDisplayLayerHeading::Data& layout, PuppetVector<short> const& heads,
                 std::vector<int> const& sizes);
  bool Step(Frame& frame, std::size_t level);
  bool OthersInRange() const;
  void Keep(OmPlaceSet& kept);
  void Extend(Digit const& digit, unsigned int value);

  OmPivotTable::PointerVector* root_;
  std::vector<Dimension> dimensions_;
  std::vector<Digit> digits_;
  std::size_t lowestHead_;
  unsigned long long nHeads_;
  unsigned long long nOthers_;

  std::vector<unsigned long> subscripts_;  ///< of the walk's present path
  std::vector<unsigned long long> partial_;
  std::vector<unsigned long long> extended_;
};

#endif
