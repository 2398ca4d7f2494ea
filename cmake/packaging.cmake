# Installation and the packages: two .deb packages through CPack (Linux) and an MSI through wixl
# (Windows). Included at the end of the top-level CMakeLists.txt, deferred, so that every program
# target exists by then: tgxcfg is installed beside tgxconfig when the tree has it.
# The gateway simulator is a stand-in for tests and demos: only the Linux try-it package
# tgxconfig-simulator installs it, off the PATH.
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

# Linux: `make package-deb` builds two packages (scripts/check-deb.sh checks them):
#   tgxconfig            tgxconfig and tgxcfg, their manual pages, tgxcfg's bash completion, the
#                        desktop entry with its icon and AppStream metadata;
#   tgxconfig-simulator  the try-it package: the gateway simulator, the sample installation, the
#                        example projects and tgxconfig-demo, which starts the tool on them.
# The manual pages are made at build time from the programs' help (help2man) and from
# docs/tgxconfig.1.md (pandoc), only with TGX_PACKAGE_DEB, so that other builds need neither.
option(TGX_PACKAGE_DEB "Build the manual pages and the changelog of the .deb packages (help2man, pandoc)" OFF)
set(TGX_LINUX "${CMAKE_SOURCE_DIR}/packaging/linux")
set(TGX_PACKAGING "${CMAKE_BINARY_DIR}/packaging")
set(TGX_APPSTREAM_ID "example.tarn_systems.tgxconfig")
# The simulator's tools are named as the suite's (ttbuild, inifile, updater ...): a private folder
# keeps them from clashing with anything in /usr/bin and from standing in for a real suite.
set(TGX_SIMULATOR_BINDIR "lib/tgxconfig-simulator/bin")
set(TGX_SIMULATOR_DATADIR "${CMAKE_INSTALL_DATADIR}/tgxconfig-simulator")
get_directory_property(TGXSIM_TOOLS DIRECTORY "${CMAKE_SOURCE_DIR}/simulator" DEFINITION TGXSIM_TOOLS)
get_directory_property(TGXSIM_BIN_DIR DIRECTORY "${CMAKE_SOURCE_DIR}/simulator" DEFINITION TGXSIM_BIN_DIR)

# The release: the date of the changelog's first entry dates the manual pages and the AppStream
# release; for the packages that entry must be this version's.
file(STRINGS "${TGX_LINUX}/changelog" TGX_CHANGELOG_HEADS REGEX "^tgxconfig \\(")
file(STRINGS "${TGX_LINUX}/changelog" TGX_CHANGELOG_TRAILERS REGEX "^ -- ")
list(GET TGX_CHANGELOG_HEADS 0 TGX_CHANGELOG_HEAD)
list(GET TGX_CHANGELOG_TRAILERS 0 TGX_CHANGELOG_TRAILER)
if(TGX_PACKAGE_DEB AND NOT TGX_CHANGELOG_HEAD MATCHES "^tgxconfig \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR "packaging/linux/changelog: the first entry is not for version ${PROJECT_VERSION}")
endif()
string(REGEX REPLACE "^ -- .*>  " "" TGX_RELEASE_DATE_RFC2822 "${TGX_CHANGELOG_TRAILER}")
execute_process(COMMAND env LC_ALL=C date -u -d "${TGX_RELEASE_DATE_RFC2822}" "+%s|%Y-%m-%d|%B %Y"
                OUTPUT_VARIABLE TGX_RELEASE OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE TGX_DATE_RC)
if(NOT TGX_DATE_RC EQUAL 0)
  message(FATAL_ERROR "packaging/linux/changelog: no date in '${TGX_CHANGELOG_TRAILER}'")
endif()
string(REPLACE "|" ";" TGX_RELEASE "${TGX_RELEASE}")
list(GET TGX_RELEASE 0 TGX_RELEASE_EPOCH)
list(GET TGX_RELEASE 1 TGX_RELEASE_DATE)
list(GET TGX_RELEASE 2 TGX_RELEASE_MONTH)

# The launcher; `make run` starts it too, on the build tree (scripts/run.sh).
set(TGX_DEMO_TOOLS "${CMAKE_INSTALL_PREFIX}/${TGX_SIMULATOR_BINDIR}")
set(TGX_DEMO_INSTALLATION "${CMAKE_INSTALL_PREFIX}/${TGX_SIMULATOR_DATADIR}/installation")
set(TGX_DEMO_EXAMPLES "${CMAKE_INSTALL_PREFIX}/${TGX_SIMULATOR_DATADIR}/examples")
set(TGX_DEMO_PROGRAM "${CMAKE_INSTALL_FULL_BINDIR}/tgxconfig")
configure_file("${TGX_LINUX}/tgxconfig-demo.in" "${TGX_PACKAGING}/tgxconfig-demo" @ONLY)
configure_file("${TGX_LINUX}/tgxconfig.metainfo.xml.in" "${TGX_PACKAGING}/${TGX_APPSTREAM_ID}.metainfo.xml" @ONLY)

# tgxconfig
install(TARGETS ${TGX_INSTALLED_PROGRAMS} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tgxconfig)
install(FILES "${TGX_LINUX}/tgxconfig.desktop" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT tgxconfig)
install(FILES "${TGX_PROGRAM_PNG}" DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/32x32/apps COMPONENT tgxconfig)
install(FILES "${TGX_PACKAGING}/${TGX_APPSTREAM_ID}.metainfo.xml" DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        COMPONENT tgxconfig)
install(FILES "${TGX_LINUX}/tgxcfg.bash-completion" DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME tgxcfg COMPONENT tgxconfig)
install(FILES "${TGX_LINUX}/copyright" "${CMAKE_SOURCE_DIR}/docs/tgxcfg.md"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tgxconfig COMPONENT tgxconfig)

# tgxconfig-simulator: the tools as the build makes them, tgxsim with a link per tool beside it
# (install keeps a link a link), and its map editor window.
install(TARGETS tgxsim tgxsim-mbedit RUNTIME DESTINATION ${TGX_SIMULATOR_BINDIR} COMPONENT simulator)
foreach(tool IN LISTS TGXSIM_TOOLS)
  install(FILES "${TGXSIM_BIN_DIR}/${tool}" DESTINATION ${TGX_SIMULATOR_BINDIR} COMPONENT simulator)
endforeach()
install(DIRECTORY "${CMAKE_SOURCE_DIR}/simulator/installation/" DESTINATION ${TGX_SIMULATOR_DATADIR}/installation
        COMPONENT simulator)
install(DIRECTORY "${CMAKE_SOURCE_DIR}/docs/examples/" DESTINATION ${TGX_SIMULATOR_DATADIR}/examples
        COMPONENT simulator FILES_MATCHING PATTERN "*.prj" PATTERN "*.mb*")
install(PROGRAMS "${TGX_PACKAGING}/tgxconfig-demo" DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT simulator)
install(FILES "${TGX_LINUX}/copyright" "${CMAKE_SOURCE_DIR}/simulator/README.md"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tgxconfig-simulator COMPONENT simulator)

if(TGX_PACKAGE_DEB)
  find_program(TGX_HELP2MAN help2man REQUIRED)
  find_program(TGX_PANDOC pandoc REQUIRED)
  find_program(TGX_GZIP gzip REQUIRED)
  # Dated by the release, not by the build, so that a rebuild gives the same pages.
  set(TGX_RELEASE_ENV ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${TGX_RELEASE_EPOCH})
  add_custom_command(OUTPUT "${TGX_PACKAGING}/tgxcfg-commands.h2m"
    COMMAND bash "${TGX_LINUX}/tgxcfg-commands-h2m.sh" "$<TARGET_FILE:tgxcfg>" "${TGX_PACKAGING}/tgxcfg-commands.h2m"
    DEPENDS tgxcfg "${TGX_LINUX}/tgxcfg-commands-h2m.sh" VERBATIM)
  add_custom_command(OUTPUT "${TGX_PACKAGING}/tgxcfg.1.gz"
    COMMAND ${TGX_RELEASE_ENV} ${TGX_HELP2MAN} --no-info
      --name "configure TG7-Plus HART gateways from the console"
      --include "${TGX_LINUX}/tgxcfg.h2m" --include "${TGX_PACKAGING}/tgxcfg-commands.h2m"
      --output "${TGX_PACKAGING}/tgxcfg.1" "$<TARGET_FILE:tgxcfg>"
    COMMAND ${TGX_GZIP} -9nf "${TGX_PACKAGING}/tgxcfg.1"
    DEPENDS tgxcfg "${TGX_LINUX}/tgxcfg.h2m" "${TGX_PACKAGING}/tgxcfg-commands.h2m" VERBATIM)
  add_custom_command(OUTPUT "${TGX_PACKAGING}/tgxconfig.1.gz"
    COMMAND ${TGX_PANDOC} --standalone --from markdown-smart --to man
      --metadata "footer=tgxconfig ${PROJECT_VERSION}" --metadata "date=${TGX_RELEASE_MONTH}"
      --output "${TGX_PACKAGING}/tgxconfig.1" "${CMAKE_SOURCE_DIR}/docs/tgxconfig.1.md"
    COMMAND ${TGX_GZIP} -9nf "${TGX_PACKAGING}/tgxconfig.1"
    DEPENDS "${CMAKE_SOURCE_DIR}/docs/tgxconfig.1.md" VERBATIM)
  add_custom_command(OUTPUT "${TGX_PACKAGING}/tgxconfig-demo.1.gz"
    COMMAND ${TGX_RELEASE_ENV} ${TGX_HELP2MAN} --no-info
      --name "start the TG7-Plus configuration tool with no gateway"
      --include "${TGX_LINUX}/tgxconfig-demo.h2m"
      --output "${TGX_PACKAGING}/tgxconfig-demo.1" "${TGX_PACKAGING}/tgxconfig-demo"
    COMMAND ${TGX_GZIP} -9nf "${TGX_PACKAGING}/tgxconfig-demo.1"
    DEPENDS "${TGX_PACKAGING}/tgxconfig-demo" "${TGX_LINUX}/tgxconfig-demo.h2m" VERBATIM)
  add_custom_command(OUTPUT "${TGX_PACKAGING}/changelog.gz"
    COMMAND ${CMAKE_COMMAND} -E copy "${TGX_LINUX}/changelog" "${TGX_PACKAGING}/changelog"
    COMMAND ${TGX_GZIP} -9nf "${TGX_PACKAGING}/changelog"
    DEPENDS "${TGX_LINUX}/changelog" VERBATIM)
  add_custom_target(tgx_package_docs ALL DEPENDS "${TGX_PACKAGING}/tgxcfg.1.gz" "${TGX_PACKAGING}/tgxconfig.1.gz"
    "${TGX_PACKAGING}/tgxconfig-demo.1.gz" "${TGX_PACKAGING}/changelog.gz")

  install(FILES "${TGX_PACKAGING}/tgxconfig.1.gz" "${TGX_PACKAGING}/tgxcfg.1.gz"
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tgxconfig)
  install(FILES "${TGX_PACKAGING}/changelog.gz" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tgxconfig COMPONENT tgxconfig)
  install(FILES "${TGX_PACKAGING}/tgxconfig-demo.1.gz" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT simulator)
  install(FILES "${TGX_PACKAGING}/changelog.gz" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tgxconfig-simulator
          COMPONENT simulator)
endif()

set(CPACK_PACKAGE_NAME tgxconfig)
set(CPACK_PACKAGE_VENDOR "TARN SYSTEMS LTD")
set(TGX_DEB_MAINTAINER "TARN SYSTEMS LTD <support@tarn-systems.example>" CACHE STRING "Maintainer field of the .deb packages")
set(CPACK_PACKAGE_CONTACT "${TGX_DEB_MAINTAINER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL tgxconfig simulator)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)  # NAME_VERSION_ARCH.deb
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)  # the wxWidgets and C++ runtime packages, from the programs
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
# Each description: the synopsis, then the extended description, its lines under 80 columns.
set(CPACK_DEBIAN_TGXCONFIG_PACKAGE_NAME tgxconfig)
set(CPACK_DEBIAN_TGXCONFIG_PACKAGE_SUGGESTS tgxconfig-simulator)
set(CPACK_DEBIAN_TGXCONFIG_DESCRIPTION "configuration tool for the TG7-Plus HART gateway
tgxconfig is the desktop tool with which an engineer builds a project for a
TG7-Plus HART gateway (serial port, HART polling, Modbus options, HART devices
and their commands, network ports, time server), saves it, turns it into the
gateway's configuration and sends it to the gateway. It also maintains the
gateway: firmware, Modbus register map, installers, restarts, the virtual COM
port and the devices of a multiplexer behind it.

tgxcfg does the same from a shell, without a window, for scripts and CI jobs.

Every device operation runs a command-line tool of the gateway's software
suite, which is installed separately; the tgxconfig-simulator package stands
in for it on a PC with no gateway.")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME tgxconfig-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SOURCE tgxconfig)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS "tgxconfig (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_SIMULATOR_DESCRIPTION "try-it simulator for the TG7-Plus configuration tool
A stand-in for the TG7-Plus HART gateway and for the tools of its software
suite, with a sample installation and example projects, so that every
workflow of tgxconfig and tgxcfg runs end to end on a PC with no gateway.

tgxconfig-demo starts tgxconfig on them, with a working copy of the sample
installation in ~/.local/state/tgxconfig-demo; 'tgxconfig-demo tgxcfg ...'
runs the console companion the same way. The simulator's tools are installed
off the PATH, in /usr/lib/tgxconfig-simulator/bin, so that they never stand in
for a real installation by accident.")
include(CPack)
