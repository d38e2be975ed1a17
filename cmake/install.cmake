# What an installation holds. Files that carry the program's version or name are made from the
# templates in packaging/.
foreach(name veldrune.1 veldrune.desktop veldrune.metainfo.xml)
    configure_file(packaging/${name}.in packaging/${name} @ONLY)
endforeach()
set(made ${CMAKE_CURRENT_BINARY_DIR}/packaging)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

if(TARGET veldrune)
    install(TARGETS veldrune)
    install(FILES ${made}/veldrune.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${made}/veldrune.desktop RENAME ${VELDRUNE_APP_ID}.desktop
            DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES ${made}/veldrune.metainfo.xml RENAME ${VELDRUNE_APP_ID}.metainfo.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES packaging/veldrune.svg RENAME ${VELDRUNE_APP_ID}.svg
            DESTINATION ${icons}/scalable/apps)
    foreach(side 16 32 48 256)
        install(FILES packaging/veldrune-${side}.png RENAME ${VELDRUNE_APP_ID}.png
                DESTINATION ${icons}/${side}x${side}/apps)
    endforeach()
endif()

if(TARGET veldrune-inspect)
    install(TARGETS veldrune-inspect)
    # The build makes these two.
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/share/man/man1/veldrune-inspect.1
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/share/bash-completion/completions/veldrune-inspect
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()

install(FILES LICENSE CHANGELOG.md docs/user-guide.md docs/image-format.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
file(READ docs/user-guide.md guide)
string(REGEX MATCHALL "images/[a-z-]+[.]png" pictures "${guide}")
list(TRANSFORM pictures PREPEND docs/)
install(FILES ${pictures} DESTINATION ${CMAKE_INSTALL_DOCDIR}/images)
