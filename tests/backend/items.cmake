lakresvos_add_test(core_item_tests
  SOURCES
    OmAnswerTree_test.cpp
    OmAttachedFiles_test.cpp
    OmByteStreams_test.cpp
    OmChartMapInfo_test.cpp
    OmChart_test.cpp
    OmCodePageLabel_test.cpp
    OmInteractive_test.cpp
    OmModel_test.cpp
    OmPivotTableDump_test.cpp
    OmUtility_test.cpp
  LIBRARIES lakresvos_objects)

# The label tests count the converters that an item opens and closes.
target_link_options(core_item_tests PRIVATE
  -Wl,--wrap=_Z20VELKMBConverterNew_APKc
  -Wl,--wrap=_Z23VELKMBConverterDelete_APv)
