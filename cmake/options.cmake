# Compiler and linker settings that every target shares.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)

# The optimization of a target: its own choice, or else `default`. Of two such options the compiler takes the later
# one, and an interface's come last: a target cannot choose by its compile options. Only tests and benchmarks choose.
define_property(TARGET PROPERTY OPTIMIZATION)
set(own_optimization $<TARGET_PROPERTY:OPTIMIZATION>)
set(chooses_optimization $<BOOL:${own_optimization}>)
function(add_optimization default)
    target_compile_options(project_options INTERFACE $<IF:${chooses_optimization},${own_optimization},${default}>)
endfunction()

if(WIN32)
    target_compile_definitions(project_options INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0A00 NOMINMAX
                               WIN32_LEAN_AND_MEAN STRICT)
    add_optimization(-Os)
    target_compile_options(project_options INTERFACE -g1 -ffunction-sections -fdata-sections -fstack-protector-strong)
    # The tests' own code does without what costs a tenth of its compile time.
    target_compile_options(project_options INTERFACE
        $<${chooses_optimization}:-fno-function-sections;-fno-data-sections;-fno-stack-protector>)
    # By itself GCC looks for memory to free so often that it takes a fifth of the time.
    target_compile_options(project_options INTERFACE --param=ggc-min-heapsize=1000000)
    # The same sources give the same bytes, wherever they lie.
    target_compile_options(project_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
    target_link_options(project_options INTERFACE -static -static-libgcc -static-libstdc++
                        -fstack-protector-strong -Wl,--gc-sections
                        -Wl,--dynamicbase,--nxcompat -Wl,--no-insert-timestamp)
    if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
        target_link_options(project_options INTERFACE -Wl,--high-entropy-va)
    endif()
else()
    option(COVERAGE "Counts which branches the tests take" OFF)
    option(FUZZING "Lets libFuzzer see which branches an input takes" OFF)
    if(COVERAGE)
        # Nothing is optimized, whatever a target chooses: the counters stay where the source has them.
        set(instruments -fprofile-instr-generate -fcoverage-mapping -O0)
    else()
        set(instruments -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        add_optimization(-O1)
    endif()
    target_compile_options(project_options INTERFACE ${instruments} -g1)
    target_link_options(project_options INTERFACE ${instruments})
    if(FUZZING)
        target_compile_options(project_options INTERFACE -fsanitize=fuzzer-no-link)
    endif()
    # Four checks that stand at every member access would take a third of the compile time of the tests' own code; what
    # they find the address sanitizer and the checks of the rooms find, too.
    if(NOT COVERAGE)
        target_compile_options(project_options INTERFACE
                               $<${chooses_optimization}:-fno-sanitize=null,alignment,vptr,object-size>)
    endif()
endif()

# Rooms without Windows are held to stricter rules.
add_library(portable_options INTERFACE)
target_link_libraries(portable_options INTERFACE project_options)
target_compile_options(portable_options INTERFACE -Wconversion -Wold-style-cast -Wnon-virtual-dtor)

# CMAKE_UNITY_BUILD, which ./run and ./test set in build folders that they make, compiles several sources of one
# folder at a time: quicker as a whole, slower after a change of one. Names in unnamed namespaces differ within a
# folder.
#   compile_by_folder(TARGET [FILES_AT_A_TIME])
function(compile_by_folder target)
    set(at_a_time ${ARGN} 6)
    list(GET at_a_time 0 at_a_time)
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source)
        cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE place)
        cmake_path(GET place PARENT_PATH folder)
        string(MAKE_C_IDENTIFIER "${folder}" folder)
        math(EXPR group "${count_${folder}} + 0")
        math(EXPR count_${folder} "${group} + 1")
        math(EXPR group "${group} / ${at_a_time}")
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${folder}_${group})
    endforeach()
endfunction()

# What most sources include, read once for all targets with the same options.
set(standard_headers <algorithm> <array> <cmath> <cstdint> <cstring> <deque> <functional> <map> <memory> <new>
                     <optional> <set> <stdexcept> <string> <string_view> <utility> <variant> <vector>)
set(windows_headers <windows.h> <commctrl.h> <ole2.h> <olectl.h>)

set(no_source ${PROJECT_BINARY_DIR}/no_source.cpp)
file(CONFIGURE OUTPUT ${no_source} CONTENT "")
# add_precompiled_headers(NAME "LIBRARY ..." HEADER ...): for reuse by targets with the options of these libraries.
function(add_precompiled_headers name libraries)
    add_library(${name} OBJECT ${no_source})
    target_link_libraries(${name} PRIVATE ${libraries})
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()
add_precompiled_headers(portable_headers portable_options ${standard_headers})
if(WIN32)
    add_precompiled_headers(system_headers project_options ${standard_headers} ${windows_headers})
endif()

# A room: a static library of the sources in a folder.
#   make_room(NAME FOLDER OPTIONS HEADERS [LIBRARY ...])
function(make_room name folder options headers)
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PRIVATE ${options} PUBLIC ${ARGN})
    target_precompile_headers(${name} REUSE_FROM ${headers})
    compile_by_folder(${name})
endfunction()

# add_room(NAME [LIBRARY ...]): one without Windows, in the calling folder.
function(add_room name)
    make_room(${name} . portable_options portable_headers ${ARGN})
endfunction()
