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

/// One node of the cell store. An entry is a node of the next level or, at the bottom, a cell; null
/// where nothing lies below.
struct OmPivotTable::PointerVector : OmVector<void*> {
  using OmVector<void*>::OmVector;

  /// The entry at `position`, or null past the end.
  void* Entry(unsigned long position) const {
    return position < size() ? begin[position] : nullptr;
  }

  /// The position of the first entry from `position` on that is not null; size() when there is
  /// none.
  unsigned long FirstFrom(unsigned long position) const;

  /// Appends nulls until there is an entry at `position`. A far position is reserved for exactly.
  void MakeRoom(unsigned long position);
};

/// All that a table holds, and the region that it lives in.
///
/// The cell store is a tree of PointerVectors with one level per dimension: the root is indexed by
/// the subscript of the last dimension, the bottom nodes by that of the first.
///
/// Why a tree of vectors: a few dimensions of some hundred categories have millions of
/// combinations, and most hold nothing. A lookup takes one step per dimension and allocates
/// nothing, a walk meets the cells in the order of their subscripts, and a branch without cells
/// costs one null. The price is that a node is as long as its largest subscript. Why the last
/// dimension is on top: dimensions are added at the end, also when cells are there, and the new
/// level is then a new root above the present store, whatever that holds. Why a region: a table
/// goes in bulk, and only its cells and dimensions have to be visited for that.
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

  /// The bottom node on the path of `index`, or null. Requires: one subscript per dimension.
  PointerVector* FindBottom(std::vector<int> const& index) const;

  /// @throws OMSException unless `index` has one subscript per dimension and none is negative.
  void CheckIndex(std::vector<int> const& index) const;

  /// Makes the slot at `index` exist and returns it. Nothing is changed when that fails.
  /// Requires: one subscript per dimension, none negative, at least one.
  void*& MakeSlot(std::vector<int> const& index);

  /// Gives back the nodes on the path of `index` that hold nothing, but for the root.
  /// Requires: a bottom node on that path.
  void Prune(std::vector<int> const& index);

  std::unique_ptr<OmCellText> templateName;
  std::unique_ptr<OmCellText> cornerText;
  std::unique_ptr<OmCellText> caption;
  std::unique_ptr<OmCellText> title;
  OmVector<OmFootnote> footnotes;
  bool removedFootnotes = false;
  bool hasSplits;
  PointerVector* cells = nullptr;
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
  /// Gives back `node`, which belongs to `level`, and the nodes below it on the path of `index`.
  static void ReleasePath(PointerVector* node, std::size_t level, std::vector<int> const& index);

  /// Deletes every cell. The nodes are left half emptied, for the region to release.
  void DeleteCells();
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
  explicit Data(OmPivotTable::Data& table);

  /// Moves the positions from `level` upwards and returns the next entry of that level, or null.
  void* Increment(unsigned long level);

  std::vector<Level> levels;
  OmCellText* current = nullptr;
  unsigned int owners = 1;  ///< how many iterators share this position
};

#endif
