#ifndef LAKRESVOS_CORE_LAYOUT_OMOCCUPIEDPLACES_H
#define LAKRESVOS_CORE_LAYOUT_OMOCCUPIEDPLACES_H

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "layout/OmDisplayLayerHeadingData.h"
#include "layout/OmPlaceSet.h"
#include "layout/OmSubscriptRanks.h"
#include "table/OmPivotTableData.h"

/// The dense search for the places of an axis that hold a cell, as one walk over the cell store.
///
/// Why a walk: the answer is defined by trying every combination, each place of the one axis with
/// each of the other, which in a table of a thousand rows and as many columns asks for up to a
/// million cells per heading. The store says at once which branches hold nothing, so one walk over
/// it finds the same. What makes the walk hard is that the dimensions come in the store's order and
/// not axis by axis: below an entry of the other axis, the same heads subscripts come again and
/// again. To look at each only until a cell is found, it keeps sets of what is still open, one per
/// combination of heads subscripts above, and takes from a node what is both stored and open: along
/// the entries of the node or along the set, whichever is shorter.
///
/// Its answer is that of trying every combination: a place is kept when, for the leaves that its
/// digits name, some combination of raw category numbers on the other axis has a cell, with the
/// dimensions on neither axis at the current layer's categories. The walk therefore admits, per
/// dimension,
///
/// - on the other axis: every subscript below the dimension's size, whether a leaf carries it or
///   not;
/// - on the heads axis only: the subscripts of those leaves whose display position is below the
///   size;
/// - on neither: the current layer's subscript.
///
/// Of a dimension that is on an axis twice, the last entry decides; the digit of any other
/// entry is free. An entry that names no dimension has the digit 0. Places and raw numbers at or
/// above the axis' size, which is the product of the radices modulo 2^64, are not tried.
///
/// The walk stops at the first cell of each combination of heads subscripts and looks no more for
/// those that it found one of: in a full table its cost is that of the places. It looks at no entry
/// of the store more than once. A set is a bit for each leaf of a dimension, and there is at most
/// one for each node of the store that the walk comes to.
///
/// A dimension that was added after the layer heading was made is held at its first subscript,
/// where the cells from before are, and has the digit 0; it counts as a radix all the same.
class OmOccupiedPlaces {
 public:
  OmOccupiedPlaces(OmDisplayLayerHeading::Data& layout, OmPivotTable::PointerVector* root,
                   PuppetVector<short> const& heads, PuppetVector<short> const& others);

  /// Appends the places, ascending. To be called once.
  void AppendTo(std::vector<unsigned long long>& result);

  /// How many entries of the store the search looked at, which is what it costs.
  unsigned long long CountLooks() const { return looks_; }

 private:
  static constexpr unsigned int kNone = OmDimHeader::kNoPosition;

  /// The leaves of one dimension by the rank of their subscript: the last one that carries it, and
  /// to each leaf the one before it with the same subscript.
  struct Leaves {
    OmSubscriptRanks ranks;
    std::vector<unsigned int> last;
    std::vector<unsigned int> previous;
  };

  /// Which subscripts of one heads dimension, by rank, there is nothing more to find below, for one
  /// combination of the subscripts of the heads dimensions above it.
  struct OpenSet {
    std::vector<std::uint64_t> closed;  ///< a bit per rank; empty before the first use
    std::size_t left = 0;               ///< how many subscripts are open
    /// Of open subscripts, the set of the next lower heads dimension.
    std::unordered_map<unsigned int, unsigned int> below;
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
    unsigned int set;  ///< of the first heads dimension from this level downwards, or kNone
    unsigned long next = 0;
    std::size_t nextRank = 0;  ///< at most the rank of the first leaf from `next` on
    bool finished = false;     ///< whether nothing more can be found at this level
  };

  static Leaves IndexLeaves(OmDimHeader const& header, std::size_t count);
  static void OpenAll(OpenSet& set, std::size_t count);
  static bool IsClosed(OpenSet const& set, std::size_t rank);
  static std::size_t FindOpen(OpenSet const& set, std::size_t rank);

  void PlanOthers(OmDisplayLayerHeading::Data const& layout, PuppetVector<short> const& others,
                  std::vector<int> const& sizes);
  void PlanHeads(OmDisplayLayerHeading::Data& layout, PuppetVector<short> const& heads,
                 std::vector<int> const& sizes);
  /// Whether the walk may come to this level again with the same subscripts of the heads dimensions
  /// above it.
  bool ComesAgain(std::size_t level) const { return level < highestOther_; }

  Frame Enter(OmPivotTable::PointerVector const* node, std::size_t level, unsigned int set);
  bool Step(Frame& frame, std::size_t level);
  bool StepOpen(Frame& frame, std::size_t level);
  void Leave(Frame& frame, std::size_t level, bool finished);
  bool IsFinished(Frame const& frame, std::size_t level) const;
  unsigned int FindSetBelow(Frame const& frame, std::size_t level);
  void Close(OpenSet& set, unsigned int rank);

  bool AreOthersInRange() const;
  bool FindOnlyPlace(unsigned long long& place) const;
  void Keep(OmPlaceSet& kept);
  void Extend(Digit const& digit, unsigned int value);

  OmPivotTable::PointerVector* root_;
  std::vector<Dimension> dimensions_;
  std::vector<Digit> digits_;
  std::size_t lowestHead_;
  std::size_t highestOther_ = 0;
  unsigned long long nHeads_;
  unsigned long long nOthers_;

  std::vector<unsigned long> subscripts_;  ///< of the walk's present path
  std::vector<unsigned int> ranks_;        ///< of those, in heads dimensions
  std::vector<OpenSet> sets_;
  std::vector<unsigned int> freeSets_;  ///< those in sets_ that are not in use
  unsigned long long looks_ = 0;
  std::vector<unsigned long long> partial_;
  std::vector<unsigned long long> extended_;
};

#endif
