#ifndef LAKRESVOS_OMCHART_H
#define LAKRESVOS_OMCHART_H

#include <string>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// What a chart's content is, as its maker says; the library only keeps it.
enum ChartXMLContentSubType : int {
  ChartXMLUnspecified = 0,  ///< at first
  ChartXMLBar = 1,
  ChartXMLLine = 2,
  ChartXMLArea = 3,
  ChartXMLPie = 4,
  ChartXMLScatter = 5,
  ChartXMLHistogram = 6,
  ChartXMLBoxplot = 7,
  ChartXMLMap = 8
};

/// A chart: streams of bytes and texts made elsewhere and kept exactly as delivered.
///
/// Operations that take a pointer and a length append the bytes, zero bytes included, and never
/// replace anything: what arrives in several pieces is their concatenation. Operations that take a
/// string replace. References that queries return are valid as long as the chart and show later
/// changes.
///
/// A chart with a code page has a plain string cell as its label: the label's text converted from
/// UTF-8 into the code page, or unchanged where it cannot be converted.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmChart : public OmOutputPart {
 public:
  /// The four texts of a map.
  struct MapInfo {
    std::string first;
    std::string second;  ///< at most 65,535 bytes
    std::string third;
    std::string fourth;  ///< at most 65,535 bytes
  };

  /// @param codePage the name of the code page for the label; empty keeps the label as it is.
  /// @param id       see getChartId().
  OmChart(OmCellText const& label, std::string const& codePage, long long id);
  ~OmChart() override;
  void Accept(Visitor& visitor) override;

  virtual void SetXmlDescription(char const* bytes, unsigned int count);
  virtual void SetXmlUncompressedLength(unsigned int length);
  /// Makes room for `length` bytes of description.
  virtual void SetXmlCompressedLength(unsigned int length);
  virtual void SetBinaryDataStream(char const* bytes, unsigned int count);
  virtual void SetImageStream(char const* bytes, unsigned int count);
  virtual void SetViZJSON(char const* bytes, unsigned int count);
  virtual void SetImageSubType(ChartXMLContentSubType type);
  /// Ends the delivery. Requires: 8 bytes at `bytes`, two 32-bit integers in the machine's byte
  /// order for GetEditable() and GetEditor().
  virtual void Done(char const* bytes);

  std::string const& GetXmlDescription() const;
  /// The binary data stream.
  std::string const& GetXmlData() const;
  std::string const& GetImageData() const;
  std::string const& GetViZJSONData() const;
  std::string const& LocaleCodePage() const;
  ChartXMLContentSubType GetChartSubType() const;
  int GetEditable() const;  ///< 0 until Done()
  int GetEditor() const;    ///< 1 until Done()
  long long getChartId() const;

  void setVizJSONTemplate(char const* bytes, unsigned int count);
  std::string const& getVizJSONTemplate() const;
  void setOptions(std::string const& options);
  std::string& getOptions();

  /// Empties the binary data stream.
  void deleteData();

  // Attached files: a name, then the pieces of its content, then the next name

  void addCSVFileName(char const* bytes, unsigned int count);
  /// Continues the content of the last named file, or starts that of the next one. Content that
  /// comes before any name makes an entry of its own at each call.
  void addCSVFileContent(char const* bytes, unsigned int count);
  /// Whether there is a name.
  bool hasCSVFile() const;
  std::vector<std::string> const& getCSVFileNames() const;
  std::vector<std::string> const& getCSVFiles() const;

  void addGeoJSONFileName(char const* bytes, unsigned int count);
  void addGeoJSONFileContent(char const* bytes, unsigned int count);
  bool hasGeoJSONFile() const;
  std::vector<std::string> const& getGeoJSONFileNames() const;
  std::vector<std::string> const& getGeoJSONContent() const;

  // Map information

  /// Appends to the map-info block: a 16-bit mark whose value is 1 in its writer's byte order, and
  /// four texts behind their lengths, which are unsigned integers of 32, 16, 32 and 16 bits in the
  /// same byte order.
  void SetMapInfo(char const* bytes, unsigned int count);

  /// Writes a block for SetMapInfo() in the machine's byte order.
  /// @throws OMSException "OmChart::MapInfoBlock() -- text too long" with the length and the limit.
  static std::string MapInfoBlock(MapInfo const& info);

  /// Whether there is a map-info block.
  bool hasMap() const;

  /// Reads the four texts of the map-info block; leaves them alone when there is none. Of a block
  /// that is too short come the bytes that are there, and empty texts for the rest.
  void getMapInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4);

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
