lakresvos_add_test(core_editing_tests
  SOURCES
    OmDimensionEditingDeep_test.cpp
    OmDimensionEditingExchange_test.cpp
    OmDimensionEditingInsertCategory_test.cpp
    OmDimensionEditingInsertChild_test.cpp
    OmDimensionEditingLayout_test.cpp
    OmDimensionEditingMoveBefore_test.cpp
    OmDimensionEditingMoveToShown_test.cpp
    OmDimensionEditingRemoveChild_test.cpp
    OmDimensionEditing_exception_safety_test.cpp
    OmDimensionEditing_property_test.cpp
    ../support/DimensionModel.cpp
  LIBRARIES lakresvos_objects)
