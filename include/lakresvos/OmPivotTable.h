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
/// Thread safety: none; one thread at a time uses a footnote and the table that holds it.
struct LAKRESVOS_EXPORT OmFootnote {
  OmMemoryRegion* region;        ///< where the table makes the texts; not owned; null until then
  OmCellText* text = nullptr;    ///< owned; equal texts (kind and text) are the same footnote
  OmCellText* marker = nullptr;  ///< owned; null when the renderer chooses the mark
  int count = 0;  ///< how often the footnote was added, or what its producer set below 0

  /// A footnote without texts. Throws nothing.
  /// @param source kept as `region`; null is allowed.
  explicit OmFootnote(OmMemoryRegion* source = nullptr) : region(source) {}
  OmFootnote(OmFootnote const&) = delete;
  OmFootnote& operator=(OmFootnote const&) = delete;

  /// Deletes both texts.
  ~OmFootnote();
};

/// An n-dimensional sparse table of cells.
///
/// A producer constructs the table, adds dimensions and their categories, puts every dimension's
/// number on one of the three axes, stores cells by subscript vector (one subscript per dimension,
/// dimension 0 first), and calls EndTable(). Every text and cell that the table is given is cloned
/// into the table's own region, which goes in bulk with the table; the caller keeps what it passed.
///
/// The store is sparse: beside itself a cell takes 10 to some 50 bytes, whether the table is full or
/// nearly empty and however far its subscripts lie; subscripts beyond a dimension's size are not
/// rejected. Reading takes constant time per dimension and allocates nothing.
///
/// What the table returns belongs to the table. Its axes, its lists and the attributes that are
/// returned by reference are valid as long as the table and show later changes; texts, cells and
/// formats are valid until replaced or deleted.
///
/// What throws an OMSException changes nothing, except that a cell write has counted itself. What
/// throws std::bad_alloc, or what a cell's own operation throws, changes nothing either. Queries
/// and setters that say nothing else take constant time, and throw nothing unless they copy a text.
///
/// Thread safety: none; one thread at a time uses a table, readers included: getAreaFormat() may
/// add an entry to the table although it is const. But while none changes the table, several may read
/// its cells, by Cell() or each with iterators of its own, and its attributes.
class LAKRESVOS_EXPORT OmPivotTable : public OmOutputPart {
 public:
  struct LAKRESVOS_HIDDEN Data;
  struct LAKRESVOS_HIDDEN PointerVector;
  class Iterator;
  class ConstIterator;
  class ICUHelper;

  /// A table without dimensions and cells.
  /// @param label        the item's outline text, copied.
  /// @param templateName the kind of table, copied; "Warnings" and "Notes" are the two with a
  ///                     meaning here.
  /// @param hasSplits    kept for the caller, see HasSplits().
  /// @throws whatever an operation of the two cells throws, or std::bad_alloc.
  OmPivotTable(OmCellText const& label, OmCellText const& templateName, bool hasSplits);

  /// Deletes all that the table owns: cells, dimensions, texts, formats and trackers.
  ~OmPivotTable() override;
  void Accept(Visitor& visitor) override;

  // Dimensions

  /// Appends a dimension whose root is a group with a copy of `label` and whose subscript is the
  /// dimension's number, and places it on no axis. Cells already stored get subscript 0 on it. The
  /// table owns the result, which stays where it is as long as the table. Takes constant time,
  /// however many cells are stored.
  /// @throws whatever the label's operations throw.
  OmDimension& AddDimension(OmCellText const& label);

  /// The same with a copy of a finished dimension; linear in its nodes. The root's subscript
  /// becomes the dimension's number.
  /// @throws whatever the labels' operations throw.
  OmDimension& AddDimension(OmDimension const& dimension);

  /// Copies all dimensions of `other` as they are; the axes are not copied, and no label is bound
  /// to the text tracker.
  /// @throws OMSException "OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0" with
  ///         their number when this table has dimensions already, or whatever the labels' Clone
  ///         throws.
  void CopyDimensions(OmPivotTable const& other);

  /// The number of dimensions.
  int NDimensions() const;

  /// The dimension with number `which`, owned by the table and valid as long as it.
  /// @throws OMSException "OmPivotTable::Dimension() -- which < 0" or "... -- which <
  ///         NDimensions()" with `which`, and with the number of dimensions, when there is none.
  OmDimension& Dimension(int which);
  /// The dimension with number `which`, to read.
  /// @throws OMSException as the other form.
  OmDimension const& Dimension(int which) const;

  /// The number of the first dimension whose root's label equals `label` in kind and text, or -1.
  /// Linear in the number of dimensions.
  /// @throws whatever comparing labels throws.
  int FindDimension(OmCellText const& label) const;

  /// The category count of dimension `which`, OmDimension::CategoryCount().
  /// @throws OMSException "OmPivotTable::Size() -- which < 0" or "... -- which < NDimensions()"
  ///         with `which`, and with the number of dimensions, when there is no such dimension.
  int Size(int which) const;

  /// The category counts of all dimensions, in order.
  /// @throws std::bad_alloc.
  std::vector<int> SizeVector() const;

  // Axes
  //
  // The dimension numbers on each axis, for the caller to fill. The headings take an axis from its
  // last entry to its first: the last one is outermost and varies slowest. Each axis' puppet is -1.
  //
  // Caution: on a table that is not const, reading `Rows()[i]` past the end makes the axis longer
  // by entries of -1, as PuppetVector says. Read through a const table, or compare with size()
  // first.

  /// The row axis. Reading past its end through this form makes it longer.
  PuppetVector<short>& Rows();
  /// The row axis, to read; past its end it gives -1 and stays as it is.
  PuppetVector<short> const& Rows() const;

  /// The column axis. Reading past its end through this form makes it longer.
  PuppetVector<short>& Columns();
  /// The column axis, to read; past its end it gives -1 and stays as it is.
  PuppetVector<short> const& Columns() const;

  /// The layer axis. Reading past its end through this form makes it longer.
  PuppetVector<short>& Layers();
  /// The layer axis, to read; past its end it gives -1 and stays as it is.
  PuppetVector<short> const& Layers() const;

  /// The constructor's third argument. The table does not act on it.
  bool HasSplits() const;

  /// Closes the table: when the axes do not hold one entry per dimension, drops their entries -1.
  /// Entries are counted and not looked at: a dimension on two axes and another on none pass.
  /// Linear in the entries.
  /// @throws OMSException "OmPivotTable::Data::ReindexAxis() -- ndim != nCount" with the number of
  ///         dimensions and that of the entries other than -1, when the two still differ; the axes
  ///         are then unchanged.
  void EndTable();

  // Cells

  /// The cell at `index`, owned by the table, or null. Valid until it is replaced or deleted. Takes
  /// constant time per dimension and allocates nothing.
  /// @throws OMSException "OmPivotTable::Cell() -- nind != _my->_dimensions.size()" with both
  ///         numbers when `index` does not have one subscript per dimension, or
  ///         "OmPivotTable::Cell() -- subscript < 0" with the first one that is negative.
  OmCellText* Cell(std::vector<int> const& index) const;

  /// Stores a copy of `cell`, or clears the slot when it is null; a cleared slot stays, see
  /// deleteCell(). The metadata of a cell that is replaced passes to the new one; the old cell is
  /// deleted. Counts as a write in any case, see getNumCells().
  ///
  /// The back end's cell limit is a limit on writes, compared with how many came before: with a
  /// limit of N the first N + 1 writes pass. Overwriting, clearing and writes that throw count like
  /// others, and deleting gives nothing back. A write beyond the limit stores nothing and marks the
  /// table as scratched; cells already stored stay readable, and a limit that is raised later lets
  /// writes pass again.
  ///
  /// Takes constant time per dimension, amortized over many writes. Fastest are cells in the order of
  /// a walk. A number that replaces a number takes no memory.
  /// @return false for a write beyond the cell limit.
  /// @throws OMSException as the reading form, and for a table without dimensions, or whatever the
  ///         cell's operations throw; nothing but the count has then changed.
  bool Cell(std::vector<int> const& index, OmCellText const* cell);
  /// The same for a cell that cannot be null.
  /// @throws as the form with a pointer.
  bool Cell(std::vector<int> const& index, OmCellText const& cell);

  /// Deletes the cell at `index` and whatever nodes of the store become empty; does nothing outside
  /// the store, and for an index of the wrong length. getNumCells() stays. Takes constant time per
  /// dimension, amortized; throws nothing.
  void deleteCell(std::vector<int> const& index);

  /// How often a cell write was called, whatever became of it; not how many cells there are. Wraps
  /// around after INT_MAX.
  int getNumCells() const;

  /// An iterator on the first stored cell, see Iterator.
  /// @throws std::bad_alloc.
  Iterator FirstCell();
  /// An iterator on the first stored cell of a table that may not be changed.
  /// @throws std::bad_alloc.
  ConstIterator FirstCell() const;

  // Texts
  //
  // A setter stores a copy and deletes the old text afterwards, so that a text's own stored copy
  // may be passed. It throws whatever the text's operations throw.

  /// The constructor's second argument; never null.
  OmCellText* TemplateName() const;

  /// The title; null until set.
  OmCellText* TableTitle() const;
  /// The same as TableTitle().
  OmCellText* GetTableTitle() const;
  /// Replaces the title. There is no way back to none.
  void SetTableTitle(OmCellText const& title);

  /// The caption; null until set.
  OmCellText* Caption() const;
  /// Replaces the caption; null clears it.
  void Caption(OmCellText const* caption);

  /// The corner text; null until set.
  OmCellText* CornerText() const;
  /// Replaces the corner text; null clears it.
  void CornerText(OmCellText const* text);

  /// Binds a cell to the table's text tracker, if the table has one; the cell stays the caller's.
  /// It may outlive the table.
  /// @throws whatever the cell's Accept throws.
  void setHelper(OmCellText& cell);

  // Footnotes

  /// The footnotes, in the order of their numbers, to read or change. An entry that is added by
  /// hand has its texts in the list's region; one that is erased by hand is destroyed by hand.
  OmVector<OmFootnote>& Footnotes();
  /// The footnotes, to read.
  OmVector<OmFootnote> const& Footnotes() const;

  /// Adds a footnote and returns its number. A footnote whose text is known already is counted and
  /// takes over the given marker, or loses its own when none is given; with `append`, a new entry
  /// is made in any case. A new entry's count is 1, or the given count when that is negative. Texts
  /// are copied. Linear in the number of footnotes, and amortized constant time with `append`.
  /// Requires: `footnote.text` is not null (a footnote without a text is not added and gives -1).
  /// @throws whatever an operation of the texts throws.
  int Footnote(OmFootnote const& footnote, bool append);

  /// Sets whether footnotes were removed from the table; the list stays.
  void RemovedFootnotes(bool removed);
  /// Whether footnotes were removed from the table, as the producer says; false at first.
  bool HasRemovedFootnotes() const;

  // Attributes
  //
  // Each is stored and read as it is, for producers and renderers to agree on; the table acts on none
  // of them. Units are the producer's. Those that say nothing else start as false, 0 or empty.

  /// Sets whether the table is to be shown.
  void Show(bool show);
  /// Whether the table is to be shown; true at first.
  bool Show() const;

  /// Sets whether row labels are rotated.
  void RotateRowLabels(bool rotate);
  /// Whether row labels are rotated.
  bool RotateRowLabels() const;

  /// Sets whether column labels are rotated.
  void RotateColumnLabels(bool rotate);
  /// Whether column labels are rotated.
  bool RotateColumnLabels() const;

  /// Marks the table as scratched, or not. A write beyond the cell limit marks it too, and no write
  /// takes the mark away.
  void Scratch(bool scratched);
  /// Whether the table is scratched: its cells are not all there.
  bool IsScratched() const;

  /// Whether the template name's text was exactly "Warnings".
  bool IsWarnings() const;
  /// Whether the template name's text was exactly "Notes".
  bool IsNotes() const;

  /// Notes that cells have footnote markers; there is no way back.
  void setHasMarkers();
  /// Whether cells have footnote markers, as the producer says.
  bool hasMarkers() const;

  /// Sets whether the back end owns the table.
  void setBackendOwns(bool owns);
  /// Whether the back end owns the table, as the producer says; true at first. The output tree deletes
  /// it in any case.
  bool backendOwns() const;

  /// Sets whether the table is a fast table. setBackendSettings() does so too; only that makes text
  /// trackers.
  void setFastTable(bool fast);
  /// Whether the table is a fast table; true at first.
  bool fastTable() const;

  /// Sets whether the caption is to be shown.
  void showCaption(bool show);
  /// Whether the caption is to be shown; true at first.
  bool showCaption() const;

  /// Sets whether the table consists of labels only.
  void setLabelsOnly(bool only);
  /// Whether the table consists of labels only.
  bool getLabelsOnly() const;

  /// Sets whether the values are imputed.
  void setImputed(bool imputed);
  /// Whether the values are imputed.
  bool getImputed() const;

  /// Sets the number of the option that asked for the table.
  void OptionNumber(int number);
  /// The number of the option that asked for the table; -1 at first.
  int OptionNumber() const;

  /// Sets the smallest width of a column.
  void MinColumnWidth(int width);
  /// The smallest width of a column; -1 at first.
  int MinColumnWidth() const;

  /// Sets the largest width of a column.
  void MaxColumnWidth(int width);
  /// The largest width of a column; -1 at first.
  int MaxColumnWidth() const;

  /// Sets the smallest width of a row label.
  void MinRowWidth(int width);
  /// The smallest width of a row label; -1 at first.
  int MinRowWidth() const;

  /// Sets the largest width of a row label.
  void MaxRowWidth(int width);
  /// The largest width of a row label; -1 at first.
  int MaxRowWidth() const;

  /// Sets the layer to show, as a number of the layer heading. It is not checked.
  void setLayerLoc(int layer);
  /// The layer to show, see OmDisplayLayerHeading::restoreLayer(); -1, for none, at first.
  int getLayerLoc() const;

  /// Sets the table's number.
  void TableId(long long id);
  /// The table's number; -1 at first.
  long long TableId() const;

  /// Sets the locale that numbers and dates were written for.
  void TableLocale(std::string const& locale);
  /// The locale that numbers and dates were written for.
  std::string const& TableLocale() const;

  /// Sets the number of the language.
  void setLang(int lang);
  /// The number of the language.
  int getLang() const;

  /// Sets how variables are shown: a number that the producer chooses.
  void setVariableMode(int mode);
  /// How variables are shown: a number that the producer chooses.
  int getVariableMode() const;

  /// Sets how values are shown: a number that the producer chooses.
  void setValueMode(int mode);
  /// How values are shown: a number that the producer chooses.
  int getValueMode() const;

  /// Sets the first color of a range that cells are colored by.
  void setStartColor(int color);
  /// The first color of a range that cells are colored by; -1 at first.
  int getStartColor() const;

  /// Sets the last color of a range that cells are colored by.
  void setEndColor(int color);
  /// The last color of a range that cells are colored by; -1 at first.
  int getEndColor() const;

  /// Replaces the description of the borders.
  void setBorderInfo(std::string const& info);
  /// The description of the borders, in the producer's format.
  std::string const& getBorderInfo() const;

  /// Replaces the description of the table's look.
  void setTableLookInfo(std::string const& info);
  /// The description of the table's look, in the producer's format.
  std::string const& getTableLookInfo() const;

  /// Replaces the description of the table's properties.
  void setTablePropertiesInfo(std::string const& info);
  /// The description of the table's properties, in the producer's format.
  std::string const& getTablePropertiesInfo() const;

  /// Replaces the widths that were set by hand.
  void setTableCustomWidths(std::vector<unsigned int> const& widths);
  /// The widths that were set by hand.
  std::vector<unsigned int> const& getTableCustomWidths() const;

  /// Replaces the heights that were set by hand.
  void setTableCustomHeights(std::vector<unsigned int> const& heights);
  /// The heights that were set by hand.
  std::vector<unsigned int> const& getTableCustomHeights() const;

  /// Appends to a comma-separated list; no comma comes before the first property that is not empty.
  void addMiscProperty(std::string property);
  /// The comma-separated list of all that addMiscProperty() was given, in order.
  std::string const& getMiscProperties() const;

  /// The styles of cells that are not stored: the number of a cell, as the producer counts them, and
  /// its style in cellStyles(); to read or change.
  std::map<unsigned long long, unsigned short>& emptyCellStyles();
  /// The styles of cells that are not stored, to read.
  std::map<unsigned long long, unsigned short> const& getEmptyCellStyles() const;

  /// The styles that cells name by their position here, to read or change.
  std::vector<OmCellProperties>& cellStyles();
  /// The styles that cells name by their position here, to read.
  std::vector<OmCellProperties> const& getCellStyles() const;

  // Back end

  /// Takes over the settings of the back end, and fastTable() from them. The first time that fast
  /// tables are on, makes the text trackers and binds the label, the template name, the title, all
  /// dimension labels and all footnotes to them; cells are bound when they are stored, the corner
  /// text when it is set. The trackers are never replaced. The first time takes time linear in the
  /// texts bound. For the cell limit, see Cell().
  /// @throws whatever an operation of the texts throws; the settings are then as before, and texts
  ///         bound until then read as before.
  void setBackendSettings(BackendSettings const& settings);
  /// The settings last taken over; their defaults at first.
  BackendSettings const& getBackendSettings() const;

  /// The tracker that texts are bound to; null until made, owned by the table and valid as long as
  /// it.
  icuTracker* getICUTracker() const;
  /// The Unicode tracker; null until made, owned by the table. The same object as the other tracker
  /// when the settings say Unicode, else one of its own.
  icuTracker* getU8Tracker() const;

  // Area formats

  /// Gives a format to the table, which owns it from then on and deletes the one that it had for
  /// that area. One that the table has already, for this area or another, moves to this area. Null
  /// changes nothing. Requires: `format` was made with `new`.
  /// @throws std::bad_alloc; `format` is then still the caller's.
  void setAreaFormat(FormatArea* format);

  /// The format of an area, owned by the table and valid until replaced; null when there is none.
  /// Areas above 8 have none to read. Logarithmic time.
  /// @throws std::bad_alloc: looking for a format that is not there leaves an entry without one.
  FormatArea* getAreaFormat(FormatArea::Area area) const;

  // Diagnostics

  /// Writes dimensions, cells and texts to standard output, one line each, flushed line by line.
  /// @throws whatever an operation of the texts throws.
  void Print() const;

  /// For debuggers: writes the structure of the cell store below `node` to standard output, an
  /// entry a line, with addresses. The type of a node is hidden, so that a program has none to pass
  /// but null; a debugger finds the root as `_my->cells`.
  /// @param node  a node of this table's store, or a cell; null writes a line of its own.
  /// @param depth the node's level, 0 for the root; at the number of dimensions it is a cell.
  /// @param index the node's position in its parent.
  /// @throws whatever a cell's GetText throws.
  void PrintCells(PointerVector* node, unsigned long depth, unsigned long index) const;

 private:
  friend class OmDisplayLayerHeading;
  friend class OmPivotTableTestAccess;

  void BindTexts(icuTracker* tracker);

  Data* _my;
};

/// Binds texts to a tracker: every kind of cell that holds a text, and all parts of a composite.
///
/// Bound cells may outlive the tracker. Visiting throws what the cell's UseTracker throws.
///
/// Thread safety: none; one thread at a time uses a helper, its tracker and the cells that it
/// binds.
class LAKRESVOS_EXPORT OmPivotTable::ICUHelper : public OmCellText::Visitor {
 public:
  /// A helper without a tracker. Throws nothing.
  ICUHelper() = default;
  ~ICUHelper() override;

  /// Does nothing: a number holds no text.
  void Visit(OmNumber& cell) override;
  /// Binds the text.
  void Visit(OmStringCell& cell) override;
  /// Binds the text.
  void Visit(OmStringCellUTF8& cell) override;
  /// Binds name and label.
  void Visit(OmVariable& cell) override;
  /// Binds the label.
  void Visit(OmNumDataValue& cell) override;
  /// Binds value and label.
  void Visit(OmStringDataValue& cell) override;
  /// Binds the composite, and then each part to the tracker that its parent holds. Linear in the
  /// number of parts.
  void Visit(OmComposite& composite) override;

  /// Replaces the tracker to bind to; not owned. Null unbinds what is visited.
  void setTracker(icuTracker* tracker) { tracker_ = tracker; }

  /// Whether there is a tracker to bind to.
  bool hasTracker() const { return tracker_ != nullptr; }

 private:
  icuTracker* tracker_ = nullptr;
};

/// Walks the stored cells of a table, dimension 0 fastest, and gives each with its subscripts.
///
///     std::vector<int> index;
///     for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
///       at.Index(index);
///       Use(index, *at.Cell());
///     }
///
/// A walk that starts in a branch of which every cell was cleared by writing null ends at once,
/// even when cells lie beyond it; deleteCell() leaves no such branch.
///
/// An iterator is valid until the table's cells or dimensions change. Copies are independent;
/// assignment instead makes both share one position: what moves one moves the other, and the last
/// of them frees it. A whole walk takes time linear in the number of cells.
///
/// Thread safety: none; one thread at a time uses iterators that share a position and their table.
class LAKRESVOS_EXPORT OmPivotTable::Iterator {
 public:
  struct LAKRESVOS_HIDDEN Data;

  /// An iterator at the end, of no table.
  /// @throws std::bad_alloc.
  Iterator();

  /// Takes over a position, which only FirstCell() can make; null makes an iterator at the end.
  explicit Iterator(Data* data);

  /// An independent iterator at the same cell.
  /// @throws std::bad_alloc.
  Iterator(Iterator const& other);

  /// Shares the position of `other` from now on; throws nothing.
  Iterator& operator=(Iterator const& other);

  /// Frees the position with the last iterator that shares it.
  ~Iterator();

  /// The present cell, owned by the table; null at the end. Constant time; throws nothing.
  OmCellText* Cell() const;

  /// Steps to the next stored cell; does nothing at the end. Throws nothing.
  Iterator& operator++();

  /// The subscripts of the present cell, dimension 0 first, in a new vector. At the end of the walk
  /// they are those of the last cell.
  /// @throws std::bad_alloc.
  std::vector<int> Index() const;

  /// The same in `index`, whose memory is used again: a loop that hands in the same vector each time
  /// allocates once.
  /// @throws std::bad_alloc when `index` has to grow.
  void Index(std::vector<int>& index) const;

 private:
  Data* data_;
};

/// As Iterator, for a table that may not be changed. The cells that it gives are not const all the
/// same; do not change them.
///
/// Thread safety: none; one thread at a time uses iterators that share a position and their table.
class LAKRESVOS_EXPORT OmPivotTable::ConstIterator {
 public:
  /// An iterator at the end, of no table.
  ConstIterator() = default;

  /// Takes over a position, which only FirstCell() can make; null makes an iterator at the end.
  explicit ConstIterator(Iterator::Data* data) : walk_(data) {}

  /// The present cell, owned by the table; null at the end. Constant time; throws nothing.
  OmCellText* Cell() const { return walk_.Cell(); }

  /// Steps to the next stored cell; does nothing at the end. Throws nothing.
  ConstIterator& operator++() {
    ++walk_;
    return *this;
  }

  /// The subscripts of the present cell, dimension 0 first, in a new vector.
  /// @throws std::bad_alloc.
  std::vector<int> Index() const { return walk_.Index(); }

  /// The same in `index`, whose memory is used again.
  /// @throws std::bad_alloc when `index` has to grow.
  void Index(std::vector<int>& index) const { walk_.Index(index); }

 private:
  Iterator walk_;
};

#endif
