#ifndef LAKRESVOS_OMTEXTBLOCK_H
#define LAKRESVOS_OMTEXTBLOCK_H

#include <list>
#include <string>

#include <lakresvos/OmOutputPart.h>

/// A free text.
///
/// References that queries return are valid as long as the item. Queries take constant time and
/// throw nothing.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmTextBlock : public OmOutputPart {
 public:
  /// A block with a copy of `text`.
  /// @param label the item's outline text, copied; "Log" has a meaning, see IsLog().
  /// @param text  the block's text in UTF-8; kept as it is, line breaks included.
  /// @throws whatever the label's Clone or GetText throws, or std::bad_alloc.
  OmTextBlock(OmCellText const& label, std::string const& text);
  ~OmTextBlock() override;
  void Accept(Visitor& visitor) override;

  /// The text, copied from the constructor's argument.
  std::string const& Text() const { return text_; }

  /// Whether the label that the constructor was given reads exactly "Log"; case and spaces count.
  bool IsLog() const { return isLog_; }

  /// A list of texts of the caller's, empty at first, to read or change.
  std::list<std::string>& TextList() { return textList_; }
  /// The same list, to read.
  std::list<std::string> const& TextList() const { return textList_; }

 private:
  std::list<std::string> textList_;
  bool isLog_;
  std::string text_;
};

/// The title of a page: a text block whose label is empty.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmPageTitle : public OmTextBlock {
 public:
  /// A title with a copy of `text`, and with an empty string cell as its label.
  /// @throws std::bad_alloc.
  explicit OmPageTitle(std::string const& text);
  ~OmPageTitle() override;
  void Accept(Visitor& visitor) override;
};

#endif
