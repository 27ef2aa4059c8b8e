#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <zlib.h>

#include <cells/OmStringCell.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "harness/InputBytes.h"
#include "harness/Target.h"
#include "render/support/EveryFormat.h"

namespace {

/// A number in two or four bytes, the highest first.
std::string BigEndian(std::size_t number, int bytes) {
  std::string text;
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
    text += static_cast<char>(number >> shift);
  }
  return text;
}

/// A PNG file of chunks with correct lengths and checksums, the first of them with a size.
std::string MakePng(InputBytes& input) {
  std::string png = "\x89PNG\r\n\x1A\n";
  auto const add = [&](std::string const& type, std::string const& data) {
    std::string const chunk = type + data;
    auto const* const bytes = reinterpret_cast<Bytef const*>(chunk.data());
    png += BigEndian(data.size(), 4) + chunk + BigEndian(crc32_z(0, bytes, chunk.size()), 4);
  };
  add("IHDR", input.TakeText(13));
  while (!input.AtEnd()) {
    static constexpr char const* kTypes[] = {"IDAT", "IEND", "pHYs", "iCCP", "tEXt", "eXIf"};
    add(kTypes[input.Take<unsigned char>() % std::size(kTypes)], input.TakeText());
  }
  return png;
}

/// A JPEG file of segments with correct lengths.
std::string MakeJpeg(InputBytes& input) {
  std::string jpeg = "\xFF\xD8";
  while (!input.AtEnd()) {
    static constexpr char kMarks[] = "\xC0\xC2\xC4\xDA\xDB\xD9\xE0\xE1\xFE";
    jpeg += '\xFF';
    jpeg += kMarks[input.Take<unsigned char>() % (sizeof kMarks - 1)];
    std::string const segment = input.TakeText();
    jpeg += BigEndian(segment.size() + 2, 2) + segment;
  }
  return jpeg + "\xFF\xD9";
}

std::string MakePicture(InputBytes input) {
  switch (input.Take<unsigned char>() % 3) {
    case 0:
      return MakePng(input);
    case 1:
      return MakeJpeg(input);
    default:
      return input.TakeRest();
  }
}

}  // namespace

// The picture of a chart, in the formats that hold it. The first byte says whether the rest makes a
// PNG, a JPEG, or any file.
void Exercise(std::string_view input) {
  std::string const picture = MakePicture(InputBytes(input));
  auto chart = std::make_unique<OmChart>(OmStringCell("chart"), "", 0);
  chart->SetImageStream(picture.data(), static_cast<unsigned int>(picture.size()));
  OmOutputTree document;
  document.begin().AppendChild(chart.release());
  Sink sink;
  std::ostream out(&sink);
  lakresvos::render::RenderXlsx(document, out);
  lakresvos::render::RenderHtml(document, out);
}
