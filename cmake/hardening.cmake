# What makes an error in a release build harder to abuse, as far as the compiler and the linker of
# the target system know it. The sanitizers do not go together with it.
include(CheckCXXSourceCompiles)

# One protection a row: what takes the flags, and the flags, of which the first known alternative is
# used.
set(hardening_rows
    # Buffers of a known size, return addresses on the stack, targets of jumps.
    "compiler|-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3|-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2"
    "compiler|-fstack-protector-strong"
    "compiler|-fcf-protection"
    # The loader's tables, which it makes read-only.
    "linker|-Wl,-z,relro,-z,now|-Wl,-z,relro"
    # Programs that can be loaded at any address. CMake's property of that name would compile the
    # static libraries as if they were shared ones, and slower.
    "compiler|-fPIE"
    "linker|-pie")

# Whether a program that the flags would change can be made with them, and without a warning.
function(check_hardening kind flags result)
    set(CMAKE_REQUIRED_FLAGS "-O2 -Werror")
    if(kind STREQUAL "compiler")
        string(APPEND CMAKE_REQUIRED_FLAGS " ${flags}")
    else()
        set(CMAKE_REQUIRED_LINK_OPTIONS ${flags})
    endif()
    string(MAKE_C_IDENTIFIER "HAVE${flags}" known)
    check_cxx_source_compiles("
        #include <cstdio>
        #include <cstring>
        int main(int count, char** words) {
            char text[16];
            std::memcpy(text, words[0], static_cast<std::size_t>(count));
            return std::puts(text);
        }" ${known})
    set(${result} ${${known}} PARENT_SCOPE)
endfunction()

# Adds the flags to those of release builds.
macro(harden_releases)
    foreach(row IN LISTS hardening_rows)
        string(REPLACE "|" ";" alternatives "${row}")
        list(POP_FRONT alternatives kind)
        foreach(flags IN LISTS alternatives)
            check_hardening(${kind} "${flags}" known)
            if(known AND kind STREQUAL "compiler")
                string(APPEND CMAKE_CXX_FLAGS_RELEASE " ${flags}")
            elseif(known)
                string(APPEND CMAKE_EXE_LINKER_FLAGS_RELEASE " ${flags}")
            endif()
            if(known)
                break()
            endif()
        endforeach()
    endforeach()
endmacro()
