#ifndef LAKRESVOS_LAKRESVOS_H
#define LAKRESVOS_LAKRESVOS_H

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

/// The library's version; the build reads it from here.
#define LAKRESVOS_VERSION "0.1.0"

#endif
