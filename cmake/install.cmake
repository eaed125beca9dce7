# What an installation holds: the library, the program, the public headers in their folders, a CMake
# package (find_package(zemva), target zemva::zemva) and a pkg-config file. Nothing in it names the
# folder that it was installed to, so that the whole can be moved.
include(CMakePackageConfigHelpers)

set(zemva_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zemva)

if(TARGET zemva_program)
  install(TARGETS zemva_program COMPONENT program)
endif()
if(TARGET zemva_plugin)  # where the program looks for it, and no linker does
  install(TARGETS zemva_plugin LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
endif()
install(TARGETS zemva EXPORT zemva
  COMPONENT library
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT library)
install(EXPORT zemva NAMESPACE zemva:: FILE zemva-targets.cmake DESTINATION ${zemva_package_dir}
  COMPONENT library)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zemva-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES cmake/zemva-config.cmake ${PROJECT_BINARY_DIR}/zemva-config-version.cmake
  DESTINATION ${zemva_package_dir} COMPONENT library)

set(zemva_prefix_from_pc ${CMAKE_INSTALL_PREFIX})
cmake_path(RELATIVE_PATH zemva_prefix_from_pc
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
if(NOT BUILD_SHARED_LIBS)
  set(zemva_static_flag " -DZEMVA_STATIC")
endif()
configure_file(cmake/zemva.pc.in zemva.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zemva.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT library)
