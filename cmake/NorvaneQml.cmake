# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

# norvane_accept_compiled_qml(<target>): what the QML compiler wrote for a module is not held to our
# warnings. A unity build joins it into one file, without optimization and sanitizers: compiling
# each by itself takes half of the whole build.
function(norvane_accept_compiled_qml target)
    get_target_property(compiled ${target} SOURCES)
    list(FILTER compiled INCLUDE REGEX "/qmlcache/")
    if(NOT CMAKE_UNITY_BUILD)
        set_source_files_properties(${compiled} PROPERTIES COMPILE_OPTIONS -w)
        return()
    endif()
    set(joined ${CMAKE_CURRENT_BINARY_DIR}/${target}_compiled_qml.cpp)
    list(TRANSFORM compiled REPLACE "(.+)" "#include \"\\1\"" OUTPUT_VARIABLE includes)
    list(JOIN includes "\n" includes)
    file(CONFIGURE OUTPUT ${joined} CONTENT "${includes}\n")
    set_source_files_properties(${compiled} PROPERTIES HEADER_FILE_ONLY TRUE)
    set_source_files_properties(${joined} PROPERTIES
        COMPILE_OPTIONS "-w;-O0;-fno-sanitize=all"
        OBJECT_DEPENDS "${compiled}"
        SKIP_AUTOGEN TRUE)
    target_sources(${target} PRIVATE ${joined})
endfunction()
