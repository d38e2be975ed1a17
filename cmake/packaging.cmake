# The package of Debian: cpack -G DEB.
find_program(DATE_PROGRAM date)
find_program(GZIP_PROGRAM gzip)
if(NOT DATE_PROGRAM OR NOT GZIP_PROGRAM)
    return()
endif()

set(CPACK_PACKAGE_CONTACT "Veldrune Map Editor contributors <veldrune@example.org>") # a placeholder
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the tools can't see: Qt's platforms besides X11, and a font.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-qpa-plugins, qt6-wayland, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"editor for the maps and scripts of a ROM image
Veldrune Map Editor shows and changes the maps of one Super Nintendo
role-playing game, working straight on the ROM image file. Paint layers
and world maps, change properties, people, chests, triggers and
entrances, and edit event scripts.
.
A companion for the terminal, veldrune-inspect, lists what is in an
image, finds what is broken, compares two images and draws maps as
pictures.
.
No image of the game comes with the program.")

# The date of the release stands in the changelog, and in every file of the package.
function(release_date result)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${DATE_PROGRAM} --utc
                            --date=${VELDRUNE_DATE} ${ARGN}
                    OUTPUT_VARIABLE text OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(${result} ${text} PARENT_SCOPE)
endfunction()
release_date(VELDRUNE_EPOCH +%s)
release_date(VELDRUNE_MAIL_DATE --rfc-email)

# The licence as a field of the copyright file.
file(READ LICENSE VELDRUNE_LICENSE)
string(REGEX REPLACE "^.*\n(Permission .*[^\n])\n*$" "\\1" VELDRUNE_LICENSE "${VELDRUNE_LICENSE}")
string(REPLACE "\n\n" "\n.\n" VELDRUNE_LICENSE "${VELDRUNE_LICENSE}")
string(REPLACE "\n" "\n " VELDRUNE_LICENSE " ${VELDRUNE_LICENSE}")

foreach(name changelog.Debian copyright)
    configure_file(packaging/debian/${name}.in packaging/${name} @ONLY)
endforeach()
configure_file(cmake/debian_options.cmake.in debian_options.cmake @ONLY)
configure_file(cmake/debian_tree.cmake.in debian_tree.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/debian_options.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_BINARY_DIR}/debian_tree.cmake)
include(CPack)
