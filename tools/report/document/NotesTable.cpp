#include "document/NotesTable.h"

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

namespace lakresvos::report {

namespace {

class NotesTableBuilder {
 public:
  NotesTableBuilder()
      : table_(std::make_unique<OmPivotTable>(OmStringCell("Notes", true),
                                              OmStringCell("Notes", true), false)),
        dimension_(table_->AddDimension(OmStringCell("Contents", true))) {
    dimension_.Root().Value().hide = true;
    table_->Rows().push_back(0);
    table_->SetTableTitle(OmStringCell("Notes", true));
  }

  OmDimension::Node AddGroup(char const* label) {
    return dimension_.AddNewChild(dimension_.Root(), OmStringCell(label, true),
                                  static_cast<unsigned long>(-1), true);
  }

  void Add(char const* label, OmCellText const& cell) {
    Add(dimension_.Root(), OmStringCell(label, true), cell);
  }

  void Add(OmDimension::Node const& parent, OmCellText const& label, OmCellText const& cell) {
    dimension_.AddNewChild(parent, label, static_cast<unsigned long>(next_), false);
    table_->Cell({next_++}, cell);
  }

  std::unique_ptr<OmPivotTable> Build() {
    table_->EndTable();
    return std::move(table_);
  }

 private:
  std::unique_ptr<OmPivotTable> table_;
  OmDimension& dimension_;
  int next_ = 0;
};

OmNumber MakeCount(std::size_t count) {
  return OmNumber(static_cast<double>(count), 0);
}

}  // namespace

std::unique_ptr<OmPivotTable> MakeNotesTable(tabulate::CountedData const& data,
                                             std::string const& weight) {
  NotesTableBuilder notes;
  notes.Add("Data file", OmStringCell(data.source));
  for (tabulate::SourceNote const& note : data.notes) {
    notes.Add(note.label.c_str(), OmStringCell(note.text, true));
  }
  notes.Add("Rows read", MakeCount(data.records));
  notes.Add("Rows used", MakeCount(data.rows));
  if (weight.empty()) {
    notes.Add("Weight", OmStringCell("None", true));
  } else {
    notes.Add("Weight", OmVariable(weight, ""));
  }
  OmDimension::Node const group = notes.AddGroup("Missing values");
  for (tabulate::DataColumn const& column : data.columns) {
    notes.Add(group, OmVariable(column.Name(), ""), MakeCount(column.MissingCount()));
  }
  return notes.Build();
}

}  // namespace lakresvos::report
