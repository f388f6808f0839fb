# The installed package: headers, libraries, and what find_package and pkg-config read.

include(CMakePackageConfigHelpers)

set(package "Inspector${INSPECTOR_SUFFIX}")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${package}")
# Relative to the file itself, so that a staged or moved install works as it stands.
file(RELATIVE_PATH pc_prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")

# inspector_install_library(<target> <description> <what its pkg-config file requires> [<compiler flag>...])
function(inspector_install_library target pc_description pc_requires)
    list(JOIN ARGN " " pc_flags)
    install(TARGETS ${target} EXPORT InspectorTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        PUBLIC_HEADER DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/inspector${INSPECTOR_SUFFIX}" COMPONENT development)
    configure_file("${PROJECT_SOURCE_DIR}/cmake/library.pc.in" "${PROJECT_BINARY_DIR}/${target}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${target}.pc" RENAME "${target}${INSPECTOR_SUFFIX}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()

set(qt_dependency "Qt${INSPECTOR_QT_MAJOR} COMPONENTS Widgets")
set(qt_module "Qt${INSPECTOR_QT_MAJOR}Widgets")
set(flags)
if(INSPECTOR_QT_MAJOR EQUAL 4)
    set(qt_dependency "Qt4 4.8 COMPONENTS QtCore QtGui")
    set(qt_module "QtGui >= 4.8")
elseif(INSPECTOR_QT_MAJOR EQUAL 5)
    set(flags -fPIC) # Qt 5's headers insist on it, but its own .pc files do not give it
endif()
get_target_property(library_type inspector TYPE)
if(library_type STREQUAL STATIC_LIBRARY)
    list(APPEND flags -DINSPECTOR_STATIC)
endif()

inspector_install_library(inspector "${PROJECT_DESCRIPTION}" "${qt_module}" ${flags})
if(TARGET inspectorproperties)
    if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set_target_properties(inspectorproperties PROPERTIES INSTALL_RPATH "$ORIGIN") # finds the first library beside it
    endif()
    inspector_install_library(inspectorproperties "Property pages of objects in one call" "inspector${INSPECTOR_SUFFIX}")
endif()

install(EXPORT InspectorTargets NAMESPACE Inspector:: DESTINATION "${package_dir}" COMPONENT development)
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/InspectorConfig.cmake.in" "${PROJECT_BINARY_DIR}/${package}Config.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/${package}Config.cmake" "${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT development)
