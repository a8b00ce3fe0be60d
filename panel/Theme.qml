// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick

import org.norvane.panel

// The panel's measures, text styles and colours, for light and dark desktops.
QtObject {
    id: theme

    readonly property real padding: 16
    readonly property real spacing: 8
    readonly property real corner: 6

    readonly property font largeTitle: TextStyles.largeTitle
    readonly property font title3: TextStyles.title3
    readonly property font headline: TextStyles.headline
    readonly property font body: TextStyles.body
    readonly property font caption: TextStyles.caption
    readonly property font captionMedium: TextStyles.captionMedium

    readonly property SystemPalette palette: SystemPalette {}
    readonly property bool dark: theme.palette.window.hslLightness < 0.5
    readonly property color background: theme.palette.window
    readonly property color field: theme.palette.base
    readonly property color bezel: theme.palette.button
    readonly property color primary: Contrast.readable(theme.palette.windowText, theme.background)
    readonly property color secondary: Contrast.readable(theme.dark ? "#a9a9b0" : "#626268", theme.background)
    readonly property color fieldText: Contrast.readable(theme.palette.text, theme.field)
    readonly property color fieldHint: Contrast.readable(theme.secondary, theme.field)
    readonly property color highlight: theme.palette.highlight
    readonly property color highlightedText: Contrast.readable(theme.palette.highlightedText, theme.highlight)
    readonly property color separator: Contrast.blended(theme.primary, 0.16, theme.background)
    readonly property color outline: Contrast.visible(theme.separator, theme.field)
    readonly property color accent: Contrast.visible(theme.palette.highlight, theme.background)

    readonly property hue red: Contrast.hue(theme.dark ? "#ff6b61" : "#e0342b", theme.background)
    readonly property hue orange: Contrast.hue(theme.dark ? "#ff9f1c" : "#f07f00", theme.background)
    readonly property hue yellow: Contrast.hue(theme.dark ? "#ffd426" : "#f0be00", theme.background)
    readonly property hue green: Contrast.hue(theme.dark ? "#34d15c" : "#2aa84a", theme.background)

    // The side of a symbol that stands beside a text: in fours, which are whole pixels of the screen
    // also at 1.25 and 1.5 times the size, so that its edges stay crisp.
    function symbolSize(font: font): int {
        return 4 * Math.max(1, Math.round(font.pixelSize * 0.325))
    }
}
