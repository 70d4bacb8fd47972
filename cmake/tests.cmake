# Sanitizers keep five calls of each allocation's stack and 32 MB of freed memory, which spares a fifth of the time.
set(sanitizers ASAN_OPTIONS=malloc_context_size=5:quarantine_size_mb=32)

# add_program_test(NAME TARGET [SHARDS COUNT] [COST SECONDS] [HEAP_CHECKS]): a test program as CTest tests, each playing its
# share. Native ones run as they are, Windows ones under Wine, each in a prefix of its own: of a prefix only one process can
# be the running add-in or have the focus, and the control is registered there once. Heap checks are Wine's. CTest begins
# with what takes long, so that nothing long is left for the end.
function(add_program_test name target)
    cmake_parse_arguments(PARSE_ARGV 2 test HEAP_CHECKS "SHARDS;COST" "")
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
    if(NOT test_COST)
        set(test_COST 10)
    endif()
    foreach(number RANGE 1 ${test_SHARDS})
        set(shard ${name})
        if(test_SHARDS GREATER 1)
            set(shard ${name}-${number})
        endif()
        math(EXPR index "${number} - 1")
        add_test(NAME ${shard} COMMAND ${runner} $<TARGET_FILE:${target}> --gtest_brief=1)
        set_tests_properties(${shard} PROPERTIES TIMEOUT 1500 LABELS program COST ${test_COST} ENVIRONMENT
            "${sanitizers};TEST_PREFIX=${shard};GTEST_TOTAL_SHARDS=${test_SHARDS};GTEST_SHARD_INDEX=${index}")
    endforeach()
endfunction()

# Several at a time of the tests that run Windows programs, which wait more than they work, share a processor
# (scripts/processor.sh): two of the 64-bit ones, beside which the 32-bit ones are built, three of these.
# For all tests of the calling folder.
if(WIN32)
    set(tests_at_a_time 2)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(tests_at_a_time 3)
    endif()
    cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)
    math(EXPR last_processor "${processors} - 1")
    foreach(number RANGE ${last_processor})
        list(APPEND allotted "{ \"id\": \"${number}\", \"slots\": ${tests_at_a_time} }")
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

# 64-bit Windows tests are compiled by clang, in half of GCC's time; the control and all that it consists of by GCC, whose
# libraries and binary interface clang takes over. (In 32 bits it does not: the two return small classes in different
# places.) CMake knows one compiler for all: the launcher of what belongs to the tests alone puts clang in its place.
if(WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    find_program(CLANG clang++ REQUIRED)
    set(quick_compiler ${PROJECT_BINARY_DIR}/quick_compiler)
    set(gcc_interface "-Wno-unused-command-line-argument -femulated-tls -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0")
    set(library_headers ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    list(FILTER library_headers INCLUDE REGEX "/c\\+\\+")
    list(TRANSFORM library_headers PREPEND "-isystem ")
    list(JOIN library_headers " " library_headers)
    list(JOIN CMAKE_CXX_COMPILER_LAUNCHER " " launcher)
    # An earlier precompiled header would be taken for what the new one is made from.
    file(WRITE ${quick_compiler} "#!/bin/sh
shift
for word; do case \"$word\" in *.gch) rm -f \"$word\" ;; esac; done
exec ${launcher} ${CLANG} --target=${MINGW_TRIPLET} ${gcc_interface} ${library_headers} \"$@\"
")
    file(CHMOD ${quick_compiler} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endif()
# use_quick_compiler(TARGET ...)
function(use_quick_compiler)
    if(quick_compiler)
        set_target_properties(${ARGV} PROPERTIES CXX_COMPILER_LAUNCHER ${quick_compiler})
    endif()
endfunction()
use_quick_compiler(gtest gmock gmock_main)

# What nearly every test includes: for test programs and, in native builds, for what they run on.
set(test_header_list <gmock/gmock.h> ${standard_headers} <filesystem> <fstream> <sstream>)
set(form_test_header_list ${test_header_list} [["tests/stage/form_test.h"]] [["tests/support/text.h"]])
add_precompiled_headers(portable_test_headers "project_options;GTest::gmock" ${form_test_header_list})
set_target_properties(portable_test_headers PROPERTIES OPTIMIZATION -O0)
use_quick_compiler(portable_test_headers)
if(WIN32)
    add_precompiled_headers(windows_test_headers "project_options;GTest::gmock" ${windows_headers}
                            ${test_header_list})
    set_target_properties(windows_test_headers PROPERTIES OPTIMIZATION -O0)
    use_quick_compiler(windows_test_headers)
else()
    add_precompiled_headers(stage_headers "project_options;GTest::gmock" ${test_header_list})
    set_target_properties(stage_headers PROPERTIES OPTIMIZATION -O1)
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

function(compile_test_code target optimization headers)
    set_target_properties(${target} PROPERTIES OPTIMIZATION ${optimization})
    target_precompile_headers(${target} REUSE_FROM ${headers})
    compile_by_folder(${target} 12)
endfunction()

# compile_quickly(TARGET [HEADERS]): compiling the tests costs more than running them. The precompiled headers are
# those of form tests, unless others are named.
function(compile_quickly target)
    set(headers ${ARGN} portable_test_headers)
    list(GET headers 0 headers)
    if(WIN32 AND LLD)
        target_link_options(${target} PRIVATE -B${quick_linker}/ -fno-use-linker-plugin)
    endif()
    use_quick_compiler(${target})
    compile_test_code(${target} -O0 ${headers})
endfunction()

# compile_for_speed(TARGET): native tests that run longer than they compile.
function(compile_for_speed target)
    compile_test_code(${target} -O1 stage_headers)
endfunction()
