#ifndef TESTS_RENDER_FORMATS_DOCUMENTDESCRIPTION_H
#define TESTS_RENDER_FORMATS_DOCUMENTDESCRIPTION_H

#include <nlohmann/json.hpp>

#include <lakresvos/OmOutputTree.h>

/// What a document says, item by item, read through the document's own classes and laid out by its
/// own headings position by position, and the stored cells with the labels of their categories; nothing
/// of the renderers is asked. A text is an object with its
/// bytes, each as the character with its number, and the numbers of the table's footnotes that it
/// refers to.
///
/// @param skipEmpty whether layers, rows and columns without a cell are left out.
///
/// Makes the places of headings as slowly as GridModel.
nlohmann::json DescribeDocument(OmOutputTree& document, bool skipEmpty);

#endif
