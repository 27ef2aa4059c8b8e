#ifndef LAKRESVOS_RENDER_CONTENT_PLACEHOLDER_H
#define LAKRESVOS_RENDER_CONTENT_PLACEHOLDER_H

#include <string>

#include <lakresvos/OmAnswerTree.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmInteractive.h>
#include <lakresvos/OmModel.h>

namespace lakresvos::render {

// What takes the place of an item that has no form as text: its kind and label in brackets, for a
// chart with its sub-type, for the others with the sizes of what they hold, as in
//
//     [Chart: Survival (bar)]
//     [Model: Regression (PMML: 2048 bytes, binary data: 1 byte)]
//
// An empty label, an unspecified sub-type and empty streams are left out. Nothing here is made
// printable yet.

std::string MakePlaceholder(OmChart const& chart);
std::string MakePlaceholder(OmAnswerTree const& tree);
std::string MakePlaceholder(OmModel const& model);
std::string MakePlaceholder(OmInteractive const& item);

}  // namespace lakresvos::render

#endif
