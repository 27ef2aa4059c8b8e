#ifndef LAKRESVOS_OMANSWERTREE_H
#define LAKRESVOS_OMANSWERTREE_H

#include <string>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// An answer tree, kept byte for byte as it is delivered.
///
/// Operations that take a pointer and a length append the bytes, zero bytes included, and never
/// replace anything: what arrives in several pieces is their concatenation. The caller keeps the
/// bytes. Nothing is decompressed or read. References that queries return are valid as long as the
/// item and show later changes.
///
/// Appending takes amortized time linear in the bytes and throws std::bad_alloc, with nothing
/// changed; queries take constant time and throw nothing.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmAnswerTree : public OmOutputPart {
 public:
  /// An answer tree without content.
  /// @param label    the item's outline text, copied.
  /// @param codePage kept as a reference, not as a copy, and never read. Requires: the caller's
  ///        string outlives the item.
  /// @throws whatever the label's Clone throws, or std::bad_alloc.
  OmAnswerTree(OmCellText const& label, std::string const& codePage);
  ~OmAnswerTree() override;
  void Accept(Visitor& visitor) override;

  /// Replaces the tree's type, a number that the producer chooses.
  virtual void SetTreeType(int type);

  /// Appends to the path. Requires: `count` bytes at `bytes`, as for every such operation here.
  virtual void SetPath(char const* bytes, unsigned int count);

  /// Appends to the compressed XML.
  /// @param uncompressedLength the length of the XML in bytes before it was compressed; replaces
  ///        that of the call before.
  virtual void SetCompressedXML(char const* bytes, unsigned int count,
                                unsigned int uncompressedLength);

  /// Appends to the XML.
  virtual void SetUncompressedXML(char const* bytes, unsigned int count);

  /// Appends to the XML for display.
  virtual void SetUncompressedDisplayXML(char const* bytes, unsigned int count);

  /// Ends the delivery. Does nothing here; a derived class may act on it.
  virtual void Done();

  /// The tree's type; -1 until set.
  int GetTreeType() const;

  /// The length that the last SetCompressedXML() gave, in bytes; 0 at first. It is not compared
  /// with the bytes.
  unsigned int GetXmlUncompressedLength() const;

  /// The path; empty at first, as all texts here.
  std::string const& GetPath() const;

  /// The compressed XML.
  std::string const& GetCompressedXml() const;

  /// The XML.
  std::string const& GetUncompressedXml() const;

  /// The XML for display.
  std::string const& GetUncompressedDisplayXML() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
