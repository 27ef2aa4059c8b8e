#ifndef LAKRESVOS_CORE_LAYOUT_OMDISPLAYLAYERHEADINGDATA_H
#define LAKRESVOS_CORE_LAYOUT_OMDISPLAYLAYERHEADINGDATA_H

#include <vector>

#include <cells/OmMemoryRegion.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/PuppetVector.h>

#include "layout/OmDimHeader.h"
#include "layout/OmPlaceCalculator.h"

/// What a layer heading holds, and the region that its headers live in.
///
/// A place numbers one combination of categories on an axis, as a mixed-radix number of display
/// positions.
struct OmDisplayLayerHeading::Data : OmMemoryRegion {
  using Places = std::vector<unsigned long long>;

  using PlaceCalculator = OmPlaceCalculator;

  Data(OmPivotTable& owner, bool skip);
  ~Data();

  /// A copy of an axis, last entry first, as the headings take it.
  static PuppetVector<short> ReverseAxis(PuppetVector<short> axis);

  void CollectHeaderInfo();
  void FindNonEmptyLayers();

  /// The path of layer position `i`'s category in a layer place, or null.
  OmDimHeader::Path* FindNodes(int place, int i);

  /// FindNodes() in the current layer; null without one.
  OmDimHeader::Path* FindCurrentNodes(int i);

  /// The place of a layer; false when there is no such layer.
  bool FindPlace(int layer, unsigned long long& place) const;

  /// The place of the current layer; false without one. Unless layers are skipped, a number that
  /// was restored is a place as it is, past the last layer too.
  bool FindCurrentPlace(unsigned long long& place) const;

  /// The place of a full cell index on the axis of `calc`, in display positions.
  unsigned long long DisplayPosition(std::vector<int> const& index, PlaceCalculator const& calc);

  /// Writes the categories that a place in display positions stands for into `index`, which gets
  /// one slot per dimension. Digits outside the headers' tables are left out.
  void Fill(unsigned long long place, PlaceCalculator const& calc, std::vector<int>& index);

  /// Whether fewer than one per cent of all combinations of categories have a cell.
  static bool IsSparse(OmPivotTable const& table);

  /// Finds the places of the `heads` axis that hold a cell, ascending. The two methods give
  /// different answers: the sparse one counts every stored cell, the dense one those with a
  /// category within the size of each dimension of `others`, at the current layer.
  void FindNonEmptyHeaders(PuppetVector<short> const& heads, PuppetVector<short> const& others,
                           Places& result);
  void FindNonEmptyHeadersSparse(PuppetVector<short> const& heads,
                                 PuppetVector<short> const& others, Places& result);
  void FindNonEmptyHeadersDense(PuppetVector<short> const& heads, PuppetVector<short> const& others,
                                Places& result);

  /// Appends, per dimension of the axis, how many heading levels it needs for these places; for no
  /// places, all its levels. Entries outside the table are left out.
  void FindVisibleLevels(Places const& places, PlaceCalculator& calc,
                         std::vector<unsigned short>& levels);

  /// The table's own record, for walks over its cell store.
  OmPivotTable::Data* GetTableData() const;

  /// The header of dimension `dimension`, or null outside the table.
  OmDimHeader* FindHeader(long long dimension) {
    return dimension >= 0 && static_cast<std::size_t>(dimension) < dimHeaders.size()
               ? dimHeaders[static_cast<std::size_t>(dimension)]
               : nullptr;
  }

  OmPivotTable* table;
  bool skipEmpty;
  std::vector<int> cellIndex;
  OmVector<OmDimHeader*> dimHeaders;
  PuppetVector<short> layers;
  Places nonEmptyLayers;
  bool sparse;
  unsigned long long nLayers = 0;
  int currentLayer = -1;

  PlaceCalculator layerCalc;

 private:
  struct Unfilled {};

  /// Everything but the headers and the layers, so that the destructor tidies up if these fail.
  Data(OmPivotTable& owner, bool skip, Unfilled);

  std::vector<unsigned int> digits_;  ///< scratch of Fill()
};

#endif
