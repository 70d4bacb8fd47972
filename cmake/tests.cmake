# Test programs as CTest tests: native ones run as they are, Windows ones under Wine.
function(add_program_test name target)
    if(WIN32)
        add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/wine-run $<TARGET_FILE:${target}> ${ARGN})
    else()
        add_test(NAME ${name} COMMAND ${target} ${ARGN})
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT 1500)
endfunction()

# What nearly every test includes takes longer to compile than the test itself.
function(precompile_googletest target)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h>)
endfunction()
