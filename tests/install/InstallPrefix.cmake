# Installs the build folder BUILD_DIR into a fresh prefix PREFIX, the way a
# user's `cmake --install` does; the installed-tree tests run what lands there.
if(NOT BUILD_DIR OR NOT PREFIX)
  message(FATAL_ERROR "usage: cmake -DBUILD_DIR=DIR -DPREFIX=DIR -P InstallPrefix.cmake")
endif()
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}"
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cmake --install into ${PREFIX} failed (${result}):\n${output}")
endif()
