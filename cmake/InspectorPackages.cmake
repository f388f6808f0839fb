# Debian packages, made by cpack: the libraries, what is needed to build with them, and the tools. Each is a component:
# install(... COMPONENT <component>), and an inspector_package below.

set(abi "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
string(REGEX REPLACE "([0-9])$" "\\1-" runtime_name "libinspector${INSPECTOR_SUFFIX}")
string(APPEND runtime_name "${abi}") # as Debian names the package of a library after its SONAME
set(development_name "libinspector${INSPECTOR_SUFFIX}-dev")
set(qt_development_4 libqt4-dev)
set(qt_development_5 qtbase5-dev)
set(qt_development_6 qt6-base-dev)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME inspector)
set(CPACK_PACKAGE_CONTACT "Inspector developers <inspector@example.com>" CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

set(control_dir "${PROJECT_BINARY_DIR}/debian")
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)

# inspector_package(<component> <package> <section> <what it depends on> <description>)
macro(inspector_package component name section depends description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME "${name}")
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${description}")
    set(${component}_doc_dir "${CMAKE_INSTALL_DATAROOTDIR}/doc/${name}")
    file(WRITE "${control_dir}/${component}/changelog"
        "inspector (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
        "  * Packaged from the sources; CHANGELOG.md there lists what changed.\n\n"
        " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    execute_process(COMMAND gzip -9nf "${control_dir}/${component}/changelog")
    install(FILES "${control_dir}/${component}/changelog.gz" "${PROJECT_SOURCE_DIR}/cmake/copyright"
        DESTINATION "${${component}_doc_dir}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

inspector_package(runtime "${runtime_name}" libs ""
    "Rows of labels and values in titled groups, laid out, painted and edited\nin place. Built for Qt ${INSPECTOR_QT_MAJOR}.")
inspector_package(development "${development_name}" libdevel
    "${runtime_name} (= ${PROJECT_VERSION}), ${qt_development_${INSPECTOR_QT_MAJOR}}"
    "Headers, files for CMake and pkg-config, guide and examples, to build with\n${runtime_name}.")
if(INSPECTOR_BUILD_TOOLS AND TARGET inspectorproperties)
    # One package for all Qts: packages.sh has the plug-ins of its other build added.
    string(REPLACE "-qt${INSPECTOR_QT_MAJOR}" "-qt5" runtime_qt5 "${runtime_name} (= ${PROJECT_VERSION})")
    string(REPLACE "-qt${INSPECTOR_QT_MAJOR}" "-qt6" runtime_qt6 "${runtime_name} (= ${PROJECT_VERSION})")
    inspector_package(tools inspector-tools devel "libc6, libstdc++6, ${runtime_qt5}, ${runtime_qt6}"
        "Look into a running Qt program: inspect starts it with a window of its\nobjects, their properties and signals.")
endif()

# What the package manager and those who link the libraries need to know of their ABI.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/shared/src/base/inspector")
math(EXPR next_minor "${PROJECT_VERSION_MINOR} + 1")
file(WRITE "${control_dir}/shlibs")
foreach(library inspector inspectorproperties)
    if(TARGET ${library})
        file(APPEND "${control_dir}/shlibs"
            "lib${library}${INSPECTOR_SUFFIX} ${abi} "
            "${runtime_name} (>= ${abi}), ${runtime_name} (<< ${PROJECT_VERSION_MAJOR}.${next_minor})\n")
    endif()
endforeach()
file(WRITE "${control_dir}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${control_dir}/shlibs;${control_dir}/triggers")

# The guide beside what it points at.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" "${PROJECT_SOURCE_DIR}/examples" "${PROJECT_SOURCE_DIR}/benchmarks"
    DESTINATION "${development_doc_dir}" COMPONENT development EXCLUDE_FROM_ALL
    FILES_MATCHING REGEX "/(docs|benchmarks)/.*\\.(md|png)$" REGEX "/examples/.*/.*\\.(h|cpp|txt)$")

if(INSPECTOR_QT_MAJOR EQUAL 5)
    file(WRITE "${control_dir}/overrides"
        "# Qt 5's headers refuse to compile without it.\n"
        "${development_name}: pkg-config-bad-directive -fPIC [*]\n")
    install(FILES "${control_dir}/overrides" RENAME "${development_name}"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides" COMPONENT development EXCLUDE_FROM_ALL)
endif()

include(CPack)
