#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "core/dimension/OmDimensionEditingPair.h"
#include "support/LayoutTables.h"
#include "support/Property.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Texts;
using Labels = std::vector<std::string>;
using PathNode = OmDisplayLayerHeading::PathNode;

/// Writes down whatever a heading answers.
class Answers {
 public:
  template <class Answer>
  Answers& operator<<(Answer const& answer) requires(!std::is_pointer_v<Answer>) {
    text_ << answer << " ";
    return *this;
  }
  Answers& operator<<(char const* text) { return *this << std::string(text); }
  Answers& operator<<(PathNode const* node) {
    if (node == nullptr) {
      return *this << "-";
    }
    OmDimensionNode const& value = node->Value();
    return *this << LabelOf(value) << value.subscript << (value.group ? "group" : "")
                 << node->depth;
  }
  Answers& operator<<(OmCellText const* label) {
    return *this << (label != nullptr ? label->GetText() : "-");
  }
  template <template <class...> class List, class Entry, class... Rest>
  Answers& operator<<(List<Entry, Rest...> const& entries) requires(
      !std::is_same_v<List<Entry, Rest...>, std::string>) {
    text_ << "[ ";
    for (Entry const& entry : entries) {
      *this << entry;
    }
    text_ << "]\n";
    return *this;
  }

  std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

template <class Heading>
void AskPlace(Answers& answers, Heading const& heading, int place) {
  std::vector<int> index{71, 72};
  heading.Fill(index, place);
  std::vector<PathNode*> all;
  heading.DimAllNodes(place, all);
  std::vector<PathNode*> outermost;
  std::vector<PathNode*> categories;
  heading.DimCatNodes(place, outermost, categories);
  answers << index << all << outermost << categories;
}

void AskRows(Answers& answers, OmDisplayRowHeading const& rows) {
  answers << "rows" << rows.NRows() << rows.NColumns() << rows.CornerText();
  for (int j = 0; j < rows.NDimensions(); ++j) {
    answers << rows.VisibleWidth(j) << rows.getDimensionIndex(j);
  }
  for (int r = 0; r < rows.NRows(); ++r) {
    answers << rows.Row(r) << rows.RowCategories(r);
    AskPlace(answers, rows, r);
  }
  for (int k = 0; k < rows.NColumns(); ++k) {
    answers << rows.Column(k);
  }
  answers << rows.getNonEmptyRows();
}

void AskColumns(Answers& answers, OmDisplayColumnHeading const& columns) {
  answers << "columns" << columns.NRows() << columns.NColumns();
  for (int j = 0; j < columns.NDimensions(); ++j) {
    answers << columns.VisibleHeight(j) << columns.getDimensionIndex(j);
  }
  for (int n = 0; n < columns.NColumns(); ++n) {
    answers << columns.Column(n) << columns.ColumnCategories(n);
    AskPlace(answers, columns, n);
  }
  for (int k = 0; k < columns.NRows(); ++k) {
    answers << columns.Row(k);
  }
  answers << columns.getNonEmptyColumns();
}

/// All that the headings say of a table in every layer.
std::string LayoutOf(Table& table, bool skipEmpty, bool dimNamesInCorner) {
  Answers answers;
  OmDisplayLayerHeading layers(table, skipEmpty);
  do {
    answers << "layer" << layers.getLayer() << layers.getCurrentCellIndex();
    for (int i = 0; i < layers.NDimensions(); ++i) {
      std::vector<PathNode*> all;
      layers.DimAllNodes(i, all);
      answers << layers.VisibleWidth(i) << layers.Nodes(i) << all;
    }
    AskRows(answers, OmDisplayRowHeading(layers, skipEmpty, dimNamesInCorner));
    AskColumns(answers, OmDisplayColumnHeading(layers, skipEmpty));
  } while (layers.NextLayer());
  return answers.Text();
}

/// Adds everything below `model` to a dimension without categories.
void BuildBelow(OmDimension& dimension, Node const& parent, dimension_model::Node const& model) {
  for (dimension_model::NodePtr const& plain : model.children) {
    Node const child =
        dimension.AddNewChild(parent, SpyCell(plain->label), plain->subscript, plain->group);
    OmDimensionNode& value = child.Value();
    value.hide = plain->hide;
    value.hideLabels = plain->hideLabels;
    BuildBelow(dimension, child, *plain);
  }
}

/// Makes the root of a dimension without categories like `model`, and adds all below it.
void Build(OmDimension& dimension, dimension_model::Node const& model) {
  dimension.value.subscript = model.subscript;
  dimension.value.hide = model.hide;
  dimension.value.hideLabels = model.hideLabels;
  BuildBelow(dimension, dimension.Root(), model);
}

/// Completes a table whose first dimension is there: that one in the rows, another in the columns.
void Finish(Table& table) {
  table.AddFlat("B", 2);
  table.Place({0}, {1});
  table.PutAll();
}

/// A dimension of four categories A0 to A3 in the rows of a table, and one without any that is to
/// be built in the shape that the first one is edited to.
class OmDimensionEditingLayout : public testing::Test {
 protected:
  Node Child(std::size_t position) { return a_.Root()[position]; }
  void Add(Node const& parent, unsigned long subscript) {
    Category(b_, parent, "A" + std::to_string(subscript), subscript);
  }

  /// The labels of the rows as they are in one column of their headings.
  Labels RowLabels(int column) {
    OmDisplayLayerHeading layers(edited_, false);
    return Texts(OmDisplayRowHeading(layers, false, true).Column(column));
  }

  void ExpectSameLayouts() {
    Finish(edited_);
    Finish(built_);
    for (bool const skipEmpty : {false, true}) {
      for (bool const inCorner : {false, true}) {
        EXPECT_EQ(LayoutOf(edited_, skipEmpty, inCorner), LayoutOf(built_, skipEmpty, inCorner));
      }
    }
  }

 private:
  Table edited_;
  Table built_;

 protected:
  OmDimension& a_ = edited_.AddFlat("A", 4);  // declared after their tables
  OmDimension& b_ = built_.Add("A");
};

TEST_F(OmDimensionEditingLayout, WrappedCategoriesShareAHeading) {
  Node first = Child(1);
  Node second = Child(2);
  a_.insertChild(OmStringCell("group"), {&first, &second});
  Add(b_.Root(), 0);
  Node const group = Group(b_, b_.Root(), "group");
  Add(group, 1);
  Add(group, 2);
  Add(b_.Root(), 3);
  ExpectSameLayouts();
  EXPECT_EQ(RowLabels(0), (Labels{"A0", "group", "group", "A3"}));
}

TEST_F(OmDimensionEditingLayout, DissolvedGroupLeavesNoHeading) {
  Node first = Child(1);
  Node second = Child(2);
  a_.insertChild(OmStringCell("group"), {&first, &second});
  Node group = Child(1);
  a_.removeChild(group);
  for (unsigned long i = 0; i < 4; ++i) {
    Add(b_.Root(), i);
  }
  ExpectSameLayouts();
  EXPECT_EQ(RowLabels(0), (Labels{"A0", "A1", "A2", "A3"}));
}

TEST_F(OmDimensionEditingLayout, InsertedCategoryHasAPlaceOfItsOwn) {
  a_.insertCategory(OmStringCell("A4"), Child(1), a_.Root(), true);
  for (unsigned long const i : {0, 4, 1, 2, 3}) {
    Add(b_.Root(), i);
  }
  ExpectSameLayouts();
  EXPECT_EQ(RowLabels(0), (Labels{"A0", "A4", "A1", "A2", "A3"}));
}

TEST_F(OmDimensionEditingLayout, MovedCategoryTakesItsCellsAlong) {
  Node last = Child(3);
  Node first = Child(0);
  a_.moveChild(last, &first, false);
  for (unsigned long const i : {3, 0, 1, 2}) {
    Add(b_.Root(), i);
  }
  ExpectSameLayouts();
  EXPECT_EQ(RowLabels(0), (Labels{"A3", "A0", "A1", "A2"}));
}

TEST_F(OmDimensionEditingLayout, ExchangedCategoriesTakeTheirCellsAlong) {
  Node first = Child(0);
  Node third = Child(2);
  a_.moveChild(first, &third, true);
  for (unsigned long const i : {2, 1, 0, 3}) {
    Add(b_.Root(), i);
  }
  ExpectSameLayouts();
  EXPECT_EQ(RowLabels(0), (Labels{"A2", "A1", "A0", "A3"}));
}

PROPERTY(OmDimensionEditing, LaysOutLikeADimensionBuiltInTheEditedShape) {
  Table edited;
  Table built;
  OmDimensionEditingPair pair(edited.Add("A"));
  int const nodes = *rc::gen::inRange(1, 12);
  for (unsigned long subscript = 0; static_cast<int>(subscript) < nodes; ++subscript) {
    pair.AddNewChild(false, subscript);
  }
  int const edits = *rc::gen::inRange(0, 12);
  for (int edit = 0; edit < edits; ++edit) {
    pair.Edit();
    if (OmDimensionEditingPair::OneIn(4)) {
      pair.ChangeFlags();
    }
  }
  OmDimension& shape = built.Add("A");
  Build(shape, *pair.model().root);
  // A category with children that was dissolved still counts.
  RC_PRE(shape.CategoryCount() == pair.model().categoryCount);
  Finish(edited);
  Finish(built);
  for (bool const skipEmpty : {false, true}) {
    for (bool const inCorner : {false, true}) {
      RC_ASSERT(LayoutOf(edited, skipEmpty, inCorner) == LayoutOf(built, skipEmpty, inCorner));
    }
  }
}

}  // namespace
