#ifndef CELLS_OMCELLMETADATA_H
#define CELLS_OMCELLMETADATA_H

#include <string>
#include <vector>

#include <cells/Export.h>

/// What a renderer needs to know about one cell besides its value: footnotes, a style, and whether
/// it is a total. A plain value; OmCellText::setMeta() keeps a copy.
///
/// Thread safety: for reading; several threads may read an object that none changes.
class CELLS_EXPORT OmCellMetaData {
 public:
  /// The numbers of the cell's footnotes, in the order in which they were added; empty at first.
  /// Valid until the object is changed or destroyed.
  std::vector<unsigned int> const& getFootnotes() const { return footnotes_; }

  /// Appends a footnote number; a number may be added more than once. Not checked against any
  /// table. Amortized constant time.
  /// @throws std::bad_alloc; nothing has changed then.
  void addFootnote(unsigned int number) { footnotes_.push_back(number); }

  /// The position of the cell's style in its table's list of styles; 0, which means no style, until
  /// it is set.
  unsigned short getStyle() const { return style_; }

  /// Sets the position of the style. One that the list does not have counts as no style.
  void setStyle(unsigned short style) { style_ = style; }

  /// Whether the cell labels a total, which sums up the categories beside it, rather than a
  /// category that may happen to have the same name; false until set.
  bool isTotal() const { return total_; }

  /// Sets whether the cell labels a total.
  void setTotal(bool total) { total_ = total; }

 private:
  std::vector<unsigned int> footnotes_;
  unsigned short style_ = 0;
  bool total_ = false;
};

/// One cell style: font, alignment and colors. A plain value that is kept as the caller stores it;
/// renderers pass over values that they do not know, so that a style that nobody set changes
/// nothing.
///
/// Colors are texts such as "#1F4E79". The texts that the accessors return are valid until the
/// object is changed or destroyed; setting one throws std::bad_alloc and then changes nothing.
///
/// Thread safety: for reading; several threads may read an object that none changes.
class CELLS_EXPORT OmCellProperties {
 public:
  /// The name of the font; empty until set.
  std::string const& getFontName() const { return fontName_; }

  /// Sets the name of the font; empty leaves the choice to the table.
  void setFontName(std::string const& name) { fontName_ = name; }

  /// The size of the font in points; 0 until set.
  float getFontSize() const { return fontSize_; }

  /// Sets the size of the font; sizes that are not above 0 leave the choice to the table.
  void setFontSize(float size) { fontSize_ = size; }

  /// The style of the font: 0 regular, 1 bold, 2 italic, 3 both; -1 until set.
  int getFontStyle() const { return fontStyle_; }

  /// Sets the style of the font; -1 leaves the choice to the table.
  void setFontStyle(int style) { fontStyle_ = style; }

  /// Whether the text is underlined; false until set.
  bool getUnderline() const { return underline_; }

  /// Sets whether the text is underlined; false leaves the choice to the table.
  void setUnderline(bool underline) { underline_ = underline; }

  /// Where the text is between the sides: 0 left, 1 center, 2 right; -1 until set.
  int getHorizontalAlignment() const { return horizontalAlignment_; }

  /// Sets where the text is between the sides; -1 leaves the choice to the table.
  void setHorizontalAlignment(int alignment) { horizontalAlignment_ = alignment; }

  /// Where the text is between top and bottom: 0 top, 1 middle, 2 bottom; -1 until set.
  int getVerticalAlignment() const { return verticalAlignment_; }

  /// Sets where the text is between top and bottom; -1 leaves the choice to the table.
  void setVerticalAlignment(int alignment) { verticalAlignment_ = alignment; }

  /// The color of the text; empty until set.
  std::string const& getTextColor() const { return textColor_; }

  /// Sets the color of the text; empty leaves the choice to the table.
  void setTextColor(std::string const& color) { textColor_ = color; }

  /// The color of the background; empty until set.
  std::string const& getBackgroundColor() const { return backgroundColor_; }

  /// Sets the color of the background; empty leaves the choice to the table.
  void setBackgroundColor(std::string const& color) { backgroundColor_ = color; }

 private:
  std::string fontName_;
  std::string textColor_;
  std::string backgroundColor_;
  float fontSize_ = 0;
  int fontStyle_ = -1;
  int horizontalAlignment_ = -1;
  int verticalAlignment_ = -1;
  bool underline_ = false;
};

#endif
