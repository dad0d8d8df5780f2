# What an embedding program finds: find_package(hierfit) with the target hierfit::host, and pkg-config's `hierfit`.

include(CMakePackageConfigHelpers)

set(HIERFIT_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/hierfit")
set_target_properties(hierfit_host PROPERTIES EXPORT_NAME host)
install(EXPORT hierfit NAMESPACE hierfit:: FILE hierfit-config.cmake DESTINATION "${HIERFIT_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/hierfit-config-version.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/hierfit-config-version.cmake" DESTINATION "${HIERFIT_PACKAGE_DIR}")

file(RELATIVE_PATH HIERFIT_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/hierfit.pc.in" "${PROJECT_BINARY_DIR}/hierfit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/hierfit.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
