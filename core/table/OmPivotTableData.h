#ifndef LAKRESVOS_CORE_TABLE_OMPIVOTTABLEDATA_H
#define LAKRESVOS_CORE_TABLE_OMPIVOTTABLEDATA_H

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/BackendSettings.h>
#include <cells/OmCellMetaData.h>
#include <cells/OmMemoryRegion.h>
#include <cells/icuTracker.h>
#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTablePointerVector.h"
#include "table/OmShortArray.h"

/// All that a table holds, and the region that it lives in.
///
/// The cell store is a tree of PointerVectors with one level per dimension: the root is indexed by
/// the subscript of the last dimension, the bottom nodes by that of the first.
///
/// Why a tree: a few dimensions of some hundred categories have millions of combinations, and most
/// hold nothing. A lookup takes one step per dimension and allocates nothing, a walk meets the cells
/// in the order of their subscripts, and a branch without cells costs one null, or nothing in a
/// node with few entries. Why the last dimension is on top: dimensions are added at the end, also
/// when cells are there, and the new level is then a new root above the present store, whatever
/// that holds. Why a region: a table goes in bulk, and only what owns something outside the region
/// has to be visited for that.
///
/// What holds between operations:
///
/// 1. Until the first write, `cells` is null; from then on, each path down to a cell has one node
///    per dimension. Writing makes the missing nodes apart, from the bottom up, and hooks them in
///    last, so that a failure leaves no partial path.
/// 2. A node may hold nulls alone, after cells were cleared by writing null. Walks and searches pass
///    over it; only deleting a cell removes such nodes, for a client can tell the two apart.
/// 3. Each cell is in the region and in one slot.
struct OmPivotTable::Data : OmMemoryRegion {
  Data(OmCellText const& templateName, bool hasSplits);
  ~Data();

  std::vector<int> SizeVector() const;

  /// Adds a level above the cell store, with the present store at subscript 0. Does nothing as long
  /// as no cell was stored. Nothing is changed when it fails.
  void AddCellDimension();

  /// Drops the entries -1 from the axes unless they hold one entry per dimension as they are.
  void ReindexAxis();

  /// An object in this region, destroyed and given back when it is not released to its owner.
  struct Destroyer {
    template <class Object>
    void operator()(Object* object) const {
      object->~Object();
      OmMemoryRegion::Release(object);
    }
  };
  template <class Object>
  using Owned = std::unique_ptr<Object, Destroyer>;

  template <class Object, class... Arguments>
  Owned<Object> Make(Arguments&&... arguments) {
    void* const memory = Allocate(sizeof(Object));
    try {
      return Owned<Object>(::new (memory) Object(std::forward<Arguments>(arguments)...));
    } catch (...) {
      Release(memory);
      throw;
    }
  }

  /// Takes over a new dimension, numbers it, binds its label and adds its level to the cell store.
  /// Nothing is changed when that fails.
  OmDimension& Adopt(Owned<OmDimension> dimension);

  /// Binds a cell to the tracker, if there is one.
  void Bind(OmCellText& cell);

  /// A bound copy of `text` in this region; null for null.
  std::unique_ptr<OmCellText> CloneAndBind(OmCellText const* text);

  /// Makes room for what the store keeps per dimension, for `count` of them.
  void ReserveLevels(std::size_t count);

  /// @throws OMSException unless `index` has one subscript per dimension and none is negative.
  void CheckIndex(std::vector<int> const& index) const;

  /// The cell at `index`, or null. Requires: one subscript per dimension. A negative one finds
  /// nothing.
  OmCellText* FindCell(std::vector<int> const& index) const {
    PointerVector const* node = cells;
    int const* const first = index.data();
    int const* at = first + index.size();
    if (node == nullptr) {  // as without dimensions
      return nullptr;
    }
    void* entry = node->Entry(static_cast<unsigned int>(*--at));
    while (at != first) {
      entry = PointerVector::Look(entry, static_cast<unsigned int>(*--at));
    }
    return static_cast<OmCellText*>(entry);
  }

  /// Puts a bound copy of `value` into the store; for null, a null entry. The cell that was there
  /// goes, but for its metadata. Nothing is changed when that fails.
  /// Requires: one subscript per dimension, none negative, at least one.
  void StoreCell(std::vector<int> const& index, OmCellText const* value);

  /// Deletes the cell at `index` and gives back the nodes on the path that hold nothing, but for
  /// the root. Does nothing outside the store. Requires: one subscript per dimension.
  void DeleteCell(std::vector<int> const& index);

  std::unique_ptr<OmCellText> templateName;
  std::unique_ptr<OmCellText> cornerText;
  std::unique_ptr<OmCellText> caption;
  std::unique_ptr<OmCellText> title;
  OmVector<OmFootnote> footnotes;
  bool removedFootnotes = false;
  bool hasSplits;
  PointerVector* cells = nullptr;
  /// How often nodes of the store have moved or gone, for iterators, which hold nodes.
  unsigned long moves = 0;
  OmVector<OmDimension*> _dimensions;
  PuppetVector<short> rows;
  PuppetVector<short> columns;
  PuppetVector<short> layers;
  int optionNumber = -1;
  int minColumnWidth = -1;
  int maxColumnWidth = -1;
  int minRowWidth = -1;
  int maxRowWidth = -1;
  int layerLoc = -1;
  long long tableId = -1;
  std::string tableLocale;
  bool show = true;
  bool rotateRowLabels = false;
  bool rotateColumnLabels = false;
  bool scratched = false;
  bool warnings = false;
  bool notes = false;
  bool hasMarkers = false;
  bool backendOwns = true;
  bool fastTable = true;
  bool showCaption = true;
  bool labelsOnly = false;
  bool imputed = false;
  BackendSettings backendSettings;
  /// The Unicode tracker may be the same object as the other one.
  ::icuTracker* icuTracker = nullptr;
  ::icuTracker* u8Tracker = nullptr;
  ICUHelper icuHelper;
  int lang = 0;
  int variableMode = 0;
  int valueMode = 0;
  int numCells = 0;
  int startColor = -1;
  int endColor = -1;
  /// Reading a format that is not there leaves an entry, so that the map changes in a const table.
  mutable std::map<FormatArea::Area, FormatArea*> areaFormats;
  std::string borderInfo;
  std::string tableLookInfo;
  std::string tablePropertiesInfo;
  std::vector<unsigned int> customWidths;
  std::vector<unsigned int> customHeights;
  std::map<unsigned long long, unsigned short> emptyCellStyles;
  std::vector<OmCellProperties> cellStyles;
  std::string miscProperties;

 private:
  /// The nodes of the store from the root down to the deepest one on the path of an index.
  struct Path {
    PointerVector* above = nullptr;  ///< the node before the last one
    PointerVector* last = nullptr;   ///< the deepest node; null in an empty store
    std::size_t level = 0;           ///< that of `last`; the number of dimensions in an empty store
    bool mayHold = true;             ///< false when `last` is known to have no entry on the path

    /// Whether `last` is a bottom node.
    bool ReachesBottom() const { return last != nullptr && level == 0; }
  };

  /// A node that a walk comes back to, and where it goes on there.
  struct Step {
    PointerVector* node = nullptr;
    unsigned long position = 0;
  };

  Path FindPath(std::vector<int> const& index) const;

  /// Whether `index` leads to the bottom node that was written last.
  bool IsLastWritten(std::vector<int> const& index) const;

  /// Up to where a node of `level` will probably be filled.
  unsigned long GetExpected(std::size_t level) const {
    return static_cast<unsigned long>(_dimensions[level]->CategoryCount());
  }

  /// Takes `node` into the place of the last node of `path`, which has moved there.
  void Hook(Path const& path, std::vector<int> const& index, PointerVector* node);

  /// Adds the nodes that `path` lacks to reach the bottom, with `cell` there.
  void AddBranch(std::vector<int> const& index, Path const& path, OmCellText* cell);

  /// Nodes for the levels below `level`, with `cell` at the bottom of the path of `index`.
  PointerVector* MakeBranch(std::vector<int> const& index, std::size_t level, OmCellText* cell);

  /// Gives back the nodes below `level` on the path of `index`, of which `node` is the uppermost.
  static void ReleaseBranch(PointerVector* node, std::size_t level, std::vector<int> const& index);

  /// Deletes every cell, unless all of them go with the region. Allocates nothing.
  void DeleteCells();

  Path lastBottom;             ///< to the bottom node that was written last; none after a change
  std::vector<int> lastIndex;  ///< the index written there; its first subscript says nothing
  std::vector<Step> wayBack;   ///< for DeleteCells(), one per dimension
};

/// A position in the cell store.
struct OmPivotTable::Iterator::Data {
  /// Where the walk is in one level; level 0 is the bottom, the last level the root.
  struct Level {
    unsigned long long index = 0;   ///< the entry of `node` that the walk followed
    long long size = 0;             ///< the dimension's category count
    PointerVector* node = nullptr;  ///< the store node on the present path
  };

  /// A position at the end, without levels.
  Data() = default;
  /// The position of the first cell.
  explicit Data(OmPivotTable::Data& owner);

  /// Moves the positions from `level` upwards and returns the next entry of that level, or null.
  void* Increment(unsigned long level);

  /// Moves on to the first cell that differs from the present one in a subscript from `level`
  /// upwards. Requires: `current` is not null.
  void Skip(unsigned long level);

  OmPivotTable::Data* table = nullptr;
  OmShortArray<Level, 8> levels;  ///< one per dimension of the table when the walk began
  OmCellText* current = nullptr;
  unsigned int owners = 1;  ///< how many iterators share this position

 private:
  /// Moves the positions from the level `from` upwards, then those below it down to `target`, and
  /// returns the entry of that level, or null.
  void* Move(unsigned long from, unsigned long target);

  /// Finds the nodes on the present path anew; null where the path has gone.
  void FindNodes();

  unsigned long moves_ = 0;  ///< how often nodes had moved when those of the path were found
};

#endif
