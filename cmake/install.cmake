# Headers, both forms of the libraries, the CMake package and the pkg-config files. All of it may be moved as a whole:
# every path in it is relative.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY ZELS_LIBRARIES)
install(TARGETS ${libraries} EXPORT zels-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/zels.h ${PROJECT_SOURCE_DIR}/zelcore/include/zelcore.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zels
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/zels)
install(EXPORT zels-targets NAMESPACE zels:: DESTINATION ${package})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/zelsConfig.cmake.in ${PROJECT_BINARY_DIR}/zelsConfig.cmake
    INSTALL_DESTINATION ${package} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zelsConfig.cmake ${PROJECT_BINARY_DIR}/zelsConfigVersion.cmake
    DESTINATION ${package})

# The prefix as seen from the folder of the pkg-config files; an absolute library folder stays as it is.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    set(prefix ${CMAKE_INSTALL_PREFIX})
else()
    file(RELATIVE_PATH up /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
    set(prefix "\${pcfiledir}/${up}")
    string(REGEX REPLACE "/$" "" prefix ${prefix})
endif()
cmake_path(APPEND libdir "\${prefix}" ${CMAKE_INSTALL_LIBDIR})
cmake_path(APPEND includedir "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
# What a shared library brings along by itself, a static one must be linked with.
set(private ".private")
set(with "")
if(NOT BUILD_SHARED_LIBS)
    set(private "")
    set(with " -lm")
endif()
foreach(name zels zelcore)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
