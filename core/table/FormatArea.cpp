#include <utility>

#include <lakresvos/FormatArea.h>

struct FormatArea::Record {
  explicit Record(Area of) : area(of) {}

  Area area;
  std::string fontName;
  float fontSize = 0;
  int fontStyle = -1;
  int marginLeft = 6;
  int marginRight = 2;
  int marginTop = 2;
  int marginBottom = 2;
  bool underline = false;
  int horizontalAlignment = -1;
  int verticalAlignment = -1;
  std::string textColor;
  std::string backgroundColor;
  bool useAltRowColors = false;
  std::string alternateTextColor;
  std::string alternateBackgroundColor;
  unsigned int owners = 1;
};

FormatArea::FormatArea(Area area) : record_(new Record(area)) {}

FormatArea::FormatArea(FormatArea const& other) : record_(other.record_) {
  ++record_->owners;
}

FormatArea& FormatArea::operator=(FormatArea const& other) {
  FormatArea copy(other);
  std::swap(record_, copy.record_);
  return *this;
}

FormatArea::~FormatArea() {
  if (--record_->owners == 0) {
    delete record_;
  }
}

FormatArea::Area FormatArea::getArea() const {
  return record_->area;
}

std::string const& FormatArea::getFontName() const {
  return record_->fontName;
}
void FormatArea::setFontName(std::string const& name) {
  record_->fontName = name;
}

float FormatArea::getFontSize() const {
  return record_->fontSize;
}
void FormatArea::setFontSize(float size) {
  record_->fontSize = size;
}

int FormatArea::getFontStyle() const {
  return record_->fontStyle;
}
void FormatArea::setFontStyle(int style) {
  record_->fontStyle = style;
}

bool FormatArea::getUnderline() const {
  return record_->underline;
}
void FormatArea::setUnderline(bool underline) {
  record_->underline = underline;
}

int FormatArea::getHorizontalAlignment() const {
  return record_->horizontalAlignment;
}
void FormatArea::setHorizontalAlignment(int alignment) {
  record_->horizontalAlignment = alignment;
}

int FormatArea::getVerticalAlignment() const {
  return record_->verticalAlignment;
}
void FormatArea::setVerticalAlignment(int alignment) {
  record_->verticalAlignment = alignment;
}

std::string const& FormatArea::getTextColor() const {
  return record_->textColor;
}
void FormatArea::setTextColor(std::string const& color) {
  record_->textColor = color;
}

std::string const& FormatArea::getBackgroundColor() const {
  return record_->backgroundColor;
}
void FormatArea::setBackgroundColor(std::string const& color) {
  record_->backgroundColor = color;
}

bool FormatArea::getUseAltRowColors() const {
  return record_->useAltRowColors;
}
void FormatArea::setUseAltRowColors(bool use) {
  record_->useAltRowColors = use;
}

std::string const& FormatArea::getAlternateTextColor() const {
  return record_->alternateTextColor;
}
void FormatArea::setAlternateTextColor(std::string const& color) {
  record_->alternateTextColor = color;
}

std::string const& FormatArea::getAlternateBackgroundColor() const {
  return record_->alternateBackgroundColor;
}
void FormatArea::setAlternateBackgroundColor(std::string const& color) {
  record_->alternateBackgroundColor = color;
}

int FormatArea::getMarginLeft() const {
  return record_->marginLeft;
}
void FormatArea::setMarginLeft(int margin) {
  record_->marginLeft = margin;
}

int FormatArea::getMarginRight() const {
  return record_->marginRight;
}
void FormatArea::setMarginRight(int margin) {
  record_->marginRight = margin;
}

int FormatArea::getMarginTop() const {
  return record_->marginTop;
}
void FormatArea::setMarginTop(int margin) {
  record_->marginTop = margin;
}

int FormatArea::getMarginBottom() const {
  return record_->marginBottom;
}
void FormatArea::setMarginBottom(int margin) {
  record_->marginBottom = margin;
}
