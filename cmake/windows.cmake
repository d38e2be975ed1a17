# What differs between Windows and the other systems: sources of the same name with an ending for
# the system, and what a program says about itself there.
if(WIN32)
    enable_language(RC)
    set(of_other_systems "_posix[a-z_]*\\.cpp$")
    add_link_options(-Wl,--stack,0x800000) # as much as elsewhere, instead of an eighth of it
else()
    set(of_other_systems "_windows[a-z_]*\\.cpp$")
endif()

# Gives a program its version, its manifest and, where the build makes one, its icon.
function(describe_program target description)
    if(NOT WIN32)
        return()
    endif()
    math(EXPR minor_version "${PROJECT_VERSION_MINOR}") # without leading zeros
    set(resource_version ${PROJECT_VERSION_MAJOR}.${minor_version}.0.0)
    string(REPLACE "." "," numbers_of_version ${resource_version})
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}-resources)
    set(icon_line "")
    if(VELDRUNE_ICON) # an .ico file, named by the build for this system
        set(icon_line "1 ICON \"${VELDRUNE_ICON}\"")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows.manifest.in ${folder}/program.manifest @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows.rc.in ${folder}/program.rc @ONLY)
    target_sources(${target} PRIVATE ${folder}/program.rc)
endfunction()
