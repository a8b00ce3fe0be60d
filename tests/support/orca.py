# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The screen reader Orca on a virtual desktop, and the words that its user hears.

Orca hands its words to a speech server over a socket. Here that server is a thread of the test,
which makes no sound, writes down each utterance, and wakes whoever waits for one.
"""

import html
import json
import re
import socketserver
import threading
import time

SETTINGS = {
    "general": {"firstStart": False, "startingProfile": ["Default", "default"]},
    # What was typed is not repeated: only what Norvane has to say is heard.
    "profiles": {"default": {"profile": ["Default", "default"], "enableKeyEcho": False}},
    "pronunciations": {},
    "keybindings": {},
}
ANSWERS = {
    "HISTORY GET CLIENT_ID": "245-1\r\n245 OK CLIENT ID SENT",
    "GET": "251-0\r\n251 OK GET RETURNED",
    "LIST": "249-none\r\n249 OK LIST SENT",
}


class _Connection(socketserver.StreamRequestHandler):
    def handle(self):
        for line in self.rfile:
            command = line.decode().strip()
            if command == "SPEAK":
                self.answer("230 OK RECEIVING DATA")
                self.server.heard(self.data())
                self.answer("225-1\r\n225 OK MESSAGE QUEUED")
            elif command.startswith("CHAR "):
                self.server.heard(command.removeprefix("CHAR "))
                self.answer("225-1\r\n225 OK MESSAGE QUEUED")
            elif command == "QUIT":
                return self.answer("231 HAPPY HACKING")
            else:
                self.answer(next((text for start, text in ANSWERS.items() if command.startswith(start)), "200 OK"))

    def answer(self, text):
        self.wfile.write(text.encode() + b"\r\n")

    def data(self):
        """What is to be spoken, up to the line that holds nothing but a full stop."""
        lines = []
        for line in self.rfile:
            text = line.decode().rstrip("\r\n")
            if text == ".":
                break
            lines.append(text.removeprefix(".") if text.startswith("..") else text)
        return html.unescape(re.sub("<[^>]*>", "", "\n".join(lines)))


class _SpeechServer(socketserver.ThreadingMixIn, socketserver.UnixStreamServer):
    daemon_threads = True

    def __init__(self, path):
        super().__init__(str(path), _Connection)
        self.utterances = []
        self.news = threading.Condition()

    def heard(self, text):
        words = " ".join(text.split()).removesuffix(".")  # Orca ends some utterances with one.
        if words:
            with self.news:
                self.utterances.append(words)
                self.news.notify_all()


class Orca:
    """Orca, running on a desktop; use it in a with statement, before the program is started."""

    def __init__(self, desktop, **environment):
        self.desktop = desktop
        self.environment = environment
        self.next = 0

    def __enter__(self):
        folder = self.desktop.folder / "runtime/speech-dispatcher"
        folder.mkdir()
        self.server = _SpeechServer(folder / "speechd.sock")
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        settings = self.desktop.home / ".local/share/orca"
        settings.mkdir(parents=True)
        (settings / "user-settings.conf").write_text(json.dumps(SETTINGS))
        # Orca does not start beside another one of the same user, even on another desktop.
        programs = self.desktop.folder / "programs"
        programs.mkdir()
        (programs / "pgrep").write_text("#!/bin/sh\nexit 1\n")
        (programs / "pgrep").chmod(0o755)
        path = f"{programs}:{self.desktop.environment['PATH']}"
        self.process = self.desktop.start("orca", "--disable", "braille", PATH=path, **self.environment)
        with self.server.news:
            assert self.server.news.wait_for(lambda: self.server.utterances, 60), "Orca says nothing"
        self.next = len(self.server.utterances)
        return self

    def __exit__(self, *_):
        self.desktop.stop(self.process)
        self.server.shutdown()
        self.server.server_close()

    def hear(self, *words, seconds=30):
        """Waits until these utterances have come, in this order, after those heard before.

        Returns everything that was said up to the last of them.
        """
        deadline = time.monotonic() + seconds
        said = self.server.utterances
        first = self.next
        for expected in words:
            with self.server.news:
                while expected not in said[self.next:]:
                    left = deadline - time.monotonic()
                    assert left > 0 and self.server.news.wait(left), f"{expected!r} is not said, but {said[first:]}"
                self.next = said.index(expected, self.next) + 1
        return said[first:self.next]
