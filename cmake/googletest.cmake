# GoogleTest from the distribution's sources, built by the compiler of this build.
set(GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's source tree (Debian package googletest)")
if(NOT EXISTS ${GOOGLETEST_SOURCES}/CMakeLists.txt)
    message(FATAL_ERROR "GoogleTest's sources are missing: install the package googletest.")
endif()
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
