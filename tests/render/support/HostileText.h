#ifndef TESTS_RENDER_SUPPORT_HOSTILETEXT_H
#define TESTS_RENDER_SUPPORT_HOSTILETEXT_H

#include <rapidcheck.h>
#include <string>

#include <cells/OmStringCell.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmVectorTreeWalk.h>

/// Evenly distributed, however small the case is meant to be.
template <class... Values>
auto OneOf(Values... values) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::element(values...));
}

/// A text out of pieces that some format takes for more than text. Draws from RapidCheck, so it can
/// only be called inside a property.
inline std::string HostileText() {
  std::string text;
  for (int pieces = OneOf(0, 1, 1, 2, 3, 5); pieces > 0; --pieces) {
    text += OneOf<std::string>(
        "a", "a", "word", "日本", "e\u0301", " ", "    ", "\t", "\u00A0", "\u3000", "\n", "\r\n",
        "\r", ",", ";", "\"", "'", "=", "+", "-", "@", "\uFF1D", "1", "1.", "12)", "*", "**", "_",
        "`", "```", "~~~", "#", "##", " #", "---", "===", "|", "\\", "\\|", "<br>", "<b>", "<!--",
        "&amp;", "&#42;", "[", "](x)", "![", "[^t1n1]", "[^t1n1]: ", "[a]: b", ":---", "$x$", "> ",
        "\xFF", "\x01", "\xEF\xBF\xBE");
  }
  return text;
}

/// Gives every node of a table's dimensions a hostile label; many of them become equal.
inline void RelabelWithHostileTexts(OmPivotTable& table) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmVectorTreeWalk<OmDimension::Node> walk(table.Dimension(d).Root());
    while (walk.Next()) {
      OmDimensionNode& node = walk.Current().Value();
      OmCellText* const label = OmStringCellUTF8(HostileText()).Clone(node.childIndex.region);
      delete node.label;
      node.label = label;
    }
  }
}

#endif
