# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

# norvane_helper_program(<target> <folder> <variable>): a program that norvane starts, installed in
# <folder>. It lies in the build tree at the same place as seen from norvane, so that one relative
# path, which <variable> gets, leads to it there and under every prefix.
function(norvane_helper_program target folder variable)
    cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_BINDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
        OUTPUT_VARIABLE programs)
    cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE path)
    cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${programs})
    cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY ${PROJECT_BINARY_DIR}/app NORMALIZE
        OUTPUT_VARIABLE build_folder)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${build_folder})
    set(${variable} ${path}/${target} PARENT_SCOPE)
endfunction()
