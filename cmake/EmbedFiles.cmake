# Makes text files a part of a program.
#
#   snippetarium_embed(OUTPUT NAME.cpp FOLDER dir FILES file...)
#
# adds the rule that writes OUTPUT, in the build folder: a C++ source that defines
# snippetarium::EmbeddedFiles() with the FILES, named below FOLDER. The source is written anew when
# one of them changes. This file is also the script that the rule runs.

function(snippetarium_embed)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "OUTPUT;FOLDER" "FILES")
    list(TRANSFORM arg_FILES PREPEND "${arg_FOLDER}/" OUTPUT_VARIABLE paths)
    list(JOIN arg_FILES "," names)
    add_custom_command(
        OUTPUT ${arg_OUTPUT}
        COMMAND ${CMAKE_COMMAND} -D OUTPUT=${arg_OUTPUT} -D FOLDER=${arg_FOLDER} -D NAMES=${names}
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
    file(READ "${FOLDER}/${name}" text)
    string(FIND "${text}" ")embedded\"" delimiter)
    if(NOT delimiter EQUAL -1)
        message(FATAL_ERROR "${name} holds the text that ends a literal; choose another delimiter.")
    endif()
    string(APPEND entries "    EmbeddedFile{\"${name}\", R\"embedded(${text})embedded\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "\
// Written by cmake/EmbedFiles.cmake. Change the files under data/ instead.

#include \"store/embedded_files.h\"

#include <array>

namespace snippetarium {

namespace {

constexpr std::array<EmbeddedFile, ${count}> kFiles = {
${entries}};

}  // namespace

std::span<const EmbeddedFile> EmbeddedFiles() {
    return kFiles;
}

}  // namespace snippetarium
")
