# Makes files a part of a program.
#
#   snippetarium_embed(OUTPUT NAME.cpp FUNCTION name FOLDER dir FILES file...)
#
# adds the rule that writes OUTPUT, in the build folder: a C++ source that defines the function
# snippetarium::name() with the FILES, named below FOLDER. The source is written anew when one of
# them changes. This file is also the script that the rule runs.

function(snippetarium_embed)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "OUTPUT;FUNCTION;FOLDER" "FILES")
    list(TRANSFORM arg_FILES PREPEND "${arg_FOLDER}/" OUTPUT_VARIABLE paths)
    list(JOIN arg_FILES "," names)
    add_custom_command(
        OUTPUT ${arg_OUTPUT}
        COMMAND ${CMAKE_COMMAND} -D OUTPUT=${arg_OUTPUT} -D FUNCTION=${arg_FUNCTION}
                -D FOLDER=${arg_FOLDER} -D NAMES=${names}
                -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
        DEPENDS ${paths} ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
        COMMENT "Writing ${arg_OUTPUT}"
        VERBATIM)
endfunction()

if(NOT CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    return()
endif()

cmake_minimum_required(VERSION 3.25)
string(REPLACE "," ";" names "${NAMES}")
list(LENGTH names count)
set(entries "")
foreach(name IN LISTS names)
    # Byte by byte, so that no encoding and no line end is changed on the way.
    file(READ "${FOLDER}/${name}" bytes HEX)
    string(LENGTH "${bytes}" digits)
    math(EXPR size "${digits} / 2")
    string(REGEX REPLACE "(..)" "\\\\x\\1" literal "${bytes}")
    string(APPEND entries "    EmbeddedFile{\"${name}\", {\"${literal}\", ${size}}},\n")
endforeach()
file(WRITE "${OUTPUT}" "\
// Written by cmake/EmbedFiles.cmake. Change the files under data/ instead.

#include \"support/embedded_file.h\"

#include <array>
#include <span>

namespace snippetarium {

namespace {

constexpr std::array<EmbeddedFile, ${count}> kFiles = {
${entries}};

}  // namespace

std::span<const EmbeddedFile> ${FUNCTION}() {
    return kFiles;
}

}  // namespace snippetarium
")
