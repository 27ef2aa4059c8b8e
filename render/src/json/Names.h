#ifndef LAKRESVOS_RENDER_JSON_NAMES_H
#define LAKRESVOS_RENDER_JSON_NAMES_H

#include <array>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

#include <cells/OmLabelDisplay.h>

namespace lakresvos::render {

// The names that the JSON format has for things that are numbers or types in a document.

constexpr std::string_view kDocumentFormat = "lakresvos-document";
constexpr int kDocumentVersion = 1;

constexpr std::string_view kHeadingItem = "heading";
constexpr std::string_view kProcedureItem = "procedure";
constexpr std::string_view kTextItem = "text";
constexpr std::string_view kPageTitleItem = "pageTitle";
constexpr std::string_view kTableItem = "table";
constexpr std::string_view kChartItem = "chart";
constexpr std::string_view kAnswerTreeItem = "answerTree";
constexpr std::string_view kModelItem = "model";
constexpr std::string_view kInteractiveItem = "interactive";

/// The subscript of a group that was dissolved, which names no position.
constexpr std::string_view kRemovedSubscript = "removed";
constexpr auto kRemoved = static_cast<unsigned long>(-2);

/// Whether every reader of JSON reads the number as it is, although many keep numbers as doubles.
template <class Integer>
constexpr bool IsExactInDouble(Integer value) {
  constexpr long long kMax = 1LL << std::numeric_limits<double>::digits;
  return std::cmp_less_equal(value, kMax) && std::cmp_greater_equal(value, -kMax);
}

/// The values of OmLabelDisplay, in order.
constexpr std::array<std::string_view, 3> kDisplayNames = {"value", "label", "both"};

constexpr std::string_view DisplayName(OmLabelDisplay display) {
  return kDisplayNames[static_cast<std::size_t>(display)];
}

// How a part of a composite belongs to another one in the list of parts.
constexpr char kInPart[] = "in";        ///< it is a part of the composite that the other one is
constexpr char kBelowPart[] = "below";  ///< it is below the other one in the tree of parts

}  // namespace lakresvos::render

#endif
