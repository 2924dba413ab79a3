# What `cmake --install` puts under the prefix. Nothing of it holds the prefix itself, so that
# `cmake --install --prefix` may choose another one than the configuration did.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/corvidlmw)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Headers and libraries.
get_property(public_headers GLOBAL PROPERTY corvidlmw_public_headers)
foreach(header IN LISTS public_headers)
    get_filename_component(room ${header} DIRECTORY)
    install(FILES corvidlmw/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvidlmw/${room})
endforeach()
install(TARGETS corvidlmw corvidlmw_static corvidlmw_mrm corvidlmw_mrm_static EXPORT corvidlmw
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The CMake package.
install(EXPORT corvidlmw
    NAMESPACE corvidlmw::
    FILE corvidlmwTargets.cmake
    DESTINATION ${package_dir})
configure_package_config_file(cmake/corvidlmwConfig.cmake.in
    ${PROJECT_BINARY_DIR}/corvidlmwConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/corvidlmwConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/corvidlmwConfig.cmake
    ${PROJECT_BINARY_DIR}/corvidlmwConfigVersion.cmake
    cmake/MotifTarget.cmake
    DESTINATION ${package_dir})

# The pkg-config files find the prefix from where they lie themselves.
file(RELATIVE_PATH prefix_from_pkgconfig /prefix/${pkgconfig_dir} /prefix)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
foreach(library corvidlmw corvidlmw_mrm)
    configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${pkgconfig_dir})
endforeach()

include(ManualPages)

# The example programs as a project of its own; beside it the guide, and the pictures that the pages of both
# show. What is left out works in the repository only.
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/corvidlmw
    PATTERN demo EXCLUDE
    PATTERN make-data EXCLUDE)
install(DIRECTORY docs/guide docs/pictures DESTINATION ${CMAKE_INSTALL_DATADIR}/corvidlmw/docs
    PATTERN CMakeLists.txt EXCLUDE)
include(${PROJECT_SOURCE_DIR}/examples/cmake/AppDefaults.cmake)
install_app_defaults()
