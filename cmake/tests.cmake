# add_program_test(NAME TARGET [SHARDS COUNT]): a test program as CTest tests, each playing its share. Native ones run as
# they are, Windows ones under Wine, each in a prefix of its own: of a prefix only one process can be the running add-in
# or have the focus, and the control is registered there once.
function(add_program_test name target)
    cmake_parse_arguments(PARSE_ARGV 2 test "" SHARDS "")
    if(NOT WIN32)
        set(runner "")
    elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(runner ${PROJECT_SOURCE_DIR}/scripts/wine-run)
    else()
        set(runner ${PROJECT_SOURCE_DIR}/scripts/wine-root-run x86)
    endif()
    if(NOT test_SHARDS)
        set(test_SHARDS 1)
    endif()
    foreach(number RANGE 1 ${test_SHARDS})
        set(shard ${name})
        if(test_SHARDS GREATER 1)
            set(shard ${name}-${number})
        endif()
        math(EXPR index "${number} - 1")
        add_test(NAME ${shard} COMMAND ${runner} $<TARGET_FILE:${target}> --gtest_brief=1)
        set_tests_properties(${shard} PROPERTIES TIMEOUT 1500 LABELS program ENVIRONMENT
            "TEST_PREFIX=${shard};GTEST_TOTAL_SHARDS=${test_SHARDS};GTEST_SHARD_INDEX=${index}")
    endforeach()
endfunction()

# What nearly every test includes: for test programs and, in native builds, for what they run on.
set(test_header_list <gmock/gmock.h> ${standard_headers} <filesystem> <fstream> <sstream>)
add_precompiled_headers(test_headers "project_options;GTest::gmock" ${test_header_list})
set_target_properties(test_headers PROPERTIES OPTIMIZATION -O0)
if(NOT WIN32)
    add_precompiled_headers(stage_headers "project_options;GTest::gmock" ${test_header_list})
endif()

# A test program is half debug information; lld links it in a second, the GNU linker takes up to two minutes. The
# compiler takes the program that is named collect2 for its linker.
if(WIN32)
    find_program(LLD ld.lld)
    set(quick_linker ${PROJECT_BINARY_DIR}/linker)
    if(LLD)
        file(WRITE ${quick_linker}/collect2 "#!/bin/sh\nexec ${LLD} \"$@\"\n")
        file(CHMOD ${quick_linker}/collect2 PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    endif()
endif()

# Compiling the tests costs more than running them.
function(compile_quickly target)
    if(WIN32 AND LLD)
        target_link_options(${target} PRIVATE -B${quick_linker}/ -fno-use-linker-plugin)
    endif()
    set_target_properties(${target} PROPERTIES OPTIMIZATION -O0)
    target_precompile_headers(${target} REUSE_FROM test_headers)
    compile_by_folder(${target})
endfunction()
