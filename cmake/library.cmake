# lakresvos_add_library(TARGET [OBJECTS] [INCLUDE FOLDER] [PUBLIC LIBRARY...] [PRIVATE LIBRARY...]):
# a shared library that is installed with the headers in FOLDER, by default include/. Those who link
# the target lakresvos_NAME call it lakresvos::NAME.
#
# With OBJECTS its sources belong to TARGET_objects, which tests link for the hidden parts, and
# TARGET.map says what is visible: templates of the standard library would be otherwise.
function(lakresvos_add_library target)
  cmake_parse_arguments(PARSE_ARGV 1 library "OBJECTS" "INCLUDE" "PUBLIC;PRIVATE")
  if(NOT library_INCLUDE)
    set(library_INCLUDE ${CMAKE_CURRENT_SOURCE_DIR}/include)
  endif()
  string(REGEX REPLACE "^lakresvos_" "" name ${target})

  add_library(${target} SHARED)
  add_library(lakresvos::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    EXPORT_NAME ${name}
  )
  target_compile_features(${target} INTERFACE cxx_std_17)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${library_INCLUDE}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
  )
  target_link_libraries(${target}
    PUBLIC ${library_PUBLIC}
    PRIVATE ${library_PRIVATE} $<BUILD_INTERFACE:lakresvos_warnings>
  )

  if(library_OBJECTS)
    add_library(${target}_objects OBJECT)
    target_include_directories(${target}_objects PUBLIC ${library_INCLUDE})
    target_link_libraries(${target}_objects
      PUBLIC ${library_PUBLIC} ${library_PRIVATE}
      PRIVATE lakresvos_warnings
    )
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_objects>)
    set(symbol_map ${CMAKE_CURRENT_SOURCE_DIR}/${target}.map)
    target_link_options(${target} PRIVATE -Wl,--version-script=${symbol_map})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${symbol_map})
  endif()

  install(TARGETS ${target} EXPORT lakresvosTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY ${library_INCLUDE}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endfunction()
