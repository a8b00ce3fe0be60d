# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

# What every target of ours is compiled with: C++20, warnings (which stop the build in the developers'
# presets only), and Qt without its implicit conversions or anything a later Qt 6 deprecates.
add_library(norvane-strict INTERFACE)
target_compile_features(norvane-strict INTERFACE cxx_std_20)
target_compile_options(norvane-strict INTERFACE
    -Wall -Wextra -Wpedantic
    -Wcast-align -Wconversion -Wextra-semi -Wformat=2 -Wimplicit-fallthrough
    -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wundef
    # In a unity build a name of one file would shadow that of another.
    $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>
)
target_compile_definitions(norvane-strict INTERFACE
    QT_DISABLE_DEPRECATED_BEFORE=0x060800
    QT_DISABLE_DEPRECATED_UP_TO=0x060800
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_NO_JAVA_STYLE_ITERATORS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_URL_CAST_FROM_STRING
    QT_USE_QSTRINGBUILDER
)
