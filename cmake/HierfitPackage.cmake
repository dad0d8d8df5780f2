# What an embedding program finds: find_package(hierfit) with the targets hierfit::host, which runs the procedure, and
# hierfit::report, which renders what it issued; pkg-config's `hierfit` for C and `hierfit++` for C++; the headers that it
# includes, documentation, and an example.

include(CMakePackageConfigHelpers)

set(HIERFIT_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/hierfit")
set_target_properties(hierfit_host PROPERTIES EXPORT_NAME host)
set_target_properties(hierfit_report PROPERTIES EXPORT_NAME report)
install(TARGETS hierfit_report EXPORT hierfit)
install(EXPORT hierfit NAMESPACE hierfit:: FILE hierfit-config.cmake DESTINATION "${HIERFIT_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/hierfit-config-version.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/hierfit-config-version.cmake" DESTINATION "${HIERFIT_PACKAGE_DIR}")

file(RELATIVE_PATH HIERFIT_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
foreach(name hierfit hierfit++)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()

# Headers keep their places below the folder that the targets name: hierfit_install_headers(ROOT HEADER...)
function(hierfit_install_headers root)
  foreach(header IN LISTS ARGN)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${root}/${header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/hierfit/${folder}")
  endforeach()
endfunction()

# All headers of the contract and of the document; of the other rooms those that an outside program is to call.
file(GLOB whole CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/backend"
  "${PROJECT_SOURCE_DIR}/backend/host/*.h" "${PROJECT_SOURCE_DIR}/backend/host/document/*.h")
hierfit_install_headers("${PROJECT_SOURCE_DIR}/backend" ${whole}
  host/context/Settings.h host/session/Paths.h host/session/Session.h)
hierfit_install_headers("${PROJECT_SOURCE_DIR}"
  report/formats/Files.h
  report/formats/Format.h
  report/formats/Render.h
  report/formats/RenderSettings.h
  report/html/HtmlSettings.h
  report/index/IndexPage.h
  report/index/IndexedModel.h
  report/items/Entries.h
  report/items/Selection.h
  report/json/JsonDocument.h
  report/style/FigureStyle.h
  report/text/TextOptions.h)

install(FILES README.md CHANGELOG.md THIRD-PARTY.md LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY examples/embed examples/sleepstudy DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples")
