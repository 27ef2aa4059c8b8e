#ifndef TESTS_SUPPORT_OMPIVOTTABLETESTACCESS_H
#define TESTS_SUPPORT_OMPIVOTTABLETESTACCESS_H

#include "table/OmPivotTableData.h"

/// Opens a table's private record to tests.
class OmPivotTableTestAccess {
 public:
  static OmPivotTable::Data& GetData(OmPivotTable& table) { return *table._my; }
};

#endif
