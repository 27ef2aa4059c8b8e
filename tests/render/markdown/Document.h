#ifndef TESTS_RENDER_MARKDOWN_DOCUMENT_H
#define TESTS_RENDER_MARKDOWN_DOCUMENT_H

#include <string>
#include <vector>

/// A block of a Markdown document.
struct MarkdownBlock {
  /// "heading2", "paragraph", "strong" and "emph" for a paragraph that is nothing else,
  /// "code_block", "table", "footnote_definition", ...
  std::string kind;
  std::string text;                            ///< empty for a table
  std::vector<std::vector<std::string>> rows;  ///< of a table, its heading first

  bool operator==(MarkdownBlock const& other) const {
    return kind == other.kind && text == other.text && rows == other.rows;
  }
};

/// Reads Markdown with cmark-gfm, tables, strikethrough and footnotes included. Within texts, `<br>`
/// is a line end and a footnote's mark is left out; any other markup is there as the name of
/// its kind in brackets.
std::vector<MarkdownBlock> ReadMarkdown(std::string const& markdown);

#endif
