lakresvos_add_test(core_layout_tests
  SOURCES
    OmDimHeader_test.cpp
    OmDisplayColumnHeading_test.cpp
    OmDisplayHugePlaces_test.cpp
    OmDisplayLayerHeading_test.cpp
    OmDisplayLayerHeadingNodes_test.cpp
    OmDisplayLayout_memory_test.cpp
    OmDisplayLayout_property_test.cpp
    OmDisplayOutsideTable_test.cpp
    OmDisplayRowHeading_test.cpp
    OmDisplayRowHeadingCorner_test.cpp
    OmNonEmptyHeaders_test.cpp
    OmPlaceSet_test.cpp
    OmNonEmptyHeadersLevels_test.cpp
    ../support/LayoutModel.cpp
    ../support/RandomLayoutTable.cpp
  LIBRARIES lakresvos_objects)
