#ifndef LAKRESVOS_OMTEXTBLOCK_H
#define LAKRESVOS_OMTEXTBLOCK_H

#include <list>
#include <string>

#include <lakresvos/OmOutputPart.h>

/// A free text.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmTextBlock : public OmOutputPart {
 public:
  OmTextBlock(OmCellText const& label, std::string const& text);
  ~OmTextBlock() override;
  void Accept(Visitor& visitor) override;

  /// The text, copied from the constructor's argument.
  std::string const& Text() const { return text_; }

  /// Whether the label's text is exactly "Log".
  bool IsLog() const { return isLog_; }

  /// A list of texts of the caller's, empty at first.
  std::list<std::string>& TextList() { return textList_; }
  std::list<std::string> const& TextList() const { return textList_; }

 private:
  std::list<std::string> textList_;
  bool isLog_;
  std::string text_;
};

/// The title of a page: a text block whose label is empty.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmPageTitle : public OmTextBlock {
 public:
  explicit OmPageTitle(std::string const& text);
  ~OmPageTitle() override;
  void Accept(Visitor& visitor) override;
};

#endif
