# Building blocks that the folders share.

separate_arguments(PSUI_WARNING_LIST UNIX_COMMAND "${PSUI_WARNINGS}")
separate_arguments(PSUI_SANITIZE_LIST UNIX_COMMAND "${PSUI_SANITIZE}")

# What every one of our targets compiles with: warnings, sanitizers, and the repository as include root.
add_library(psui_options INTERFACE)
target_include_directories(psui_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(psui_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:${PSUI_WARNING_LIST}> ${PSUI_SANITIZE_LIST})
# GCC 12 sees overlapping copies in std::basic_string where there are none (its bug 105651).
target_compile_options(psui_options INTERFACE $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>)
# And under the sanitizers members of a std::function in std::regex that nobody set, though they are (105562).
if(PSUI_SANITIZE)
    target_compile_options(psui_options INTERFACE
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wno-maybe-uninitialized>)
    # Functions are found by name across modules, each side with structures of its own: no two types agree.
    target_compile_options(psui_options INTERFACE
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:Clang>>:-fno-sanitize=function>)
endif()
target_link_options(psui_options INTERFACE ${PSUI_SANITIZE_LIST})

# The platform interface: Windows itself, or our layer with headers of the same names.
add_library(platform INTERFACE)
target_link_libraries(platform INTERFACE psui_options)
if(WIN32)
    target_compile_definitions(platform INTERFACE UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00)
    target_link_libraries(platform INTERFACE winspool advapi32 gdi32 user32 shell32 comctl32 version)
else()
    target_include_directories(platform SYSTEM INTERFACE ${PROJECT_SOURCE_DIR}/host/include)
    target_link_libraries(platform INTERFACE psui_host)
endif()

# psui_precompile(TARGET HEADER...): parses once what most files of a target include. Not in every preset: where it
# is off, a file that lacks an include is found out.
function(psui_precompile target)
    if(PSUI_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# The product folder: psuictl, and one folder a language with the library and its language module.
set(PSUI_PRODUCT_DIR ${PROJECT_BINARY_DIR}/product)

find_program(PSUI_WINDRES x86_64-w64-mingw32-windres REQUIRED)

# psui_add_resources(TARGET SCRIPT [DEPENDS FILE...] [INCLUDES FOLDER...])
# Compiles a resource script (UTF-8) and puts the result into TARGET: linked as usual on Windows, embedded whole
# as a .res file elsewhere, where the layer finds it by the two symbols below. The bytes are the same.
function(psui_add_resources target script)
    cmake_parse_arguments(arg "" "" "DEPENDS;INCLUDES" ${ARGN})
    set(res ${CMAKE_CURRENT_BINARY_DIR}/${target}.res)
    list(TRANSFORM arg_INCLUDES PREPEND "-I")
    add_custom_command(
        OUTPUT ${res}
        COMMAND ${PSUI_WINDRES} --codepage=65001 -I ${PROJECT_SOURCE_DIR} -I ${CMAKE_CURRENT_SOURCE_DIR} ${arg_INCLUDES}
                -O res -i ${CMAKE_CURRENT_SOURCE_DIR}/${script} -o ${res}
        DEPENDS ${script} ${arg_DEPENDS}
        COMMENT "Compiling resources of ${target}"
        VERBATIM)
    if(WIN32)
        set(object ${CMAKE_CURRENT_BINARY_DIR}/${target}_res.obj)
        add_custom_command(OUTPUT ${object}
            COMMAND ${PSUI_WINDRES} -J res -O coff -i ${res} -o ${object}
            DEPENDS ${res} VERBATIM)
        set_source_files_properties(${object} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
        target_sources(${target} PRIVATE ${object})
    else()
        set(assembly ${CMAKE_CURRENT_BINARY_DIR}/${target}_res.S)
        file(WRITE ${assembly}.new
            "    .section .rodata\n    .balign 16\n"
            "    .global host_module_resources\n    .global host_module_resources_end\n"
            "host_module_resources:\n    .incbin \"${res}\"\n"
            "host_module_resources_end:\n    .byte 0\n    .section .note.GNU-stack,\"\",%progbits\n")
        file(COPY_FILE ${assembly}.new ${assembly} ONLY_IF_DIFFERENT)
        set_source_files_properties(${assembly} PROPERTIES OBJECT_DEPENDS ${res})
        target_sources(${target} PRIVATE ${assembly})
    endif()
endfunction()

# psui_export(TARGET FILE.def): exports what the file lists, and nothing else.
function(psui_export target definition)
    set(definition ${CMAKE_CURRENT_SOURCE_DIR}/${definition})
    if(WIN32)
        target_sources(${target} PRIVATE ${definition})
    else()
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${definition})
        file(STRINGS ${definition} names REGEX "^ +[A-Za-z]")
        string(REGEX REPLACE " +([A-Za-z0-9]+)" "\\1" names "${names}")
        list(APPEND names DllMain host_module_resources host_module_resources_end)
        list(JOIN names "; " names)
        set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.ver)
        file(CONFIGURE OUTPUT ${script} CONTENT "{ global: ${names}; local: *; };\n")
        target_link_options(${target} PRIVATE -Wl,--version-script=${script})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    endif()
endfunction()

# A module that the product loads by its Windows file name.
function(psui_module target name directory)
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${name} SUFFIX "" NO_SONAME ON
        LIBRARY_OUTPUT_DIRECTORY ${directory} RUNTIME_OUTPUT_DIRECTORY ${directory}
        ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/import/${target})
endfunction()

# The programs that the thread sanitizer runs.
add_custom_target(concurrency_tests)

separate_arguments(PSUI_TEST_FLAG_LIST UNIX_COMMAND "${PSUI_TEST_FLAGS}")

# What test programs compile with, and where they get their precompiled headers: from a program of their kind that is
# nothing else. On Windows there is one test program, which defines what the platform's headers look at.
function(psui_test_options name)
    target_link_libraries(${name} PRIVATE platform psui_gtest)
    target_compile_options(${name} PRIVATE ${PSUI_TEST_FLAG_LIST})
    if(WIN32 OR name STREQUAL test_headers)
        psui_precompile(${name} <gtest/gtest.h> <windows.h>)
    elseif(PSUI_PRECOMPILE)
        if(NOT TARGET test_headers)
            file(CONFIGURE OUTPUT test_headers.cpp CONTENT "int main() {}\n")
            add_executable(test_headers ${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp)
            psui_test_options(test_headers)
        endif()
        target_precompile_headers(${name} REUSE_FROM test_headers)
    endif()
endfunction()

# psui_test(NAME SOURCES FILE... LIBRARIES LIB... [LABELS LABEL...] [PROPERTIES ...])
# A GoogleTest program; every test in it becomes a ctest test.
function(psui_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
    psui_test_options(${name})
    target_compile_definitions(${name} PRIVATE PSUI_PRODUCT_DIR="${PSUI_PRODUCT_DIR}"
        PSUI_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    if(NOT WIN32)
        # One label, "host-concurrency": a list would be torn apart on its way into the tests' properties.
        list(JOIN arg_LABELS "-" label)
        if(NOT label)
            set(label ${name}) # an empty value would take the next word for itself
        endif()
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
            PROPERTIES LABELS "${label}" TIMEOUT 300)
        if("concurrency" IN_LIST arg_LABELS)
            add_dependencies(concurrency_tests ${name})
        endif()
    endif()
endfunction()
