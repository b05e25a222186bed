# zil_chapter(NAME [USES chapter...])
#
# Declares the object library zil_NAME from every .cpp in the calling folder
# (and its detail/ subfolder).  USES names the chapters whose private headers
# this one includes, which keeps the dependency graph visible in the build.
function(zil_chapter name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/detail/*.cpp)
  add_library(zil_${name} OBJECT ${srcs})
  target_include_directories(zil_${name} PUBLIC ${PROJECT_SOURCE_DIR}/include
                             PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(zil_${name} PRIVATE ${ZIL_COMPILE_OPTIONS})
  foreach(dep IN LISTS ARG_USES)
    add_dependencies(zil_${name} zil_${dep})
  endforeach()
endfunction()
