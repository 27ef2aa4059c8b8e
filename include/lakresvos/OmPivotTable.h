#ifndef LAKRESVOS_OMPIVOTTABLE_H
#define LAKRESVOS_OMPIVOTTABLE_H

#include <map>
#include <string>
#include <vector>

#include <cells/BackendSettings.h>
#include <cells/OmCellMetaData.h>
#include <cells/OmCellText.h>
#include <lakresvos/Export.h>
#include <lakresvos/FormatArea.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmVector.h>
#include <lakresvos/PuppetVector.h>

class icuTracker;

/// A footnote of a pivot table. Its position in the table's list is its number.
///
/// Thread safety: as OmPivotTable.
struct LAKRESVOS_EXPORT OmFootnote {
  OmMemoryRegion* region;        ///< where the texts live; not owned
  OmCellText* text = nullptr;    ///< owned; equal texts are the same footnote
  OmCellText* marker = nullptr;  ///< owned; null when the renderer chooses the mark
  int count = 0;  ///< how often the footnote was added, or what its maker set below 0

  explicit OmFootnote(OmMemoryRegion* source = nullptr) : region(source) {}
  OmFootnote(OmFootnote const&) = delete;
  OmFootnote& operator=(OmFootnote const&) = delete;
  ~OmFootnote();
};

/// An n-dimensional sparse table of cells.
///
/// A maker constructs the table, adds dimensions and their categories, puts every dimension's
/// number on one of the three axes, stores cells by subscript vector (one subscript per dimension,
/// dimension 0 first), and calls EndTable(). Every text and cell handed in is cloned into the
/// table's own region, which goes in bulk with the table; the caller keeps what it passed.
///
/// The store is sparse and grows as far as the largest subscript stored; subscripts beyond a
/// dimension's size are not rejected. Reading takes constant time per dimension and allocates
/// nothing.
///
/// What throws an OMSException changes nothing, except that a cell write has counted itself.
///
/// Thread safety: none; one thread at a time uses a table. getAreaFormat() may add an entry to the
/// table although it is const, so not even readers may share one.
class LAKRESVOS_EXPORT OmPivotTable : public OmOutputPart {
 public:
  struct LAKRESVOS_HIDDEN Data;
  struct LAKRESVOS_HIDDEN PointerVector;
  class Iterator;
  class ConstIterator;
  class ICUHelper;

  /// @param label        the item's outline text.
  /// @param templateName the kind of table; "Warnings" and "Notes" are the two with a meaning here.
  /// @param hasSplits    kept for the caller, see HasSplits().
  OmPivotTable(OmCellText const& label, OmCellText const& templateName, bool hasSplits);
  ~OmPivotTable() override;
  void Accept(Visitor& visitor) override;

  // Dimensions

  /// Appends a dimension whose root is a group with a copy of `label` and whose subscript is the
  /// dimension's number, and places it on no axis. Cells already stored get subscript 0 on it. The
  /// table owns the result, which stays where it is as long as the table.
  OmDimension& AddDimension(OmCellText const& label);

  /// The same with a copy of a finished dimension.
  OmDimension& AddDimension(OmDimension const& dimension);

  /// Copies all dimensions of `other` as they are; the axes are not copied.
  /// @throws OMSException when this table has dimensions already.
  void CopyDimensions(OmPivotTable const& other);

  int NDimensions() const;

  /// The dimension with number `which`, owned by the table.
  /// @throws OMSException when there is none.
  OmDimension& Dimension(int which);
  OmDimension const& Dimension(int which) const;

  /// The number of the first dimension whose label equals `label`, or -1.
  int FindDimension(OmCellText const& label) const;

  /// The category count of dimension `which`.
  /// @throws OMSException when there is no such dimension.
  int Size(int which) const;

  /// The category counts of all dimensions, in order.
  std::vector<int> SizeVector() const;

  // Axes

  /// The dimension numbers on each axis, for the caller to fill. The headings take an axis from its
  /// last entry to its first: the last one stands outermost and varies slowest. Each axis' puppet
  /// is -1.
  PuppetVector<short>& Rows();
  PuppetVector<short> const& Rows() const;
  PuppetVector<short>& Columns();
  PuppetVector<short> const& Columns() const;
  PuppetVector<short>& Layers();
  PuppetVector<short> const& Layers() const;

  /// The constructor's third argument.
  bool HasSplits() const;

  /// Closes the table: when the axes do not hold one entry per dimension, drops their entries -1.
  /// @throws OMSException when the counts still differ; the axes are then unchanged.
  void EndTable();

  // Cells

  /// The cell at `index`, owned by the table, or null. Valid until it is replaced or deleted.
  /// @throws OMSException when `index` does not have one subscript per dimension or one is
  /// negative.
  OmCellText* Cell(std::vector<int> const& index) const;

  /// Stores a copy of `cell`, or clears the slot when it is null. The metadata of a cell that is
  /// replaced passes to the new one. Counts as a write, see getNumCells().
  /// @return false, and nothing stored, when the number of earlier writes exceeds the back end's
  ///         cell limit; the table is then marked as scratched.
  /// @throws OMSException as the reading form, and for a table without dimensions.
  bool Cell(std::vector<int> const& index, OmCellText const* cell);
  bool Cell(std::vector<int> const& index, OmCellText const& cell);

  /// Deletes the cell at `index` and whatever nodes of the store become empty; does nothing outside
  /// the store.
  void deleteCell(std::vector<int> const& index);

  /// How often a cell write was called, whatever became of it.
  int getNumCells() const;

  /// An iterator on the first stored cell, see Iterator.
  Iterator FirstCell();
  ConstIterator FirstCell() const;

  // Texts: owned by the table, valid until replaced; null until set

  OmCellText* TemplateName() const;  ///< never null
  OmCellText* TableTitle() const;
  OmCellText* GetTableTitle() const;
  void SetTableTitle(OmCellText const& title);
  OmCellText* Caption() const;
  void Caption(OmCellText const* caption);  ///< null clears the caption
  OmCellText* CornerText() const;
  void CornerText(OmCellText const* text);  ///< null clears the corner text

  /// Binds a cell to the table's text tracker, if the table has one.
  void setHelper(OmCellText& cell);

  // Footnotes

  OmVector<OmFootnote>& Footnotes();
  OmVector<OmFootnote> const& Footnotes() const;

  /// Adds a footnote and returns its number. A footnote whose text is known already is counted and
  /// takes over the given marker, or loses its own when none is given; with `append`, a new entry
  /// is made in any case. A new entry's count is 1, or the given count when that is negative.
  /// Requires: `footnote.text` is not null (a footnote without a text is not added and gives -1).
  int Footnote(OmFootnote const& footnote, bool append);
  void RemovedFootnotes(bool removed);
  bool HasRemovedFootnotes() const;

  // Attributes, stored and read as they are

  void Show(bool show);
  bool Show() const;  ///< true at first
  void RotateRowLabels(bool rotate);
  bool RotateRowLabels() const;
  void RotateColumnLabels(bool rotate);
  bool RotateColumnLabels() const;
  void Scratch(bool scratched);
  bool IsScratched() const;  ///< also set by a write beyond the cell limit
  bool IsWarnings() const;   ///< whether the template name is "Warnings"
  bool IsNotes() const;      ///< whether the template name is "Notes"
  void setHasMarkers();      ///< there is no way back
  bool hasMarkers() const;
  void setBackendOwns(bool owns);
  bool backendOwns() const;  ///< true at first
  void setFastTable(bool fast);
  bool fastTable() const;  ///< true at first
  void showCaption(bool show);
  bool showCaption() const;  ///< true at first
  void setLabelsOnly(bool only);
  bool getLabelsOnly() const;
  void setImputed(bool imputed);
  bool getImputed() const;
  void OptionNumber(int number);
  int OptionNumber() const;  ///< -1 at first, as are the widths, the layer and the colours
  void MinColumnWidth(int width);
  int MinColumnWidth() const;
  void MaxColumnWidth(int width);
  int MaxColumnWidth() const;
  void MinRowWidth(int width);
  int MinRowWidth() const;
  void MaxRowWidth(int width);
  int MaxRowWidth() const;
  void setLayerLoc(int layer);
  int getLayerLoc() const;  ///< the layer to show, as a number of the layer heading
  void TableId(long long id);
  long long TableId() const;  ///< -1 at first
  void TableLocale(std::string const& locale);
  std::string const& TableLocale() const;
  void setLang(int lang);
  int getLang() const;
  void setVariableMode(int mode);
  int getVariableMode() const;
  void setValueMode(int mode);
  int getValueMode() const;
  void setStartColor(int color);
  int getStartColor() const;
  void setEndColor(int color);
  int getEndColor() const;
  void setBorderInfo(std::string const& info);
  std::string const& getBorderInfo() const;
  void setTableLookInfo(std::string const& info);
  std::string const& getTableLookInfo() const;
  void setTablePropertiesInfo(std::string const& info);
  std::string const& getTablePropertiesInfo() const;
  void setTableCustomWidths(std::vector<unsigned int> const& widths);
  std::vector<unsigned int> const& getTableCustomWidths() const;
  void setTableCustomHeights(std::vector<unsigned int> const& heights);
  std::vector<unsigned int> const& getTableCustomHeights() const;

  /// Appends to a comma-separated list.
  void addMiscProperty(std::string property);
  std::string const& getMiscProperties() const;

  /// Styles by number for cells that are not stored, and the styles themselves; kept for the
  /// caller.
  std::map<unsigned long long, unsigned short>& emptyCellStyles();
  std::map<unsigned long long, unsigned short> const& getEmptyCellStyles() const;
  std::vector<OmCellProperties>& cellStyles();
  std::vector<OmCellProperties> const& getCellStyles() const;

  // Back end

  /// Takes over the settings of the back end. The first time that fast tables are on, makes the
  /// text trackers and binds the label, the template name, the title, all dimension labels and all
  /// footnotes to them; cells are bound when they are stored, the corner text when it is set. The
  /// trackers are never replaced.
  void setBackendSettings(BackendSettings const& settings);
  BackendSettings const& getBackendSettings() const;

  /// The tracker that texts are bound to; null until made, owned by the table.
  icuTracker* getICUTracker() const;
  /// The Unicode tracker: the same object when the settings say Unicode, else one of its own.
  icuTracker* getU8Tracker() const;

  // Area formats

  /// Hands a format over to the table, which deletes the one it had for that area. One that the
  /// table has already, for this area or another, moves to this area. Null changes nothing.
  void setAreaFormat(FormatArea* format);

  /// The format of an area, owned by the table, or null. Areas above 8 have none to read.
  FormatArea* getAreaFormat(FormatArea::Area area) const;

  // Diagnostics

  /// Writes dimensions, cells and texts to standard output, one line each, flushed line by line.
  void Print() const;

  /// Writes the structure of the cell store below `node` to standard output, an entry a line.
  /// @param depth the node's level, 0 for the root; at the number of dimensions it is a cell.
  /// @param index the node's position in its parent.
  void PrintCells(PointerVector* node, unsigned long depth, unsigned long index) const;

 private:
  friend class OmDisplayLayerHeading;
  friend class OmPivotTableTestAccess;

  void BindTexts(icuTracker* tracker);

  Data* _my;
};

/// Binds texts to a tracker: every kind of cell that holds a text, and all parts of a composite.
///
/// Thread safety: as OmPivotTable.
class LAKRESVOS_EXPORT OmPivotTable::ICUHelper : public OmCellText::Visitor {
 public:
  ICUHelper() = default;
  ~ICUHelper() override;

  /// Does nothing: a number holds no text.
  void Visit(OmNumber& cell) override;
  void Visit(OmStringCell& cell) override;
  void Visit(OmStringCellUTF8& cell) override;
  void Visit(OmVariable& cell) override;
  void Visit(OmNumDataValue& cell) override;
  void Visit(OmStringDataValue& cell) override;
  /// Binds the composite, and then each part to the tracker that its parent holds.
  void Visit(OmComposite& composite) override;

  /// The tracker to bind to; not owned. Null unbinds.
  void setTracker(icuTracker* tracker) { tracker_ = tracker; }

  /// Whether there is a tracker to bind to.
  bool hasTracker() const { return tracker_ != nullptr; }

 private:
  icuTracker* tracker_ = nullptr;
};

/// Walks the stored cells of a table, dimension 0 fastest, and gives each with its subscripts.
///
///     for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
///       Use(at.Index(), *at.Cell());
///     }
///
/// A walk that starts in a branch of which every cell was cleared by writing null ends at once,
/// even when cells lie beyond it; deleteCell() leaves no such branch.
///
/// An iterator is valid until the table's cells or dimensions change. Copies are independent;
/// assignment instead makes both share one position. A step visits stored entries only.
///
/// Thread safety: none; iterators that share a position belong to one thread.
class LAKRESVOS_EXPORT OmPivotTable::Iterator {
 public:
  struct LAKRESVOS_HIDDEN Data;

  /// An iterator at the end.
  Iterator();
  /// Takes over a position; null makes an iterator at the end.
  explicit Iterator(Data* data);
  Iterator(Iterator const& other);
  Iterator& operator=(Iterator const& other);
  ~Iterator();

  /// The cell that the iterator stands on, owned by the table; null at the end.
  OmCellText* Cell() const;

  /// Steps to the next stored cell; does nothing at the end.
  Iterator& operator++();

  /// The subscripts of the present cell, dimension 0 first. Allocates the result.
  std::vector<int> Index() const;

 private:
  Data* data_;
};

/// As Iterator, for a table that may not be changed.
class LAKRESVOS_EXPORT OmPivotTable::ConstIterator {
 public:
  ConstIterator() = default;
  explicit ConstIterator(Iterator::Data* data) : walk_(data) {}

  OmCellText* Cell() const { return walk_.Cell(); }
  ConstIterator& operator++() {
    ++walk_;
    return *this;
  }
  std::vector<int> Index() const { return walk_.Index(); }

 private:
  Iterator walk_;
};

#endif
