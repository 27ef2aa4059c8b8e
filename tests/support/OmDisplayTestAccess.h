#ifndef TESTS_SUPPORT_OMDISPLAYTESTACCESS_H
#define TESTS_SUPPORT_OMDISPLAYTESTACCESS_H

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "layout/OmDisplayLayerHeadingData.h"
#include "layout/OmDisplayRowHeadingData.h"

/// Reaches the private records of the display headings.
class OmDisplayTestAccess {
 public:
  static OmDisplayLayerHeading::Data& GetData(OmDisplayLayerHeading const& heading) {
    return *heading._my;
  }
  static OmDisplayRowHeading::Data& GetData(OmDisplayRowHeading const& heading) {
    return *heading._my;
  }
  static OmDisplayRowHeading::Data& GetData(OmDisplayColumnHeading const& heading) {
    return *heading._my;
  }
};

#endif
