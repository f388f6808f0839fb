# Debian packages, made by cpack: the library, and what is needed to build with it.

set(runtime_name "libinspector${INSPECTOR_SUFFIX}")
set(development_name "${runtime_name}-dev")
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
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${runtime_name}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "Rows of labels and values in titled groups, laid out, painted and edited\nin place. Built for Qt ${INSPECTOR_QT_MAJOR}.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "${development_name}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_name} (= ${PROJECT_VERSION}), ${qt_development_${INSPECTOR_QT_MAJOR}}")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "Headers, and files for CMake and pkg-config, to build with ${runtime_name}.")

# What the package manager and those who link the library need to know of its ABI.
set(abi "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
math(EXPR next_minor "${PROJECT_VERSION_MINOR} + 1")
set(control_dir "${PROJECT_BINARY_DIR}/debian")
file(WRITE "${control_dir}/shlibs"
    "libinspector${INSPECTOR_SUFFIX} ${abi} "
    "${runtime_name} (>= ${abi}), ${runtime_name} (<< ${PROJECT_VERSION_MAJOR}.${next_minor})\n")
file(WRITE "${control_dir}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${control_dir}/shlibs;${control_dir}/triggers")

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component runtime development)
    set(doc_dir "${control_dir}/${component}")
    file(WRITE "${doc_dir}/changelog"
        "${runtime_name} (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
        "  * Packaged from the sources; CHANGELOG.md there lists what changed.\n\n"
        " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    execute_process(COMMAND gzip -9nf "${doc_dir}/changelog")
    install(FILES "${doc_dir}/changelog.gz" "${CMAKE_CURRENT_LIST_DIR}/copyright"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${${component}_name}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()

if(INSPECTOR_QT_MAJOR EQUAL 5)
    file(WRITE "${control_dir}/overrides"
        "# Qt 5's headers refuse to compile without it.\n"
        "${development_name}: pkg-config-bad-directive -fPIC [*]\n")
    install(FILES "${control_dir}/overrides" RENAME "${development_name}"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides" COMPONENT development EXCLUDE_FROM_ALL)
endif()

include(CPack)
