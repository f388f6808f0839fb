# Language level, and what the project asks of its own code only.

if(NOT CMAKE_CXX_STANDARD)
    if(INSPECTOR_QT_MAJOR EQUAL 6)
        set(CMAKE_CXX_STANDARD 17)
    else()
        set(CMAKE_CXX_STANDARD 14)
    endif()
endif()
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
if(INSPECTOR_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release)
endif()

if(INSPECTOR_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_compile_options(${sanitizers})
    add_link_options(${sanitizers})
endif()

# Linked privately by the project's own targets; never reaches a consumer. QString conversions from and to
# byte strings depend on the Qt version and the process, so none may happen unseen.
add_library(inspectorwarnings INTERFACE)
target_compile_options(inspectorwarnings INTERFACE
    -Wall -Wextra -Wshadow -Wconversion -Woverloaded-virtual $<$<BOOL:${INSPECTOR_WERROR}>:-Werror>)
target_compile_definitions(inspectorwarnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
