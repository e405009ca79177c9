# The three kinds of target this project has, each made by one function, so that every library,
# test program and benchmark gets the same language level, warnings and sanitizers.

add_library(snippetarium_options INTERFACE)
target_compile_features(snippetarium_options INTERFACE cxx_std_20)
target_compile_options(snippetarium_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Version 12 warns of overlapping copies inside std::string's operator+ where there are none.
    target_compile_options(snippetarium_options INTERFACE -Wno-restrict)
endif()
if(SNIPPETARIUM_WARNINGS_AS_ERRORS)
    target_compile_options(snippetarium_options INTERFACE -Werror)
endif()
if(SNIPPETARIUM_SANITIZE)
    target_compile_options(snippetarium_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(snippetarium_options INTERFACE -fsanitize=address,undefined)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(SNIPPETARIUM_BIN ${CMAKE_BINARY_DIR}/bin)

# snippetarium_library(FOLDER SOURCES file... [LINKS target...] [PRIVATE_LINKS target...])
# makes the library snippetarium_FOLDER; its headers are included as "FOLDER/name.h".
function(snippetarium_library folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;PRIVATE_LINKS")
    add_library(snippetarium_${folder} STATIC ${arg_SOURCES})
    target_include_directories(snippetarium_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(snippetarium_${folder}
        PUBLIC snippetarium_options ${arg_LINKS}
        PRIVATE ${arg_PRIVATE_LINKS})
endfunction()

# snippetarium_test(FOLDER SOURCES file... LINKS target...) makes one test program for one folder.
function(snippetarium_test folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_executable(${folder}_tests ${arg_SOURCES})
    set_target_properties(${folder}_tests PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${folder}_tests PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${folder}_tests PRIVATE ${arg_LINKS} GTest::gtest GTest::gtest_main)
    gtest_discover_tests(${folder}_tests TEST_PREFIX ${folder}/ DISCOVERY_TIMEOUT 60)
endfunction()

# snippetarium_benchmark(NAME SOURCES file... LINKS target...) makes the program bench_NAME.
function(snippetarium_benchmark name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_executable(bench_${name} ${arg_SOURCES})
    set_target_properties(bench_${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    target_include_directories(bench_${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(bench_${name} PRIVATE ${arg_LINKS} benchmark::benchmark)
endfunction()
