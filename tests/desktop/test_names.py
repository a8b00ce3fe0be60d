# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""How names from the file are drawn: long ones, broken ones, and those written from right to left."""

import json
import os
import sys
from contextlib import contextmanager
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.desktop import Desktop, fresh_folder, overlap  # noqa: E402
from support.process import processor_seconds  # noqa: E402
from support.shell import Shell  # noqa: E402
from support.waiting import wait_until  # noqa: E402

BUILD = Path(os.environ["NORVANE_BUILD"])
MOST_CLUSTERS = 1000
BAR = 10  # How wide a scroll bar is.
QUESTIONS = {"en_US": ("Delete", 'Remove "{}" from Norvane?'),
             "de_DE": ("Löschen", '"{}" aus Norvane entfernen?'),
             "ja_JP": ("削除", '"{}"をNorvaneから削除しますか？')}


@pytest.fixture(scope="module")
def desktop():
    with Desktop(fresh_folder(BUILD / "desktop/names")) as started:
        yield started


@contextmanager
def shown(desktop, names, language="en_US"):
    """The open panel with trials of these names."""
    file = desktop.home / ".local/share/Norvane/trials.json"
    file.parent.mkdir(parents=True, exist_ok=True)
    trials = [{"id": f"BA96CA62-A106-480E-9C02-{number:012X}", "name": name, "endDate": 4e9, "cost": 0,
               "notes": "", "createdAt": 0, "notificationIds": []} for number, name in enumerate(names)]
    file.write_text(json.dumps(trials))
    with Shell(desktop, BUILD / "app/norvane", LANG=f"{language}.UTF-8", LANGUAGE=language) as shell:
        desktop.run(shell.program)  # The second one asks the first to show its panel.
        shell.wait_keyboard()
        yield shell
    assert [trial["name"] for trial in json.loads(file.read_text())] == names, "the file keeps names as they are"


def ask_about(desktop, name, language="en_US"):
    """Presses the trash of the one trial; the question as a screen reader finds it."""
    delete, question = QUESTIONS[language]
    desktop.click_on("push button", delete)
    return wait_until(lambda: desktop.find("label", question.format(name)), "the question")


def picture(desktop, file, box):
    x, y, width, height = box
    desktop.run("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "+repage",
                desktop.folder / file)
    return desktop.folder / file


def end_of_line(desktop, file, box):
    """The last letters of a line, cut at the right where they end."""
    whole = picture(desktop, file, box)
    desktop.run("convert", whole, "-trim", "+repage", "-gravity", "east", "-crop", "70x14+0+0", "+repage",
                "-blur", "0x1", desktop.folder / f"end-{file}")
    return desktop.folder / f"end-{file}"


def difference(desktop, one, other):
    """0 for two pictures that are the same, up to 1."""
    return float(desktop.run("convert", one, other, "-compose", "difference", "-composite", "-colorspace", "gray",
                             "-format", "%[fx:mean]", "info:"))


@pytest.mark.parametrize("language", ["de_DE", "ja_JP"])
def test_the_question_ends_as_it_should_around_a_name_from_right_to_left(desktop, language):
    ends = {}
    for name in "Acme", "נטפליקס":
        with shown(desktop, [name], language):
            question = ask_about(desktop, name, language)
            desktop.wait_until_still()
            desktop.screenshot(desktop.folder / f"{language}-{name}.png")
            ends[name] = end_of_line(desktop, f"{language}-{name}-question.png", question["box"])

    assert difference(desktop, *ends.values()) < 0.05


def test_a_name_of_four_megabytes_holds_nothing_up(desktop):
    name = "Ñandú " * 700_000
    with shown(desktop, [name]) as shell:
        (row,) = wait_until(lambda: [node for node in desktop.accessible() if node["role"] == "list item"], "the row")
        assert len(row["name"]) < MOST_CLUSTERS + 100
        worked = processor_seconds(shell.process.pid)
        desktop.click_on("push button", "Delete")
        wait_until(lambda: desktop.find("dialog", "Delete Trial?"), "the question")
        assert processor_seconds(shell.process.pid) - worked < 4
        (question,) = (node for node in desktop.accessible() if node["name"].startswith('Remove "'))
        assert len(question["name"]) < MOST_CLUSTERS + 100


def hint(desktop, name):
    """How high the hint over the row of a shortened name is, and how long Norvane worked on it, in seconds."""
    with shown(desktop, [name]) as shell:
        x, y, width, height = wait_until(lambda: desktop.find("list", "Trials"), "the list")["box"]
        x, y = x + width // 2, y + 4
        desktop.run("xdotool", "mousemove", x, y + 40)  # On the row's second line, which lights up the row.
        desktop.wait_until_still()
        before = desktop.screenshot(desktop.folder / "without-hint.png")

        worked = processor_seconds(shell.process.pid)
        desktop.run("xdotool", "mousemove", x, y + 12)
        after = desktop.folder / "hint.png"
        area = wait_until(lambda: desktop.changed_area(before, desktop.screenshot(after)), "the hint")
        return area[3], processor_seconds(shell.process.pid) - worked


def test_the_hint_of_a_name_of_four_megabytes_comes_at_once_and_has_four_lines(desktop):
    one_line, _ = hint(desktop, "Acme Cloud Storage Premium Family Annual Plan")
    many_lines, seconds = hint(desktop, "Ñandú " * 700_000)

    assert seconds < 2
    frame = 10
    assert abs((many_lines - frame) - 4 * (one_line - frame)) <= 3


def test_line_breaks_and_tabs_in_a_name_look_like_spaces(desktop):
    pictures = []
    for number, name in enumerate(["Netflix Premium Plan", "Netflix\nPremium\tPlan", "Netflix\u2028Premium\u0085Plan"]):
        with shown(desktop, [name]) as shell:
            desktop.run("xdotool", "mousemove", 1200, 700)
            desktop.wait_until_still()
            pictures.append(picture(desktop, f"breaks-{number}.png", shell.popover()))

    assert [desktop.changed_area(pictures[0], other) for other in pictures[1:]] == [None, None]


def box_of(desktop, role):
    (node,) = wait_until(lambda: [node for node in desktop.accessible() if node["role"] == role], f"the {role}")
    return node["box"]


def test_the_scroll_bar_of_a_long_question_has_a_long_handle_and_lies_beside_the_text(desktop):
    name = "Acme " * 190
    with shown(desktop, [name]):
        question = ask_about(desktop, name)
        desktop.wait_until_still()
        desktop.screenshot(desktop.folder / "long-question.png")
        bar = box_of(desktop, "scroll bar")
        handle = desktop.handle_length(bar)

    assert 24 <= handle < bar[3]
    assert not overlap(question["box"], bar)


def test_the_scroll_bar_of_a_long_list_has_a_long_handle_and_lies_beside_the_rows(desktop):
    with shown(desktop, [f"Acme {number}" for number in range(500)]):
        desktop.wait_until_still()
        desktop.screenshot(desktop.folder / "long-list.png")
        x, y, width, height = box_of(desktop, "list")
        bar = (x + width - BAR, y, BAR, height)
        handle = desktop.handle_length(bar)
        buttons = [node["box"] for node in desktop.accessible() if node["role"] == "push button"]

    assert 24 <= handle <= 40
    assert not any(overlap(box, bar) for box in buttons)
