#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <stdexcept>
#include <string>

#include "render/support/HostileText.h"
#include "render/support/RandomDocument.h"
#include "render/support/SmallBlocks.h"
#include "render/support/TextFormats.h"

using namespace lakresvos::render;

namespace {

/// What is written, and why no more.
std::string Written(TextFormat const& format, OmOutputTree const& tree,
                    TableOptions const& tables) {
  std::ostringstream out;
  try {
    format.write(tree, out, tables);
  } catch (std::length_error const& error) {
    return error.what();
  }
  return out.str();
}

}  // namespace

RC_GTEST_PROP(ThreadsProperty, AnyNumberOfThreadsWritesTheSame, ()) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  TableOptions tables;
  tables.skipEmpty = OneOf(true, true, false);
  tables.allLayers = *rc::gen::arbitrary<bool>();
  for (TextFormat const& format : TextFormats()) {
    tables.threads = 1;
    std::string const expected = Written(format, tree, tables);
    SmallBlocks const small(OneOf<std::size_t>(1, 2, 7, 50));
    for (unsigned int threads : {1U, 2U, 3U, 7U}) {
      tables.threads = threads;
      RC_LOG() << format.name << " with " << threads << " threads" << std::endl;
      RC_ASSERT(Written(format, tree, tables) == expected);
    }
  }
}
