# Makes a C++ header from a text: cmake -D TEXT=... -D NAME=... -D READER=... -D HEADER=... -P embed.cmake
#
# The lines of demo/assets/FOLDER/NAME.txt become assets::NAME, which check_FOLDER of the READER header
# checks. Because of #line, compile errors point to the text, not to the header.
cmake_path(GET NAME STEM variable)
cmake_path(GET NAME PARENT_PATH folder)
cmake_path(GET folder FILENAME folder)
file(READ ${TEXT} text)
string(REPLACE "\r" "" text "${text}")
string(REGEX REPLACE "([^\n])$" "\\1\n" text "${text}")
string(REGEX REPLACE "([^\n]*)\n" "R\"~(\\1)~\",\n" lines "${text}")
string(REGEX REPLACE "[^\n]*\n" "static_assert(sizeof(AssetLine<first_error.on(__LINE__)>));\n"
       checks "${text}")
file(WRITE ${HEADER} "#pragma once
#include \"${READER}\"
namespace veldrune::demo::assets {
inline constexpr std::string_view ${variable}_lines[] = {
#line 1 \"${NAME}\"
${lines}};
inline constexpr AssetText ${variable}{${variable}_lines};
namespace check_of_${variable} {
inline constexpr FirstError first_error = check_${folder}(${variable});
#line 1 \"${NAME}\"
${checks}} // namespace check_of_${variable}
} // namespace veldrune::demo::assets
")
