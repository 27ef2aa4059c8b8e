#include "render/markdown/Document.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>
#include <memory>

namespace {

/// The reader has no names of its own for footnotes.
std::string FindKind(cmark_node* node) {
  switch (cmark_node_get_type(node)) {
    case CMARK_NODE_FOOTNOTE_DEFINITION:
      return "footnote_definition";
    case CMARK_NODE_FOOTNOTE_REFERENCE:
      return "footnote_reference";
    default:
      return cmark_node_get_type_string(node);
  }
}

std::string FindLiteral(cmark_node* node) {
  char const* const literal = cmark_node_get_literal(node);
  return literal != nullptr ? literal : "";
}

std::string TextIn(cmark_node* parent) {
  std::string text;
  for (auto* node = cmark_node_first_child(parent); node != nullptr; node = cmark_node_next(node)) {
    std::string const kind = FindKind(node);
    if (kind == "text") {
      text += FindLiteral(node);
    } else if (kind == "html_inline" && FindLiteral(node) == "<br>") {
      text += '\n';
    } else if (kind != "footnote_reference") {
      text += "[" + kind + "]" + TextIn(node);
    }
  }
  return text;
}

cmark_node* OnlyChild(cmark_node* node) {
  cmark_node* const child = cmark_node_first_child(node);
  return child != nullptr && cmark_node_next(child) == nullptr ? child : nullptr;
}

MarkdownBlock Read(cmark_node* node) {
  MarkdownBlock block{FindKind(node), "", {}};
  if (block.kind == "heading") {
    block.kind += std::to_string(cmark_node_get_heading_level(node));
  } else if (block.kind == "code_block") {
    block.text = FindLiteral(node);
    return block;
  } else if (block.kind == "table") {
    for (auto* row = cmark_node_first_child(node); row != nullptr; row = cmark_node_next(row)) {
      block.rows.emplace_back();
      for (auto* cell = cmark_node_first_child(row); cell != nullptr;
           cell = cmark_node_next(cell)) {
        block.rows.back().push_back(TextIn(cell));
      }
    }
    return block;
  }
  cmark_node* inlines = node;
  if (cmark_node* const child = OnlyChild(node)) {
    std::string const kind = FindKind(child);
    bool const whole = block.kind == "paragraph" && (kind == "strong" || kind == "emph");
    bool const note = block.kind == "footnote_definition" && kind == "paragraph";
    block.kind = whole ? kind : block.kind;
    inlines = whole || note ? child : node;
  }
  block.text = TextIn(inlines);
  return block;
}

}  // namespace

std::vector<MarkdownBlock> ReadMarkdown(std::string const& markdown) {
  cmark_gfm_core_extensions_ensure_registered();
  std::unique_ptr<cmark_parser, decltype(&cmark_parser_free)> const parser(
      cmark_parser_new(CMARK_OPT_FOOTNOTES), &cmark_parser_free);
  for (char const* name : {"table", "strikethrough"}) {
    cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
  }
  cmark_parser_feed(parser.get(), markdown.data(), markdown.size());
  std::unique_ptr<cmark_node, decltype(&cmark_node_free)> const document(
      cmark_parser_finish(parser.get()), &cmark_node_free);
  cmark_consolidate_text_nodes(document.get());
  std::vector<MarkdownBlock> blocks;
  for (auto* node = cmark_node_first_child(document.get()); node != nullptr;
       node = cmark_node_next(node)) {
    blocks.push_back(Read(node));
  }
  return blocks;
}
