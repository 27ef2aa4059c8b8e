#ifndef CELLS_CELLS_H
#define CELLS_CELLS_H

/// @file
/// The whole cell library: the values that tables and labels are made of, the region that they live
/// in, and the settings of the back end.

#include <cells/BackendSettings.h>
#include <cells/OmCellMetaData.h>
#include <cells/OmCellText.h>
#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmMemoryRegion.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <cells/icuTracker.h>

#endif
