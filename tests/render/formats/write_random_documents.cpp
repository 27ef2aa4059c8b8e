#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <rapidcheck.h>
#include <sstream>
#include <string>

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/formats/DocumentDescription.h"
#include "render/markdown/Document.h"
#include "render/support/RandomDocument.h"

// Writes random documents in every format, each in a directory of its own, beside a description of
// what they say: as many as RC_PARAMS says with "max_success". Of Markdown it writes the blocks as
// another program reads them.

namespace {

using namespace lakresvos::render;

std::ofstream File(std::filesystem::path const& path) {
  std::ofstream out;
  out.exceptions(std::ios::failbit | std::ios::badbit);
  out.open(path, std::ios::binary);
  return out;
}

nlohmann::json ListBlocks(std::string const& markdown) {
  nlohmann::json blocks = nlohmann::json::array();
  for (MarkdownBlock const& block : ReadMarkdown(markdown)) {
    blocks.push_back({{"kind", block.kind}, {"text", block.text}, {"rows", block.rows}});
  }
  return blocks;
}

/// The options of a format that is to show the tables in one way.
template <class Options>
Options OptionsOf(TableOptions const& tables) {
  Options options;
  static_cast<TableOptions&>(options) = tables;
  return options;
}

void Write(OmOutputTree& document, std::filesystem::path const& directory) {
  TableOptions tables;
  tables.skipEmpty = *rc::gen::arbitrary<bool>();
  std::filesystem::create_directories(directory);
  File(directory / "description.json") << DescribeDocument(document, tables.skipEmpty).dump();
  {
    std::ofstream out = File(directory / "document.json");
    auto options = OptionsOf<JsonOptions>(tables);
    options.layout = true;
    RenderJson(document, out, options);
  }
  {
    std::ofstream out = File(directory / "tables.csv");
    auto options = OptionsOf<CsvOptions>(tables);
    options.shape = CsvOptions::Shape::Display;
    RenderCsv(document, out, options);
  }
  {
    std::ofstream out = File(directory / "cells.csv");
    RenderCsv(document, out);
  }
  {
    std::ofstream out = File(directory / "document.html");
    RenderHtml(document, out, OptionsOf<HtmlOptions>(tables));
  }
  {
    std::ofstream out = File(directory / "document.xlsx");
    auto options = OptionsOf<XlsxOptions>(tables);
    options.mergeRows = *rc::gen::arbitrary<bool>();
    options.mergeColumns = *rc::gen::arbitrary<bool>();
    RenderXlsx(document, out, options);
  }
  std::ostringstream markdown;
  RenderMarkdown(document, markdown, OptionsOf<MarkdownOptions>(tables));
  File(directory / "document.md") << markdown.str();
  File(directory / "markdown.json") << ListBlocks(markdown.str()).dump();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_random_documents DIRECTORY\n";
    return 2;
  }
  std::filesystem::path const directory = argv[1];
  std::filesystem::remove_all(directory);
  int count = 0;
  bool const written = rc::check([&] {
    OmOutputTree document;
    MakeRandomDocument(document);
    Write(document, directory / std::to_string(count));
    ++count;
  });
  return written ? 0 : 1;
}
