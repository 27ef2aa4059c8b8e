#ifndef LAKRESVOS_OMANSWERTREE_H
#define LAKRESVOS_OMANSWERTREE_H

#include <string>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// An answer tree, kept byte for byte as it is delivered. Every setter with a pointer and a length
/// appends.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmAnswerTree : public OmOutputPart {
 public:
  /// @param codePage kept as a reference, not as a copy, and never read: the caller's string must
  ///        outlive the item.
  OmAnswerTree(OmCellText const& label, std::string const& codePage);
  ~OmAnswerTree() override;
  void Accept(Visitor& visitor) override;

  virtual void SetTreeType(int type);
  virtual void SetPath(char const* bytes, unsigned int count);
  /// @param uncompressedLength replaces that of the call before.
  virtual void SetCompressedXML(char const* bytes, unsigned int count,
                                unsigned int uncompressedLength);
  virtual void SetUncompressedXML(char const* bytes, unsigned int count);
  virtual void SetUncompressedDisplayXML(char const* bytes, unsigned int count);
  /// Ends the delivery; does nothing here.
  virtual void Done();

  int GetTreeType() const;  ///< -1 until set
  unsigned int GetXmlUncompressedLength() const;
  std::string const& GetPath() const;
  std::string const& GetCompressedXml() const;
  std::string const& GetUncompressedXml() const;
  std::string const& GetUncompressedDisplayXML() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
