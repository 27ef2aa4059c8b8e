#include "xlsx/Renderer.h"

#include <algorithm>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>

#include "content/CellText.h"
#include "content/ImageType.h"
#include "content/PlaceholderVisitor.h"
#include "grid/DocumentWalk.h"
#include "io/LibraryCall.h"
#include "unicode/CleanText.h"
#include "unicode/Utf16.h"
#include "xlsx/Contents.h"
#include "xlsx/Picture.h"
#include "xlsx/Plan.h"
#include "xlsx/Table.h"

namespace lakresvos::render {

namespace {

/// What the library has room for, in UTF-16 units, which take at most three bytes each.
constexpr std::size_t kMaxDescription = (LXW_MAX_ATTRIBUTE_LENGTH - 1) / 3;

/// How large a picture may be shown, in pixels: as large as the columns and rows of a sheet, but for
/// some at its start. The library goes from column to column and from row to row of a picture.
constexpr double kMaxWidth = 16'000.0 * 64;
constexpr double kMaxHeight = 1'000'000.0 * 20;

/// Makes a picture fit a sheet, for it may say that it is of any size.
void FitSheet(lxw_object_properties& picture) {
  constexpr double kUsualDpi = 96;
  for (double* const dpi : {&picture.x_dpi, &picture.y_dpi}) {
    *dpi = *dpi > 0 ? *dpi : kUsualDpi;
  }
  double const width = picture.width * kUsualDpi / picture.x_dpi;
  double const height = picture.height * kUsualDpi / picture.y_dpi;
  picture.x_scale = std::min({1.0, kMaxWidth / width, kMaxHeight / height});
  picture.y_scale = picture.x_scale;
}

class XlsxVisitor : public PlaceholderVisitor {
 public:
  using PlaceholderVisitor::Visit;

  XlsxVisitor(XlsxContents& contents, XlsxPlan const& plan, XlsxOptions const& options)
      : contents_(contents), plan_(plan), options_(options) {}

  void Visit(OmHeading& heading) override { contents_.Add(GetText(heading.Label()), true); }
  void Visit(OmProcedure& procedure) override { contents_.Add(procedure.OutlineText(), true); }
  void Visit(OmPageTitle& title) override { contents_.Add(title.Text(), true); }

  void Visit(OmTextBlock& block) override {
    contents_.Add(GetText(block.Label()));
    ++contents_.Depth();
    contents_.Add(block.Text());
    --contents_.Depth();
  }

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      WriteXlsxTable(table, plan_.Title(table), contents_, options_);
    }
  }

  void Visit(OmChart& chart) override {
    std::string const& image = chart.GetImageData();
    if (image.empty() || ImageType(image) == "image/svg+xml") {
      PlaceholderVisitor::Visit(chart);
    } else {
      WritePicture(chart);
    }
  }

 private:
  void WritePlaceholder(std::string const& placeholder) override { contents_.Add(placeholder); }

  void WritePicture(OmChart& chart) {
    std::string const label = GetText(chart.Label());
    auto const sheet = contents_.AddSheet(label, label, "Chart");
    XlsxStyle bold;
    bold.bold = true;
    int const row = sheet->WriteLines(1, {label, ""}, bold);
    std::string const& image = chart.GetImageData();
    std::string description(Utf16Prefix(CleanText(label), kMaxDescription));
    lxw_image_options options = {};
    options.description = description.data();
    auto const insert = [&] {
      LibraryCall const call;
      return worksheet_insert_image_buffer_opt(sheet->Handle(), static_cast<lxw_row_t>(row), 0,
                                               reinterpret_cast<unsigned char const*>(image.data()),
                                               image.size(), &options);
    };
    if (!(IsWholePng(image) || IsWholeJpeg(image)) || insert() != LXW_NO_ERROR) {
      sheet->CountLoss(XlsxLoss::BadPicture, row, 0);
      sheet->WriteLines(
          row, {MakePlaceholder(chart) + " The picture is damaged or in an unknown format.", ""},
          XlsxStyle());
    } else {
      FitSheet(*STAILQ_FIRST(sheet->Handle()->image_props));
    }
    sheet->Finish();
  }

  XlsxContents& contents_;
  XlsxPlan const& plan_;
  XlsxOptions const& options_;
};

}  // namespace

void WriteXlsx(OmOutputTree const& tree, std::ostream& out, XlsxOptions const& options) {
  XlsxPlan const plan(tree, options);
  XlsxBook book(plan.Rows());
  XlsxContents contents(book);
  XlsxVisitor visitor(contents, plan, options);
  VisitAll(tree, visitor, contents.Depth());
  contents.Finish();
  for (std::string const& loss : book.Losses().Lines()) {
    if (options.onLoss) {
      options.onLoss(loss);
    }
  }
  book.Write(out);
}

}  // namespace lakresvos::render
