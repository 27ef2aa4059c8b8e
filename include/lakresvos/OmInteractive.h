#ifndef LAKRESVOS_OMINTERACTIVE_H
#define LAKRESVOS_OMINTERACTIVE_H

#include <string>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// An item that a program outside draws and that its reader can work with.
///
/// Bytes, texts and the label are kept as an OmChart keeps them.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmInteractive : public OmOutputPart {
 public:
  /// @param codePage the name of the code page for the label; empty keeps the label as it is.
  /// @param id       see getInteractiveId().
  OmInteractive(OmCellText const& label, std::string const& codePage, long long id);
  ~OmInteractive() override;
  void Accept(Visitor& visitor) override;

  std::string const& LocaleCodePage() const;
  long long getInteractiveId() const;

  void setInteractiveJSON(char const* bytes, unsigned int count);
  std::string const& getInteractiveJSON() const;
  void setProcedureName(std::string const& name);
  std::string const& getProcedureName() const;
  void setJSONPath(std::string const& path);
  std::string& getJSONPath();
  void setOptions(std::string const& options);
  std::string& getOptions();

  // Attached files, as an OmChart's

  void addGeoJSONFileName(char const* bytes, unsigned int count);
  void addGeoJSONFileContent(char const* bytes, unsigned int count);
  bool hasGeoJSONFile() const;
  std::vector<std::string> const& getGeoJSONFileNames() const;
  std::vector<std::string> const& getGeoJSONContent() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
