with_version(${CMAKE_CURRENT_SOURCE_DIR}/resources/VexaPPE.manifest.in ${VERSION_FOLDER}/VexaPPE.manifest)

# The product's resources (templates, icons, manifest, version, type library) for a program or library.
function(add_resources target)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/windows/resources/VexaPPE.rc)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/interfaces
                               ${VERSION_FOLDER})
    # The build does not see what a resource script includes.
    file(GLOB parts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*/*.rc ${PROJECT_SOURCE_DIR}/*/*.ids.h
         ${PROJECT_SOURCE_DIR}/windows/resources/*.rc
         ${PROJECT_SOURCE_DIR}/windows/resources/icons/*.ico ${PROJECT_SOURCE_DIR}/docs/help/*.md)
    set_property(SOURCE ${PROJECT_SOURCE_DIR}/windows/resources/VexaPPE.rc PROPERTY OBJECT_DEPENDS
                 ${parts} ${VERSION_FOLDER}/product_version.h ${VERSION_FOLDER}/VexaPPE.manifest)
    # The type library is one of the resources.
    add_dependencies(${target} interfaces_files)
endfunction()
