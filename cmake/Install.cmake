# What is installed, and the Debian package made of it (scripts/package).
set(CMAKE_INSTALL_DOCDIR share/doc/spoolwright) # A Debian package is written in small letters.
include(GNUInstallDirs)
set(installed ${PROJECT_SOURCE_DIR}/data)

install(TARGETS spoolwright RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${installed}/desktop/spoolwright.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${installed}/desktop/example.spoolwright.spoolwright.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${installed}/mime/spoolwright.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${installed}/icons/app-icon.svg DESTINATION ${icons}/scalable/apps RENAME spoolwright.svg)
install(FILES ${installed}/symbols/spool.fill.svg DESTINATION ${icons}/symbolic/apps
    RENAME spoolwright-symbolic.svg)
# Launchers without a drawer for vectors take these.
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
    foreach(side IN ITEMS 16 22 24 32 48 64 128 256 512)
        set(picture ${PROJECT_BINARY_DIR}/icons/${side}/spoolwright.png)
        add_custom_command(OUTPUT ${picture}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/icons/${side}
            COMMAND ${RSVG_CONVERT} -w ${side} -h ${side} -o ${picture} ${installed}/icons/app-icon.svg
            DEPENDS ${installed}/icons/app-icon.svg)
        list(APPEND pictures ${picture})
        install(FILES ${picture} DESTINATION ${icons}/${side}x${side}/apps)
    endforeach()
    add_custom_target(icons ALL DEPENDS ${pictures})
else()
    message(WARNING "rsvg-convert is missing: only the drawn icon is installed")
endif()

find_program(GZIP gzip REQUIRED)
# compressed(SOURCE DESTINATION NAME): installs SOURCE as DESTINATION/NAME.gz, the same bytes at each build.
function(compressed source destination name)
    string(REPLACE "/" "-" stem ${destination}-${name})
    set(archive ${PROJECT_BINARY_DIR}/compressed/${stem}.gz)
    add_custom_command(OUTPUT ${archive}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/compressed
        COMMAND ${GZIP} -9 -n -c ${source} > ${archive}
        DEPENDS ${source} VERBATIM)
    add_custom_target(compressed-${stem} ALL DEPENDS ${archive})
    install(FILES ${archive} DESTINATION ${destination} RENAME ${name}.gz)
endfunction()
compressed(${installed}/man/spoolwright.1 ${CMAKE_INSTALL_MANDIR}/man1 spoolwright.1)
compressed(${installed}/man/spoolwright.fr.1 ${CMAKE_INSTALL_MANDIR}/fr/man1 spoolwright.1)
compressed(${installed}/debian/changelog ${CMAKE_INSTALL_DOCDIR} changelog.Debian)
compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${CMAKE_INSTALL_DOCDIR} changelog)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${installed}/licences/third-party.txt DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${installed}/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME spoolwright)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Spoolwright <contact@spoolwright.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "stock of filament for a 3D printer")
set(CPACK_PACKAGE_DESCRIPTION "Spoolwright keeps the stock of filament of one maker: which material, brand
and colour, where the spools lie, how many are left and how many of them
are opened. Its window speaks French.")
set(CPACK_PACKAGE_HOMEPAGE_URL https://spoolwright.example/)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# Symbols are drawn by a plugin, and Qt's French is read from its files: no linker sees them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-translations-l10n")
# Native file dialogs, Wayland, and a font where there is none.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "qt6-gtk-platformtheme | qt6-xdgdesktopportal-platformtheme, qt6-wayland, fonts-inter | fonts-dejavu-core")
include(CPack)
