#ifndef LAKRESVOS_FORMATAREA_H
#define LAKRESVOS_FORMATAREA_H

#include <string>

#include <lakresvos/Export.h>

/// How one area of a pivot table is drawn: font, alignment, margins and colours.
///
/// Every field is stored and returned as it is given. Copies share one record: what is set through
/// one copy is seen through all, and the last copy frees it.
///
/// Thread safety: none; one thread at a time uses the copies of one format.
class LAKRESVOS_EXPORT FormatArea {
 public:
  /// The areas of a table, from its title to the frame around its layers.
  enum Area : int {
    AreaTitle = 0,
    AreaCaption = 1,
    AreaFootnotes = 2,
    AreaCorner = 3,
    AreaColumnLabels = 4,
    AreaRowLabels = 5,
    AreaData = 6,
    AreaLayers = 7,
    AreaFrame = 8
  };

  explicit FormatArea(Area area);
  FormatArea(FormatArea const& other);
  FormatArea& operator=(FormatArea const& other);
  ~FormatArea();

  Area getArea() const;

  std::string const& getFontName() const;  ///< empty at first
  void setFontName(std::string const& name);
  float getFontSize() const;  ///< 0 at first
  void setFontSize(float size);
  int getFontStyle() const;  ///< -1 at first
  void setFontStyle(int style);
  bool getUnderline() const;  ///< false at first
  void setUnderline(bool underline);
  int getHorizontalAlignment() const;  ///< -1 at first
  void setHorizontalAlignment(int alignment);
  int getVerticalAlignment() const;  ///< -1 at first
  void setVerticalAlignment(int alignment);
  std::string const& getTextColor() const;  ///< empty at first
  void setTextColor(std::string const& color);
  std::string const& getBackgroundColor() const;  ///< empty at first
  void setBackgroundColor(std::string const& color);
  bool getUseAltRowColors() const;  ///< false at first
  void setUseAltRowColors(bool use);
  std::string const& getAlternateTextColor() const;  ///< empty at first
  void setAlternateTextColor(std::string const& color);
  std::string const& getAlternateBackgroundColor() const;  ///< empty at first
  void setAlternateBackgroundColor(std::string const& color);
  int getMarginLeft() const;  ///< 6 at first
  void setMarginLeft(int margin);
  int getMarginRight() const;  ///< 2 at first
  void setMarginRight(int margin);
  int getMarginTop() const;  ///< 2 at first
  void setMarginTop(int margin);
  int getMarginBottom() const;  ///< 2 at first
  void setMarginBottom(int margin);

 private:
  struct LAKRESVOS_HIDDEN Record;
  Record* record_;
};

#endif
