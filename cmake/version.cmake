# The version of the product, PROJECT_VERSION, for everything that tells it. The target product_version brings
# product_version.h; with_version(FILE.in OUTPUT) fills the same places in any other file.
set(TYPE_LIBRARY_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(VERSION_FOLDER ${PROJECT_BINARY_DIR}/version)
function(with_version template output)
    configure_file(${template} ${output} @ONLY)
endfunction()

with_version(${CMAKE_CURRENT_LIST_DIR}/product_version.h.in ${VERSION_FOLDER}/product_version.h)
add_library(product_version INTERFACE)
target_include_directories(product_version INTERFACE ${VERSION_FOLDER})
