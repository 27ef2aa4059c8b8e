#include "render/support/RandomCell.h"

#include <climits>
#include <limits>
#include <vector>

#include <cells/cells.h>

namespace {

using Limits = std::numeric_limits<double>;

template <class Kind, class Value>
std::unique_ptr<OmCellText> Labelled(RandomCells& random, Value const& value) {
  auto cell = std::make_unique<Kind>(value, random.Text());
  if (random.OneIn(2)) {
    cell->Display(static_cast<OmLabelDisplay>(random.Draw(3)));
  }
  return cell;
}

}  // namespace

int RandomCells::Integer() {
  std::vector<int> const special = {INT_MIN, INT_MAX, -1, 0, 1};
  return OneIn(2) ? special[static_cast<std::size_t>(Draw(5))] : Draw(2000) - 1000;
}

double RandomCells::Number() {
  std::vector<double> const special = {0.0,
                                       -0.0,
                                       0.1,
                                       1e300,
                                       -1e-300,
                                       Limits::max(),
                                       Limits::min(),
                                       Limits::denorm_min(),
                                       9007199254740993.0,
                                       9223372036854775808.0,
                                       18446744073709551616.0,
                                       Limits::infinity(),
                                       -Limits::infinity(),
                                       Limits::quiet_NaN()};
  switch (Draw(3)) {
    case 0:
      return special[static_cast<std::size_t>(Draw(static_cast<int>(special.size())))];
    case 1:
      return Integer();
    default:
      return Integer() / (1.0 + Draw(1000));
  }
}

std::string RandomCells::Text() {
  std::vector<std::string> const texts = {
      "",
      "plain",
      "a b\n\tc\r\n",
      "<td class=\"x\">&amp;</td>",
      "quote \" back \\ slash / \b\f\x01\x1F\x7F",
      std::string("\0zero", 5),
      "gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80",
      "\xEF\xBF\xBF\xEF\xB7\x90\xC2\x85",
      "\xC3",
      "\xED\xA0\x80 \xC0\xAF \xF4\x90\x80\x80 \xFF"};
  int const which = Draw(static_cast<int>(texts.size()) + 3);
  if (which < static_cast<int>(texts.size())) {
    return texts[static_cast<std::size_t>(which)];
  }
  return OneIn(8) ? Bytes() : "text " + std::to_string(Draw(100));
}

std::string RandomCells::Bytes() {
  std::string bytes(static_cast<std::size_t>(Draw(OneIn(4) ? 300 : 8)), '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(Draw(256));
  }
  return bytes;
}

std::unique_ptr<OmCellText> RandomCells::Cell() {
  std::unique_ptr<OmCellText> cell = Value();
  if (OneIn(4)) {
    OmCellMetaData meta;
    for (int i = Draw(4); i > 0; --i) {
      meta.addFootnote(OneIn(9) ? UINT_MAX : static_cast<unsigned int>(Draw(4)));
    }
    meta.setTotal(OneIn(4));
    meta.setStyle(static_cast<unsigned short>(OneIn(9) ? USHRT_MAX : Draw(3)));
    cell->setMeta(&meta);
  }
  if (OneIn(5)) {
    cell->ContextDisplay(static_cast<OmLabelDisplay>(Draw(3)));
  }
  return cell;
}

std::unique_ptr<OmCellText> RandomCells::Value() {
  switch (Draw(8)) {
    case 0:
      return std::make_unique<OmNumber>(Number(), OneIn(2) ? -1 : OneIn(5) ? Integer() : Draw(6));
    case 1:
      return std::make_unique<OmStringCell>(Text(), OneIn(2));
    case 2:
      return std::make_unique<OmStringCellUTF8>(Text());
    case 3:
      return Labelled<OmVariable>(*this, Text());
    case 4:
      return Labelled<OmNumDataValue>(*this, Number());
    case 5:
      return Labelled<OmStringDataValue>(*this, Text());
    case 6:
      return nesting_ < 3 ? Composite() : std::make_unique<OmComposite>(Text());
    default:
      return std::make_unique<OmNumber>(Draw(100));
  }
}

std::unique_ptr<OmCellText> RandomCells::Composite() {
  using Tree = OmVectorTree<OmCellText*>;
  auto composite = std::make_unique<OmComposite>(OneIn(3) ? Text() : "{0} of {1}");
  ++nesting_;
  for (int i = Draw(4); i > 0; --i) {
    Tree::Node parent = composite->Parts().Root();
    while (parent.NChildren() != 0 && OneIn(3)) {
      parent = parent.Child(parent.NChildren() - 1);
    }
    std::unique_ptr<OmCellText> part = OneIn(8) ? nullptr : Cell();
    Tree::AppendChild(parent, part.get());
    (void)part.release();
  }
  --nesting_;
  return composite;
}
