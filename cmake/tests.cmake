# add_program_test(NAME TARGET [SHARDS COUNT] [HEAP_CHECKS]): a test program as CTest tests, each playing its share. Native
# ones run as they are, Windows ones under Wine, each in a prefix of its own: of a prefix only one process can be the
# running add-in or have the focus, and the control is registered there once. Heap checks are Wine's.
function(add_program_test name target)
    cmake_parse_arguments(PARSE_ARGV 2 test HEAP_CHECKS SHARDS "")
    set(scripts ${PROJECT_SOURCE_DIR}/scripts)
    if(NOT WIN32)
        set(runner "")
    elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(runner ${scripts}/wine-run)
        set(checked_runner ${scripts}/wine-run-checked)
    else()
        set(runner ${scripts}/wine-root-run x86)
        set(checked_runner ${scripts}/wine-run-checked --root x86)
    endif()
    if(test_HEAP_CHECKS)
        set(runner ${checked_runner})
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

# Two at a time of the tests that run Windows programs, which wait more than they work, share a processor
# (scripts/processor.sh). For all tests of the calling folder.
if(WIN32)
    cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)
    math(EXPR last_processor "${processors} - 1")
    foreach(number RANGE ${last_processor})
        list(APPEND allotted "{ \"id\": \"${number}\", \"slots\": 2 }")
    endforeach()
    list(JOIN allotted ", " allotted)
    file(WRITE ${PROJECT_BINARY_DIR}/processors.json
         "{ \"version\": { \"major\": 1, \"minor\": 0 }, \"local\": [ { \"processors\": [ ${allotted} ] } ] }\n")
endif()
function(allot_processors)
    if(WIN32)
        get_property(tests DIRECTORY PROPERTY TESTS)
        set_tests_properties(${tests} PROPERTIES RESOURCE_GROUPS processors:1)
    endif()
endfunction()

# Windows tests are compiled by clang, in half of GCC's time; the control and all that it consists of by GCC, whose
# libraries and binary interface clang takes over. CMake knows one compiler for all: the launcher of what belongs to the
# tests alone puts clang in its place.
if(WIN32)
    set(quick_compiler ${PROJECT_BINARY_DIR}/quick_compiler)
    find_program(CLANG clang++ REQUIRED)
    set(gcc_interface "-femulated-tls -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0")
    set(library_headers ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    list(FILTER library_headers INCLUDE REGEX "/c\\+\\+")
    list(TRANSFORM library_headers PREPEND "-isystem ")
    list(JOIN library_headers " " library_headers)
    list(JOIN CMAKE_CXX_COMPILER_LAUNCHER " " launcher)
    # An earlier precompiled header would be taken for what the new one is made from.
    file(WRITE ${quick_compiler} "#!/bin/sh
shift
case \"$*\" in *c++-header*) rm -f ${PROJECT_BINARY_DIR}/CMakeFiles/test_headers.dir/*.gch ;; esac
exec ${launcher} ${CLANG} --target=${MINGW_TRIPLET} ${gcc_interface} ${library_headers} \"$@\"
")
    file(CHMOD ${quick_compiler} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endif()
function(compile_by_clang)
    if(WIN32)
        set_target_properties(${ARGV} PROPERTIES CXX_COMPILER_LAUNCHER ${quick_compiler})
    endif()
endfunction()

# What nearly every test includes: for test programs and, in native builds, for what they run on.
set(test_header_list <gmock/gmock.h> ${standard_headers} <filesystem> <fstream> <sstream>)
add_precompiled_headers(test_headers "project_options;GTest::gmock" ${test_header_list})
set_target_properties(test_headers PROPERTIES OPTIMIZATION -O0)
compile_by_clang(test_headers)
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
    compile_by_clang(${target})
    target_precompile_headers(${target} REUSE_FROM test_headers)
    compile_by_folder(${target})
endfunction()
compile_by_clang(gtest gmock gmock_main)
