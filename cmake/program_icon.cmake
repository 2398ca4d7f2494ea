# The program's icon for the Windows resource (.ico) and the Linux desktop entry (.png), made
# at build time from the window icon's XPM, so that the picture is drawn in one place only.
find_program(TGX_IMAGEMAGICK_CONVERT convert)
if(NOT TGX_IMAGEMAGICK_CONVERT)
  message(FATAL_ERROR "ImageMagick's convert is needed for the program icon (apt-get install imagemagick)")
endif()
set(TGX_ICON_XPM "${CMAKE_SOURCE_DIR}/src/desktop/icon_program.xpm")
set(TGX_PROGRAM_ICO "${CMAKE_BINARY_DIR}/icons/icon_program.ico")
set(TGX_PROGRAM_PNG "${CMAKE_BINARY_DIR}/icons/tgxconfig.png")
# -strip: no time stamps in the files, so that a rebuild gives the same bytes.
add_custom_command(OUTPUT "${TGX_PROGRAM_ICO}"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/icons"
  COMMAND ${TGX_IMAGEMAGICK_CONVERT} "${TGX_ICON_XPM}" -strip -define icon:auto-resize=32,16 "${TGX_PROGRAM_ICO}"
  DEPENDS "${TGX_ICON_XPM}" VERBATIM)
add_custom_command(OUTPUT "${TGX_PROGRAM_PNG}"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/icons"
  COMMAND ${TGX_IMAGEMAGICK_CONVERT} "${TGX_ICON_XPM}" -strip "${TGX_PROGRAM_PNG}"
  DEPENDS "${TGX_ICON_XPM}" VERBATIM)
if(NOT WIN32)
  add_custom_target(tgx_program_icon ALL DEPENDS "${TGX_PROGRAM_PNG}")
endif()
