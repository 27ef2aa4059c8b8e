#ifndef LAKRESVOS_FORMATAREA_H
#define LAKRESVOS_FORMATAREA_H

#include <string>

#include <lakresvos/Export.h>

/// How one area of a pivot table is drawn: font, alignment, margins and colors.
///
/// Every field is stored and returned as it is given: no value is checked, and what a number or a
/// color's text means is agreed between the producer and the renderer. -1 and the empty text say
/// that the producer left a field open.
///
/// Copies share one record: what is set through one copy is seen through all, and the last copy
/// frees it. References that the string getters return are valid until the last copy is gone and
/// show later changes.
///
/// Every operation takes constant time, but for copying a text. Getters throw nothing; setters of
/// texts throw std::bad_alloc and then change nothing.
///
/// Thread safety: none; one thread at a time uses the copies of one format.
class LAKRESVOS_EXPORT FormatArea {
 public:
  /// The areas of a table, from its title to the frame around its layers.
  enum Area : int {
    AreaTitle = 0,         ///< the title above the table
    AreaCaption = 1,       ///< the caption below the table
    AreaFootnotes = 2,     ///< the texts of the footnotes
    AreaCorner = 3,        ///< the corner above the row labels
    AreaColumnLabels = 4,  ///< the labels of the column heading
    AreaRowLabels = 5,     ///< the labels of the row heading
    AreaData = 6,          ///< the cells
    AreaLayers = 7,        ///< the labels of the current layer
    AreaFrame = 8          ///< the frame around the table
  };

  /// A format for one area with every field at its default.
  /// @throws std::bad_alloc.
  explicit FormatArea(Area area);

  /// A copy that shares the record of `other`.
  FormatArea(FormatArea const& other);

  /// Lets go of the record held so far and shares that of `other`, its area included.
  FormatArea& operator=(FormatArea const& other);

  /// Lets go of the record; the last copy frees it.
  ~FormatArea();

  /// The area that the format was made for.
  Area getArea() const;

  /// The name of the font; empty at first.
  std::string const& getFontName() const;
  /// Replaces the name of the font.
  void setFontName(std::string const& name);

  /// The size of the font, in the producer's unit; 0 at first.
  float getFontSize() const;
  /// Replaces the size of the font.
  void setFontSize(float size);

  /// The style of the font, a number that the producer chooses; -1 at first.
  int getFontStyle() const;
  /// Replaces the style of the font.
  void setFontStyle(int style);

  /// Whether texts are underlined; false at first.
  bool getUnderline() const;
  /// Sets whether texts are underlined.
  void setUnderline(bool underline);

  /// The horizontal alignment, a number that the producer chooses; -1 at first.
  int getHorizontalAlignment() const;
  /// Replaces the horizontal alignment.
  void setHorizontalAlignment(int alignment);

  /// The vertical alignment, a number that the producer chooses; -1 at first.
  int getVerticalAlignment() const;
  /// Replaces the vertical alignment.
  void setVerticalAlignment(int alignment);

  /// The color of the text; empty at first.
  std::string const& getTextColor() const;
  /// Replaces the color of the text.
  void setTextColor(std::string const& color);

  /// The color of the background; empty at first.
  std::string const& getBackgroundColor() const;
  /// Replaces the color of the background.
  void setBackgroundColor(std::string const& color);

  /// Whether every other row is drawn in the alternate colors; false at first.
  bool getUseAltRowColors() const;
  /// Sets whether every other row is drawn in the alternate colors.
  void setUseAltRowColors(bool use);

  /// The color of the text in every other row; empty at first.
  std::string const& getAlternateTextColor() const;
  /// Replaces the color of the text in every other row.
  void setAlternateTextColor(std::string const& color);

  /// The color of the background in every other row; empty at first.
  std::string const& getAlternateBackgroundColor() const;
  /// Replaces the color of the background in every other row.
  void setAlternateBackgroundColor(std::string const& color);

  /// The left margin, in the producer's unit; 6 at first, unlike the other three.
  int getMarginLeft() const;
  /// Replaces the left margin.
  void setMarginLeft(int margin);

  /// The right margin, in the producer's unit; 2 at first.
  int getMarginRight() const;
  /// Replaces the right margin.
  void setMarginRight(int margin);

  /// The top margin, in the producer's unit; 2 at first.
  int getMarginTop() const;
  /// Replaces the top margin.
  void setMarginTop(int margin);

  /// The bottom margin, in the producer's unit; 2 at first.
  int getMarginBottom() const;
  /// Replaces the bottom margin.
  void setMarginBottom(int margin);

 private:
  struct LAKRESVOS_HIDDEN Record;
  Record* record_;
};

#endif
