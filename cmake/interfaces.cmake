# Compiles interface descriptions (.idl) with widl. Headers and type libraries go into the build folder.
#   add_interfaces(TARGET FILE.idl ...)  TARGET brings FILE.h and, where a file holds a library, FILE.tlb
find_path(STDOLE_FOLDER stdole2.tlb HINTS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
          /usr/lib/wine/x86_64-windows NO_CMAKE_FIND_ROOT_PATH
          DOC "The folder of the system's own type library, stdole2.tlb (Debian package libwine)")
if(NOT STDOLE_FOLDER)
    message(FATAL_ERROR "stdole2.tlb is missing: install the package wine64.")
endif()
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(WIDL_BITNESS -m64)
else()
    set(WIDL_BITNESS -m32)
endif()

# The interface compiler writes the time into what it makes; the same sources are to give the same bytes.
find_program(FAKETIME faketime REQUIRED DOC "Shows a program another time (Debian package faketime)")
set(WITHOUT_TIME ${FAKETIME} -f "2000-01-01 00:00:00")

function(compile_interface output switches idl)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${WITHOUT_TIME} ${WIDL} ${WIDL_BITNESS} -I ${PROJECT_SOURCE_DIR}/interfaces
                -I ${PROJECT_SOURCE_DIR}/interfaces/system -L ${STDOLE_FOLDER}
                -D TYPE_LIBRARY_VERSION=${TYPE_LIBRARY_VERSION} ${switches} ${output} ${idl}
        DEPENDS ${idl} ${PROJECT_SOURCE_DIR}/interfaces/system/oaidl.idl
                ${PROJECT_SOURCE_DIR}/interfaces/system/ocidl.idl
                ${PROJECT_SOURCE_DIR}/interfaces/OutlookPages.idl
        VERBATIM)
endfunction()

function(add_interfaces target)
    foreach(file IN LISTS ARGN)
        cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE idl)
        cmake_path(GET idl STEM name)
        set(header ${CMAKE_CURRENT_BINARY_DIR}/${name}.h)
        compile_interface(${header} "-h;-H" ${idl})
        list(APPEND outputs ${header})
        file(STRINGS ${idl} libraries REGEX "^library ")
        if(libraries)
            set(typeLibrary ${CMAKE_CURRENT_BINARY_DIR}/${name}.tlb)
            compile_interface(${typeLibrary} "-t;-o" ${idl})
            list(APPEND outputs ${typeLibrary})
        endif()
    endforeach()
    add_custom_target(${target}_files DEPENDS ${outputs})
    add_library(${target} INTERFACE)
    add_dependencies(${target} ${target}_files)
    target_include_directories(${target} SYSTEM INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
