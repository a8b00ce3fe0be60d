# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

# Run by `cmake --install`. Puts the files that lead to Norvane where they are looked for:
# in a system's folders for any system prefix, in the user's own for a prefix inside the home folder.
set(data "@NORVANE_DATA_FOLDER@")
set(units "@NORVANE_UNIT_FOLDER@")
set(autostart "@NORVANE_AUTOSTART_FOLDER@")
set(source "@CMAKE_CURRENT_SOURCE_DIR@")
set(build "@CMAKE_CURRENT_BINARY_DIR@")
set(prefix "${CMAKE_INSTALL_PREFIX}")

# A relative folder counts from the prefix.
function(full_path variable folder)
    cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY "${prefix}" NORMALIZE)
    set(${variable} "${folder}" PARENT_SCOPE)
endfunction()
full_path(CMAKE_INSTALL_FULL_BINDIR "@CMAKE_INSTALL_BINDIR@")
full_path(CMAKE_INSTALL_FULL_LIBEXECDIR "@CMAKE_INSTALL_LIBEXECDIR@")

# The folder that a variable of the environment names, or that below the home folder.
function(user_folder variable name fallback)
    set(folder "$ENV{${name}}")
    if(NOT IS_ABSOLUTE "${folder}")
        set(folder "$ENV{HOME}/${fallback}")
    endif()
    set(${variable} "${folder}" PARENT_SCOPE)
endfunction()

set(home "$ENV{HOME}")
cmake_path(IS_PREFIX home "${prefix}" NORMALIZE is_in_home)
if(is_in_home AND IS_ABSOLUTE "${home}" AND NOT home STREQUAL "/")
    user_folder(default_data XDG_DATA_HOME .local/share)
    user_folder(default_autostart XDG_CONFIG_HOME .config)
    string(APPEND default_autostart /autostart)
    set(default_units "${default_data}/systemd/user")
elseif(prefix MATCHES "^/usr(/local)?/?$")
    full_path(default_data "@CMAKE_INSTALL_DATADIR@")
    full_path(default_units lib/systemd/user)
    set(default_autostart /etc/xdg/autostart)
else() # Neither bus nor desktop looks below /opt.
    set(default_data /usr/local/share)
    set(default_units /usr/local/lib/systemd/user)
    set(default_autostart /etc/xdg/autostart)
endif()
foreach(folder data units autostart)
    if(${folder} STREQUAL "")
        set(${folder} "${default_${folder}}")
    else()
        full_path(${folder} "${${folder}}")
    endif()
endforeach()

# Writes a template with the installed programs' paths into a folder, below DESTDIR if there is one.
function(install_template template folder name)
    configure_file("${source}/${template}.in" "${build}/installed/${name}" @ONLY)
    file(INSTALL "${build}/installed/${name}" DESTINATION "${folder}")
    # What is installed here belongs into install_manifest.txt, which tells how to remove it again.
    set(CMAKE_INSTALL_MANIFEST_FILES "${CMAKE_INSTALL_MANIFEST_FILES}" PARENT_SCOPE)
endfunction()
install_template(org.norvane.Norvane.desktop "${data}/applications" org.norvane.Norvane.desktop)
install_template(org.norvane.Norvane.service "${data}/dbus-1/services" org.norvane.Norvane.service)
install_template(org.norvane.NotificationCenter.service "${data}/dbus-1/services"
    org.norvane.NotificationCenter.service)
install_template(norvane-notifier.service "${units}" norvane-notifier.service)
install_template(org.norvane.NotificationCenter-autostart.desktop "${autostart}"
    org.norvane.NotificationCenter.desktop)
file(INSTALL "${build}/org.norvane.Norvane.metainfo.xml" DESTINATION "${data}/metainfo")
file(INSTALL "${source}/icons/scalable/org.norvane.Norvane.svg"
    DESTINATION "${data}/icons/hicolor/scalable/apps")
file(INSTALL "${source}/icons/16/org.norvane.Norvane.svg"
    DESTINATION "${data}/icons/hicolor/16x16/apps")
file(INSTALL "${source}/icons/symbolic/org.norvane.Norvane-symbolic.svg"
    DESTINATION "${data}/icons/hicolor/symbolic/apps")
# Programs take an icon from 22x22 for 24 pixels too, and never look into 24x24 then.
file(INSTALL "${source}/icons/symbolic-22/org.norvane.Norvane-symbolic.svg"
    DESTINATION "${data}/icons/hicolor/22x22/apps")
