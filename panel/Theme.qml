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
    // The radius of the corners of the panel's window, 0 if they are square; set by that window.
    property real windowCorner: 0

    readonly property font largeTitle: TextStyles.largeTitle
    readonly property font title3: TextStyles.title3
    readonly property font headline: TextStyles.headline
    readonly property font body: TextStyles.body
    readonly property font caption: TextStyles.caption
    readonly property font captionMedium: TextStyles.captionMedium
    // The heights of a line of body text and of a caption.
    readonly property int bodyLine: TextStyles.lineHeight(theme.body)
    readonly property int captionLine: TextStyles.lineHeight(theme.captionMedium)

    // The contrast ratios that text, symbols and outlines must have to their surroundings.
    readonly property real textRatio: Contrast.more ? 7 : 4.5
    readonly property real symbolRatio: Contrast.more ? 4.5 : 3
    readonly property real outlineRatio: Contrast.more ? 7 : 3

    readonly property SystemPalette palette: SystemPalette {}
    readonly property bool dark: theme.palette.window.hslLightness < 0.5
    readonly property color background: theme.palette.window
    // The background under the pointer: mixed slightly with the text colour, or with its opposite
    // (black or white) if the text has little contrast to spare.
    readonly property color lit: Contrast.blended(
        Contrast.ratio(theme.primary, theme.background) > 2 * theme.textRatio ? theme.primary : Contrast.onGround(theme.primary),
        0.06, theme.background)
    readonly property color field: theme.palette.base
    readonly property color bezel: theme.palette.button
    readonly property color bezelText: theme.readable(theme.palette.buttonText, theme.bezel)
    readonly property color primary: theme.readable(theme.palette.windowText, theme.background)
    readonly property color secondary: theme.readable(theme.readable(theme.dark ? "#b4b4bb" : "#5a5a61", theme.lit), theme.background)
    readonly property color fieldText: theme.readable(theme.palette.text, theme.field)
    readonly property color fieldHint: theme.readable(theme.secondary, theme.field)
    readonly property color highlight: theme.palette.highlight
    readonly property color separator: Contrast.blended(theme.primary, Contrast.more ? 0.5 : 0.12, theme.background)
    // The line around the window, visible against any window behind it.
    readonly property color frame: Contrast.blended(theme.primary, Contrast.more ? 0.8 : 0.22, theme.background)
    readonly property color outline: theme.outlined(Contrast.blended(theme.primary, 0.3, theme.background), theme.bezel)
    // The desktop's accent colour: as lines on the background, and as a ground for text.
    readonly property color accent: theme.outlined(theme.highlight, theme.field)
    readonly property color accentText: Contrast.ratio(theme.palette.highlightedText, theme.highlight) >= theme.textRatio
        ? theme.palette.highlightedText : Contrast.onGround(theme.highlight)
    readonly property color accentGround: theme.readable(theme.highlight, theme.accentText)
    readonly property color dangerGround: Contrast.blended(theme.red.symbol, 0.1, theme.bezel)
    readonly property color dangerText: theme.readable(theme.red.text, theme.dangerGround)

    readonly property hue red: theme.hueOf(theme.dark ? "#ff6b61" : "#e0342b")
    readonly property hue orange: theme.hueOf(theme.dark ? "#ff9f1c" : "#f07f00")
    readonly property hue yellow: theme.hueOf(theme.dark ? "#ffd426" : "#f0be00")
    readonly property hue green: theme.hueOf(theme.dark ? "#34d15c" : "#2aa84a")

    // The colour, or the nearest one in which text on this ground can be read.
    function readable(color: color, ground: color): color {
        return Contrast.ensured(color, ground, theme.textRatio)
    }

    // The colour, or the nearest one in which a line is visible on the panel's background, in its
    // fields, and on this ground.
    function outlined(color: color, ground: color): color {
        return Contrast.ensuredOnAll(color, theme.background, theme.field, ground, theme.outlineRatio)
    }

    function hueOf(color: color): hue {
        return Contrast.hue(color, theme.background, theme.lit, theme.textRatio, theme.symbolRatio)
    }

    // The side of a symbol beside text in this font: a multiple of 4, so that it is a whole number of
    // device pixels at scales 1.25 and 1.5 too. 16 for the usual body and caption sizes.
    function symbolSize(font: font): int {
        return 4 * Math.max(1, Math.round(font.pixelSize * 0.26 + 1))
    }
}
