#ifndef CELLS_OMCELLMETADATA_H
#define CELLS_OMCELLMETADATA_H

#include <string>
#include <vector>

#include <cells/Export.h>

/// What a renderer needs to know about one cell besides its value: footnotes, a style, and whether it
/// is a total.
///
/// Thread safety: reading from several threads is safe while nobody changes the object.
class CELLS_EXPORT OmCellMetaData {
 public:
  /// The numbers of the cell's footnotes, in the order in which they were added.
  std::vector<unsigned int> const& getFootnotes() const { return footnotes_; }

  /// Appends a footnote number; a number may be added more than once.
  void addFootnote(unsigned int number) { footnotes_.push_back(number); }

  /// The number of the cell's style in the list of styles of its table; 0 until set.
  unsigned short getStyle() const { return style_; }
  void setStyle(unsigned short style) { style_ = style; }

  /// Whether the cell labels a total, which sums up the categories beside it, rather than a category
  /// that may happen to have the same name; false until set.
  bool isTotal() const { return total_; }
  void setTotal(bool total) { total_ = total; }

 private:
  std::vector<unsigned int> footnotes_;
  unsigned short style_ = 0;
  bool total_ = false;
};

/// One cell style: font, alignment and colours, kept as the caller stores them.
///
/// Thread safety: reading from several threads is safe while nobody changes the object.
class CELLS_EXPORT OmCellProperties {
 public:
  /// Empty until set.
  std::string const& getFontName() const { return fontName_; }
  void setFontName(std::string const& name) { fontName_ = name; }

  /// 0 until set.
  float getFontSize() const { return fontSize_; }
  void setFontSize(float size) { fontSize_ = size; }

  /// -1 until set.
  int getFontStyle() const { return fontStyle_; }
  void setFontStyle(int style) { fontStyle_ = style; }

  /// False until set.
  bool getUnderline() const { return underline_; }
  void setUnderline(bool underline) { underline_ = underline; }

  /// -1 until set.
  int getHorizontalAlignment() const { return horizontalAlignment_; }
  void setHorizontalAlignment(int alignment) { horizontalAlignment_ = alignment; }

  /// -1 until set.
  int getVerticalAlignment() const { return verticalAlignment_; }
  void setVerticalAlignment(int alignment) { verticalAlignment_ = alignment; }

  /// Empty until set.
  std::string const& getTextColor() const { return textColor_; }
  void setTextColor(std::string const& color) { textColor_ = color; }

  /// Empty until set.
  std::string const& getBackgroundColor() const { return backgroundColor_; }
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
