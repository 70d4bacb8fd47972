# GoogleTest from the distribution's sources, built by the compiler of this build.
set(GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's source tree (Debian package googletest)")
if(NOT EXISTS ${GOOGLETEST_SOURCES}/CMakeLists.txt)
    message(FATAL_ERROR "GoogleTest's sources are missing: install the package googletest.")
endif()
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
# It is compiled in each build and takes no time when tests run.
foreach(library gtest gmock gmock_main)
    target_compile_options(${library} PRIVATE -O0)
endforeach()
