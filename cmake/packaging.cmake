# Installation and the two packages: a .deb through CPack (Linux) and an MSI through wixl
# (Windows). Included at the end of the top-level CMakeLists.txt, deferred, so that every program
# target exists by then: tgxcfg is installed beside tgxconfig when the tree has it.
# The gateway simulator is a stand-in for tests and demos: it is never installed.
include(GNUInstallDirs)

set(TGX_INSTALLED_PROGRAMS tgxconfig)
if(TARGET tgxcfg)
  list(APPEND TGX_INSTALLED_PROGRAMS tgxcfg)
endif()

if(WIN32)
  # The MSI: `cmake --build BUILD --target msi`, or `make package-windows`.
  find_program(TGX_WIXL wixl)
  # wixl takes source files relative to its working folder, the build folder.
  set(TGX_MSI_TGXCONFIG "$<TARGET_FILE_NAME:tgxconfig>")
  file(RELATIVE_PATH TGX_MSI_ICON "${CMAKE_BINARY_DIR}" "${TGX_PROGRAM_ICO}")
  set(TGX_MSI_TGXCFG_COMPONENT "")
  set(TGX_MSI_TGXCFG_REF "")
  if(TARGET tgxcfg)
    set(TGX_MSI_TGXCFG_COMPONENT
"            <Component Id=\"Tgxcfg\" Guid=\"178DF181-012E-4EAE-AC1C-4827EA576D3F\" Win64=\"yes\">
              <File Id=\"tgxcfg.exe\" Name=\"tgxcfg.exe\" Source=\"$<TARGET_FILE_NAME:tgxcfg>\" KeyPath=\"yes\"/>
            </Component>")
    set(TGX_MSI_TGXCFG_REF "      <ComponentRef Id=\"Tgxcfg\"/>")
  endif()
  configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/tgxconfig.wxs.in"
                 "${CMAKE_BINARY_DIR}/packaging/tgxconfig.wxs.in" @ONLY)
  # The generator expressions (the programs' paths) are filled in at generation time.
  file(GENERATE OUTPUT "${CMAKE_BINARY_DIR}/packaging/tgxconfig.wxs"
       INPUT "${CMAKE_BINARY_DIR}/packaging/tgxconfig.wxs.in")
  set(TGX_MSI "${CMAKE_BINARY_DIR}/tgxconfig-${PROJECT_VERSION}-x64.msi")
  if(TGX_WIXL)
    add_custom_command(OUTPUT "${TGX_MSI}"
      COMMAND ${TGX_WIXL} --arch x64 -o "${TGX_MSI}" "${CMAKE_BINARY_DIR}/packaging/tgxconfig.wxs"
      DEPENDS ${TGX_INSTALLED_PROGRAMS} "${TGX_PROGRAM_ICO}" "${CMAKE_BINARY_DIR}/packaging/tgxconfig.wxs"
      WORKING_DIRECTORY "${CMAKE_BINARY_DIR}" COMMENT "Building the MSI installer" VERBATIM)
    add_custom_target(msi DEPENDS "${TGX_MSI}")
  else()
    add_custom_target(msi COMMAND ${CMAKE_COMMAND} -E echo "wixl not found: apt-get install wixl" COMMAND false)
  endif()
  return()
endif()

# Linux: the programs, a desktop entry and the icon; `make package-deb` builds the .deb.
install(TARGETS ${TGX_INSTALLED_PROGRAMS} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES "${CMAKE_SOURCE_DIR}/packaging/linux/tgxconfig.desktop" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES "${TGX_PROGRAM_PNG}" DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/32x32/apps)

set(CPACK_PACKAGE_NAME tgxconfig)
set(CPACK_PACKAGE_VENDOR "TARN SYSTEMS LTD")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Configuration Utility for TG7-Plus HART Gateway")
set(CPACK_PACKAGE_DESCRIPTION
  "The desktop configuration tool for the TG7-Plus HART gateway (tgxconfig) and its console companion (tgxcfg).")
set(TGX_PACKAGE_CONTACT "TARN SYSTEMS LTD" CACHE STRING "Maintainer field of the .deb")
set(CPACK_PACKAGE_CONTACT "${TGX_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_FILE_NAME "tgxconfig_${PROJECT_VERSION}_amd64")
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)  # the wxWidgets and C++ runtime packages, from the programs
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
include(CPack)
