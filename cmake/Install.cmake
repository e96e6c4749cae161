# Installing: the libraries, programs, headers, translations and desktop entry
# in the GNU layout, found through run paths relative to the program or
# library itself, so that the tree works under any prefix; an exported CMake
# package and a pkg-config file for programs built against the library.
# Included by the top CMakeLists.txt once every target exists.

include(CMakePackageConfigHelpers)

# Where the programs find the libraries: relative to the program's own folder.
file(RELATIVE_PATH MP_BIN_TO_LIB /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
set(MP_INSTALL_PROGRAMS mediaplayer mp-scan mp-samplegen qcop mp-mpris)
set_target_properties(${MP_INSTALL_PROGRAMS} PROPERTIES INSTALL_RPATH "$ORIGIN/${MP_BIN_TO_LIB}")
# The libraries find each other beside themselves; the main-window library's
# run path also serves its by-name dlopen of the setup and address-book
# libraries, which lie beside it.
set(MP_INSTALL_LIBRARIES mp_mainwindow mp_platform mp_commonplayer vemo_mp_setuplib vemoaddrbk)
set_target_properties(${MP_INSTALL_LIBRARIES} PROPERTIES INSTALL_RPATH "$ORIGIN")
# The libraries a program links carry the project's version and a SONAME of
# its major version; the two opened by name stay as the phone names them.
set_target_properties(mp_mainwindow mp_platform mp_commonplayer PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
set_target_properties(mp_mainwindow PROPERTIES EXPORT_NAME MainWindow)
set_target_properties(mp_platform PROPERTIES EXPORT_NAME Platform)
set_target_properties(mp_commonplayer PROPERTIES EXPORT_NAME CommonPlayer)
# The installed headers include Qt's.
target_link_libraries(mp_mainwindow INTERFACE Qt6::Widgets)

set(MP_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/mediaplayer)
set(MP_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/MediaPlayerMainWindow)

install(TARGETS mp_mainwindow mp_platform mp_commonplayer EXPORT MediaPlayerMainWindowTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  INCLUDES DESTINATION ${MP_INSTALL_INCLUDEDIR})
install(TARGETS vemo_mp_setuplib vemoaddrbk LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime)
install(TARGETS ${MP_INSTALL_PROGRAMS} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Tools)

# The compiled translations (the platform library carries them as resources too).
file(GLOB MP_TRANSLATION_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/translations/*.ts)
foreach(ts_file ${MP_TRANSLATION_SOURCES})
  get_filename_component(ts_name ${ts_file} NAME_WE)
  install(FILES ${CMAKE_BINARY_DIR}/host/platform/${ts_name}.qm
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mediaplayer/translations COMPONENT Runtime)
endforeach()

# The headers of a host or a port: the entry points and the window they make,
# the folder list with its list interface, and the platform interfaces.
install(FILES ${CMAKE_SOURCE_DIR}/mainwindow/MP_LibraryEntry.h ${CMAKE_SOURCE_DIR}/mainwindow/MP_MainWindow.h
  DESTINATION ${MP_INSTALL_INCLUDEDIR}/mainwindow COMPONENT Development)
install(FILES ${CMAKE_SOURCE_DIR}/lists/MP_FolderList.h ${CMAKE_SOURCE_DIR}/lists/MP_FileStamp.h ${CMAKE_SOURCE_DIR}/lists/MP_ListInterface.h
  DESTINATION ${MP_INSTALL_INCLUDEDIR}/lists COMPONENT Development)
file(GLOB MP_PLATFORM_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/*.h)
install(FILES ${MP_PLATFORM_HEADERS} DESTINATION ${MP_INSTALL_INCLUDEDIR}/platform COMPONENT Development)

# find_package(MediaPlayerMainWindow CONFIG): MediaPlayerMainWindow::MainWindow
# (with ::Platform and ::CommonPlayer, the host libraries it links).
install(EXPORT MediaPlayerMainWindowTargets NAMESPACE MediaPlayerMainWindow::
  DESTINATION ${MP_INSTALL_CMAKEDIR} COMPONENT Development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/MediaPlayerMainWindowConfig.cmake.in
  ${CMAKE_BINARY_DIR}/MediaPlayerMainWindowConfig.cmake INSTALL_DESTINATION ${MP_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/MediaPlayerMainWindowConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/MediaPlayerMainWindowConfig.cmake
  ${CMAKE_BINARY_DIR}/MediaPlayerMainWindowConfigVersion.cmake
  DESTINATION ${MP_INSTALL_CMAKEDIR} COMPONENT Development)

# pkg-config --cflags --libs mediaplayer-mainwindow; its prefix is found from
# the file's own place, so the installed tree can move.
file(RELATIVE_PATH MP_PKGCONFIG_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" MP_PKGCONFIG_TO_PREFIX "${MP_PKGCONFIG_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/mediaplayer-mainwindow.pc.in
  ${CMAKE_BINARY_DIR}/mediaplayer-mainwindow.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/mediaplayer-mainwindow.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
