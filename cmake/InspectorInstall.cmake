# The installed package: headers, library, and what find_package and pkg-config read.

include(CMakePackageConfigHelpers)

set(package "Inspector${INSPECTOR_SUFFIX}")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${package}")
install(TARGETS inspector EXPORT InspectorTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
    PUBLIC_HEADER DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/inspector${INSPECTOR_SUFFIX}" COMPONENT development)
install(EXPORT InspectorTargets NAMESPACE Inspector:: DESTINATION "${package_dir}" COMPONENT development)

if(INSPECTOR_QT_MAJOR EQUAL 4)
    set(qt_dependency "Qt4 4.8 COMPONENTS QtCore QtGui")
    set(pc_requires "QtGui >= 4.8")
    set(pc_flags "")
else()
    set(qt_dependency "Qt${INSPECTOR_QT_MAJOR} COMPONENTS Widgets")
    set(pc_requires "Qt${INSPECTOR_QT_MAJOR}Widgets")
    set(pc_flags "")
    if(INSPECTOR_QT_MAJOR EQUAL 5)
        set(pc_flags "-fPIC") # Qt 5's headers insist on it, but its own .pc files do not give it
    endif()
endif()
get_target_property(library_type inspector TYPE)
if(library_type STREQUAL STATIC_LIBRARY)
    string(APPEND pc_flags " -DINSPECTOR_STATIC")
endif()

# Relative to the file itself, so that a staged or moved install works as it stands.
file(RELATIVE_PATH pc_prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/inspector.pc.in" "${PROJECT_BINARY_DIR}/inspector.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/inspector.pc" RENAME "inspector${INSPECTOR_SUFFIX}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/InspectorConfig.cmake.in" "${PROJECT_BINARY_DIR}/${package}Config.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/${package}Config.cmake" "${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT development)
