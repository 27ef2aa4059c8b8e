#ifndef LAKRESVOS_OMCHART_H
#define LAKRESVOS_OMCHART_H

#include <string>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// @file
/// Charts, and the types of their content.

/// What a chart's content is, as its producer says; the library only keeps it.
enum ChartXMLContentSubType : int {
  ChartXMLUnspecified = 0,  ///< the producer did not say; at first
  ChartXMLBar = 1,          ///< a bar chart
  ChartXMLLine = 2,         ///< a line chart
  ChartXMLArea = 3,         ///< an area chart
  ChartXMLPie = 4,          ///< a pie chart
  ChartXMLScatter = 5,      ///< a scatter plot
  ChartXMLHistogram = 6,    ///< a histogram
  ChartXMLBoxplot = 7,      ///< a box plot
  ChartXMLMap = 8           ///< a map
};

/// A chart: streams of bytes and texts made elsewhere and kept exactly as delivered.
///
/// Operations that take a pointer and a length append the bytes, zero bytes included, and never
/// replace anything: what arrives in several pieces is their concatenation. The caller keeps the
/// bytes. Operations that take a string replace. References that queries return are valid as long
/// as the chart and show later changes; every text is empty at first.
///
/// Appending takes amortized time linear in the bytes, except that the binary data, the image and
/// the visualization are made exactly as long as needed at each call. What runs out of memory
/// throws std::bad_alloc and changes nothing; queries take constant time and throw nothing.
///
/// A chart with a code page has a plain string cell as its label: the label's text converted from
/// UTF-8 into the code page, or unchanged where it cannot be converted.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmChart : public OmOutputPart {
 public:
  /// The four texts of a map.
  struct MapInfo {
    std::string first;   ///< at most 4,294,967,295 bytes
    std::string second;  ///< at most 65,535 bytes
    std::string third;   ///< at most 4,294,967,295 bytes
    std::string fourth;  ///< at most 65,535 bytes
  };

  /// A chart without content.
  /// @param label    the item's outline text, copied or converted as said above.
  /// @param codePage the name of the code page for the label; empty keeps the label as it is.
  /// @param id       see getChartId().
  /// @throws whatever the label's Clone or GetText throws, or std::bad_alloc.
  OmChart(OmCellText const& label, std::string const& codePage, long long id);
  ~OmChart() override;
  void Accept(Visitor& visitor) override;

  // Content. Requires: `count` bytes at `bytes`, for every operation with these arguments.

  /// Appends to the description in XML.
  virtual void SetXmlDescription(char const* bytes, unsigned int count);

  /// Replaces the length of the XML before it was compressed, in bytes. Nothing reads it.
  virtual void SetXmlUncompressedLength(unsigned int length);

  /// Makes room for `length` bytes of description; its content stays.
  virtual void SetXmlCompressedLength(unsigned int length);

  /// Appends to the binary data. `bytes` may point into GetXmlData().
  virtual void SetBinaryDataStream(char const* bytes, unsigned int count);

  /// Appends to the image. `bytes` may point into GetImageData().
  virtual void SetImageStream(char const* bytes, unsigned int count);

  /// Appends to the visualization in JSON. `bytes` may point into GetViZJSONData().
  virtual void SetViZJSON(char const* bytes, unsigned int count);

  /// Replaces the type of the content.
  virtual void SetImageSubType(ChartXMLContentSubType type);

  /// Ends the delivery. Requires: 8 bytes at `bytes`, two 32-bit integers in the machine's byte
  /// order for GetEditable() and GetEditor().
  virtual void Done(char const* bytes);

  /// The description in XML.
  std::string const& GetXmlDescription() const;

  /// The binary data, which SetBinaryDataStream() delivers.
  std::string const& GetXmlData() const;

  /// The image; its first bytes tell the format.
  std::string const& GetImageData() const;

  /// The visualization in JSON.
  std::string const& GetViZJSONData() const;

  /// The name of the code page that the constructor was given.
  std::string const& LocaleCodePage() const;

  /// The type of the content; ChartXMLUnspecified at first.
  ChartXMLContentSubType GetChartSubType() const;

  /// Whether the chart can be edited, a number that the producer chooses; 0 until Done().
  int GetEditable() const;

  /// The editor to use, a number that the producer chooses; 1 until Done().
  int GetEditor() const;

  /// The number that the constructor was given.
  long long getChartId() const;

  /// Appends to the template of the visualization, although the name says otherwise.
  void setVizJSONTemplate(char const* bytes, unsigned int count);

  /// The template of the visualization.
  std::string const& getVizJSONTemplate() const;

  /// Replaces the options.
  void setOptions(std::string const& options);

  /// The options, to read or change.
  std::string& getOptions();

  /// Empties the binary data and nothing else.
  void deleteData();

  // Attached files: a name, then the pieces of its content, then the next name

  /// Appends the name of a file with comma-separated values.
  void addCSVFileName(char const* bytes, unsigned int count);

  /// Continues the content of the last named file, or starts that of the next one. Content that
  /// comes before any name makes an entry of its own at each call.
  void addCSVFileContent(char const* bytes, unsigned int count);

  /// Whether a name was added; contents alone do not count.
  bool hasCSVFile() const;

  /// The names, in the order in which they were added.
  std::vector<std::string> const& getCSVFileNames() const;

  /// The contents; entry `i` belongs to name `i`.
  std::vector<std::string> const& getCSVFiles() const;

  /// Appends the name of a file with geographic shapes.
  void addGeoJSONFileName(char const* bytes, unsigned int count);

  /// As addCSVFileContent(), for the files with shapes.
  void addGeoJSONFileContent(char const* bytes, unsigned int count);

  /// Whether the name of a file with shapes was added.
  bool hasGeoJSONFile() const;

  /// The names of the files with shapes, in the order in which they were added.
  std::vector<std::string> const& getGeoJSONFileNames() const;

  /// The shapes; entry `i` belongs to name `i`.
  std::vector<std::string> const& getGeoJSONContent() const;

  // Map information

  /// Appends to the map-info block: a 16-bit mark whose value is 1 in its writer's byte order, and
  /// four texts, each after its length, an unsigned integer of 32, 16, 32 and 16 bits in the same
  /// byte order.
  void SetMapInfo(char const* bytes, unsigned int count);

  /// A block for SetMapInfo() in the machine's byte order.
  /// @throws OMSException "OmChart::MapInfoBlock() -- the second text is longer than 65535 bytes",
  ///         or which text and limit it is, with the text's length and the limit.
  static std::string MapInfoBlock(MapInfo const& info);

  /// Whether there is a map-info block.
  bool hasMap() const;

  /// Reads the four texts of the map-info block; leaves them alone when there is none. A block
  /// that is too short gives the bytes that it has, and empty texts for the rest.
  /// @throws std::bad_alloc; all four texts are then as they were.
  void getMapInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4);

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
