# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Session buses that are of no use: one accepts connections and says nothing, one closes them."""

import socket
import threading


class ClosingBus:
    """Closes each connection at once, like a bus that turns the user away."""

    def __init__(self, path):
        self.connections = 0
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(path))
        self.listener.listen()
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            self.listener.accept()[0].close()
            self.connections += 1


class SilentBus:
    """Accepts connections; with `authenticates` it lets them in, and is silent only then."""

    def __init__(self, path, authenticates):
        self.authenticates = authenticates
        self.was_asked = threading.Event()
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(path))
        self.listener.listen()
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            connection, _ = self.listener.accept()
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection):
        while text := connection.recv(4096):
            self.was_asked.set()
            if not self.authenticates:
                continue
            if b"AUTH" in text:
                connection.send(b"OK 0123456789abcdef0123456789abcdef\r\n")
            if b"NEGOTIATE_UNIX_FD" in text:
                connection.send(b"AGREE_UNIX_FD\r\n")
