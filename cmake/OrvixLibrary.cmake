# orvix_library(name DEPS ...): every .cpp of the calling folder becomes library orvix_<name>.
function(orvix_library name)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(sources)
        add_library(orvix_${name} STATIC ${sources})
        target_include_directories(orvix_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(orvix_${name} PUBLIC orvix_policy ${ARG_DEPS}
        PRIVATE orvix_policy_program)
    else()
        add_library(orvix_${name} INTERFACE)
        target_link_libraries(orvix_${name} INTERFACE ${ARG_DEPS})
    endif()
endfunction()
