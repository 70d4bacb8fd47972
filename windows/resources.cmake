# The product's resources (templates, icons, manifest, version, type library) for a program or library.
function(add_resources target)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/windows/resources/VexaPPE.rc)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/interfaces)
    # The type library is one of the resources.
    add_dependencies(${target} interfaces_files)
endfunction()
