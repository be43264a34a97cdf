# What is installed where, and the Debian package of it: scripts/package builds that.
include(GNUInstallDirs)

set(programs kestvar-inventory kvi-setup kvi-report kvi-backup kvi-convert)
if(KVI_SERVER)
  list(APPEND programs kvi-server kvi-move)
  install(FILES packaging/kvi-server-backup@.service packaging/kvi-server-backup@.timer
    DESTINATION lib/systemd/system)
  install(FILES docs/server.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kestvar-inventory)
endif()
set(documents ${CMAKE_INSTALL_DATADIR}/doc/kestvar-inventory)
install(TARGETS ${programs})
install(FILES packaging/kestvar-inventory.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/kestvar-inventory.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/org.kestvar.inventory.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/copyright DESTINATION ${documents})

# scripts/package has built it before.
install(DIRECTORY build/manual DESTINATION ${documents} OPTIONAL)

# Where Debian's readers of documentation find the manual.
install(FILES packaging/kestvar-inventory.doc-base
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base RENAME kestvar-inventory)

# Menus that cannot draw the scalable icon take one of these.
set(icons)
foreach(size 48 128)
  set(icon ${CMAKE_BINARY_DIR}/packaging/${size}/kestvar-inventory.png)
  add_custom_command(OUTPUT ${icon}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packaging/${size}
    COMMAND rsvg-convert -w ${size} -h ${size} -o ${icon}
      ${CMAKE_CURRENT_SOURCE_DIR}/packaging/kestvar-inventory.svg
    DEPENDS packaging/kestvar-inventory.svg)
  install(FILES ${icon}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  list(APPEND icons ${icon})
endforeach()

# Compressed without a time, so that two builds are the same.
set(compressed)
function(install_compressed source folder)
  get_filename_component(name ${source} NAME)
  set(result ${CMAKE_BINARY_DIR}/packaging/${name}.gz)
  add_custom_command(OUTPUT ${result}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packaging
    COMMAND gzip -9nc ${CMAKE_CURRENT_SOURCE_DIR}/${source} > ${result}
    DEPENDS ${source})
  install(FILES ${result} DESTINATION ${folder})
  set(compressed ${compressed} ${result} PARENT_SCOPE)
endfunction()
install_compressed(packaging/changelog ${documents})
foreach(program ${programs})
  install_compressed(packaging/man/${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
add_custom_target(package_files ALL DEPENDS ${icons} ${compressed})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestvar-inventory)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Kestvar Inventory developers <developers@kestvar.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "spare parts inventory of a stockroom")
set(CPACK_PACKAGE_DESCRIPTION
"A part master with three linked units and three vendors, bills of parts,
physical counts with variance, purchases, orders and receiving, invoices,
locked periods, valuation, and printed count sheets, reorder lists, labels
and valuations. One program on each desk, one database file on a shared
folder, no server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins, fonts-liberation")
# The manual opens in a browser.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, firefox-esr | www-browser")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gnumeric | libreoffice-calc, cups, postgresql (>= 15)")
include(CPack)
