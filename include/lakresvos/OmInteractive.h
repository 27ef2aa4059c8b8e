#ifndef LAKRESVOS_OMINTERACTIVE_H
#define LAKRESVOS_OMINTERACTIVE_H

#include <string>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// An item that a program outside draws and that its reader can work with.
///
/// Bytes, texts and the label are kept as an OmChart keeps them: operations that take a pointer and
/// a length append and never replace, operations that take a string replace, and a code page turns
/// the label into a plain string cell. References that queries return are valid as long as the item
/// and show later changes; every text is empty at first.
///
/// Appending takes amortized time linear in the bytes. What runs out of memory throws
/// std::bad_alloc and changes nothing; queries take constant time and throw nothing.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmInteractive : public OmOutputPart {
 public:
  /// An item without content.
  /// @param label    the item's outline text, copied, or converted where there is a code page.
  /// @param codePage the name of the code page for the label; empty keeps the label as it is.
  /// @param id       see getInteractiveId().
  /// @throws whatever the label's Clone or GetText throws, or std::bad_alloc.
  OmInteractive(OmCellText const& label, std::string const& codePage, long long id);
  ~OmInteractive() override;
  void Accept(Visitor& visitor) override;

  /// The name of the code page that the constructor was given.
  std::string const& LocaleCodePage() const;

  /// The number that the constructor was given.
  long long getInteractiveId() const;

  /// Appends to the content in JSON, although the name says otherwise. Requires: `count` bytes at
  /// `bytes`, as for every such operation here.
  void setInteractiveJSON(char const* bytes, unsigned int count);

  /// The content in JSON.
  std::string const& getInteractiveJSON() const;

  /// Replaces the name of the procedure that made the item.
  void setProcedureName(std::string const& name);

  /// The name of the procedure that made the item.
  std::string const& getProcedureName() const;

  /// Replaces the path of the content in JSON.
  void setJSONPath(std::string const& path);

  /// The path of the content in JSON, to read or change. No file is opened.
  std::string& getJSONPath();

  /// Replaces the options.
  void setOptions(std::string const& options);

  /// The options, to read or change.
  std::string& getOptions();

  // Attached files: a name, then the pieces of its content, then the next name

  /// Appends the name of a file with geographic shapes.
  void addGeoJSONFileName(char const* bytes, unsigned int count);

  /// Continues the content of the last named file, or starts that of the next one. Content that
  /// comes before any name makes an entry of its own at each call.
  void addGeoJSONFileContent(char const* bytes, unsigned int count);

  /// Whether a name was added; contents alone do not count.
  bool hasGeoJSONFile() const;

  /// The names, in the order in which they were added.
  std::vector<std::string> const& getGeoJSONFileNames() const;

  /// The contents; entry `i` belongs to name `i`.
  std::vector<std::string> const& getGeoJSONContent() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
