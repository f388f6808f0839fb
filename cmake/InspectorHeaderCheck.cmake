# inspector_check_headers(<name> HEADERS <header>... [LIBRARIES <target>...])
#
# Compiles one source per header that includes nothing else, first and again: each header has to stand alone.
# Only the include paths of the given libraries are there, so a header checked without Qt cannot need it.
function(inspector_check_headers name)
    cmake_parse_arguments(arg "" "" "HEADERS;LIBRARIES" ${ARGN})
    set(sources)
    foreach(header IN LISTS arg_HEADERS)
        set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}/${header}.cpp")
        file(GENERATE OUTPUT "${source}" CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
        list(APPEND sources "${source}")
    endforeach()
    add_library(${name} OBJECT ${sources})
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE inspectorwarnings ${arg_LIBRARIES})
    target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS) # as an application may
endfunction()
