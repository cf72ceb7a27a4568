# Installation, the CMake package (find_package(QnUtil CONFIG) gives
# QnUtil::qnutil), the pkg-config file, the MSVC import library and the
# release archives (cpack).
include(CMakePackageConfigHelpers)

set(QNUTIL_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QnUtil)

install(TARGETS qnutil EXPORT QnUtilTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/qnutil DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT QnUtilTargets NAMESPACE QnUtil:: DESTINATION ${QNUTIL_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QnUtilConfig.cmake.in
  ${CMAKE_BINARY_DIR}/QnUtilConfig.cmake INSTALL_DESTINATION ${QNUTIL_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QnUtilConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QnUtilConfig.cmake ${CMAKE_BINARY_DIR}/QnUtilConfigVersion.cmake
  DESTINATION ${QNUTIL_CMAKE_DIR})

if(WIN32)
  set(QNUTIL_PC_LIBNAME QnUtil)
else()
  set(QNUTIL_PC_LIBNAME qnutil)
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/qnutil.pc.in ${CMAKE_BINARY_DIR}/qnutil.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/qnutil.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(QNUTIL_BUILD_TOOL)
  install(TARGETS qnutil_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/qnutil/samples/
    DESTINATION ${CMAKE_INSTALL_DATADIR}/qnutil/samples)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE
  DESTINATION ${CMAKE_INSTALL_DOCDIR})

# MSVC hosts link against QnUtil.lib, made with the DLL from its .def file.
if(WIN32)
  get_target_property(msvc_lib qnutil QNUTIL_MSVC_IMPORT_LIB)
  install(FILES ${msvc_lib} DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# Release archives: a ZIP per Windows target, a tarball laid out under /usr
# for Linux.
set(CPACK_PACKAGE_NAME QnUtil)
set(CPACK_PACKAGE_VENDOR "The QnUtil developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "QnUtil shared utility library")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME windows-${CMAKE_SYSTEM_PROCESSOR})
else()
  set(CPACK_GENERATOR TGZ)
  set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})
  set(CPACK_SET_DESTDIR ON)
  set(CPACK_INSTALL_PREFIX /usr)
endif()
include(CPack)
