# Makes a C++ header of a text: cmake -D TEXT=... -D NAME=... -D READER=... -D HEADER=... -P embed.cmake
#
# demo/assets/FOLDER/NAME.txt becomes the lines assets::NAME, checked line by line by check_FOLDER of
# the reader's header. #line makes a compiler complain about the text, not about the header.
cmake_path(GET NAME STEM variable)
cmake_path(GET NAME PARENT_PATH folder)
cmake_path(GET folder FILENAME folder)
file(READ ${TEXT} text)
string(REPLACE "\r" "" text "${text}")
string(REGEX REPLACE "([^\n])$" "\\1\n" text "${text}")
string(REGEX REPLACE "([^\n]*)\n" "R\"~(\\1)~\",\n" lines "${text}")
string(REGEX REPLACE "[^\n]*\n" "static_assert(sizeof(AssetLine<fault.on(__LINE__)>));\n"
       checks "${text}")
file(WRITE ${HEADER} "#pragma once
#include \"${READER}\"
namespace veldrune::demo::assets {
inline constexpr std::string_view ${variable}_lines[] = {
#line 1 \"${NAME}\"
${lines}};
inline constexpr AssetText ${variable}{${variable}_lines};
namespace check_of_${variable} {
inline constexpr Fault fault = check_${folder}(${variable});
#line 1 \"${NAME}\"
${checks}} // namespace check_of_${variable}
} // namespace veldrune::demo::assets
")
