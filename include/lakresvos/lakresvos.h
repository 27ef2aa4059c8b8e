#ifndef LAKRESVOS_LAKRESVOS_H
#define LAKRESVOS_LAKRESVOS_H

/// @file
/// The whole interface of the library in one header, and its version.
///
/// The document is an OmOutputTree of items, which derive from OmOutputPart: OmHeading and
/// OmProcedure, OmTextBlock and OmPageTitle, OmPivotTable, OmChart, OmInteractive, OmModel and
/// OmAnswerTree. A table's dimensions are OmDimension trees. For display, OmDisplayLayerHeading,
/// OmDisplayRowHeading and OmDisplayColumnHeading lay a table out. Bad arguments throw an
/// OMSException; where memory runs out, std::bad_alloc passes through every operation that
/// allocates.

#include <lakresvos/FormatArea.h>
#include <lakresvos/OMSException.h>
#include <lakresvos/OmAnswerTree.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmInteractive.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/OmUtility.h>
#include <lakresvos/OmVector.h>
#include <lakresvos/OmVectorTree.h>
#include <lakresvos/OmVectorTreeWalk.h>
#include <lakresvos/PuppetVector.h>

/// The library's version, "MAJOR.MINOR.PATCH"; the build reads it from here.
#define LAKRESVOS_VERSION "0.1.0"

#endif
