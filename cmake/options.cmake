# Compiler and linker settings that every target shares.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)

# The optimization of a target: its own choice, or else `default`. Of two such options the compiler takes the later
# one, and an interface's come last: a target cannot choose by its compile options.
define_property(TARGET PROPERTY OPTIMIZATION)
function(add_optimization default)
    set(own $<TARGET_PROPERTY:OPTIMIZATION>)
    target_compile_options(project_options INTERFACE $<IF:$<BOOL:${own}>,${own},${default}>)
endfunction()

if(WIN32)
    target_compile_definitions(project_options INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0A00 NOMINMAX
                               WIN32_LEAN_AND_MEAN STRICT)
    add_optimization(-Os)
    target_compile_options(project_options INTERFACE -g1 -ffunction-sections -fdata-sections -fstack-protector-strong)
    # The same sources give the same bytes, wherever they lie.
    target_compile_options(project_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
    target_link_options(project_options INTERFACE -static -static-libgcc -static-libstdc++
                        -fstack-protector-strong -Wl,--gc-sections
                        -Wl,--dynamicbase,--nxcompat -Wl,--no-insert-timestamp)
    if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
        target_link_options(project_options INTERFACE -Wl,--high-entropy-va)
    endif()
else()
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_optimization(-O1)
    target_compile_options(project_options INTERFACE ${sanitizers} -g1)
    target_link_options(project_options INTERFACE ${sanitizers})
endif()

# Rooms without Windows are held to stricter rules.
add_library(portable_options INTERFACE)
target_link_libraries(portable_options INTERFACE project_options)
target_compile_options(portable_options INTERFACE -Wconversion -Wold-style-cast -Wnon-virtual-dtor)

# A room: a static library of the sources in its folder.
function(add_room name)
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    if(sources)
        add_library(${name} STATIC ${sources})
        target_link_libraries(${name} PRIVATE portable_options PUBLIC ${ARGN})
    else()
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${ARGN})
    endif()
endfunction()
