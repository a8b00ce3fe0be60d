# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Session buses that are of no use: one accepts connections and says nothing, one closes them."""

import socket
import threading


class UselessBus:
    """Accepts connections and serves each on a thread of its own."""

    def __init__(self, path):
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(path))
        self.listener.listen()
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            connection, _ = self.listener.accept()
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()


class ClosingBus(UselessBus):
    """Closes each connection at once, like a bus that turns the user away."""

    def __init__(self, path):
        self.connections = 0
        super().__init__(path)

    def _serve(self, connection):
        self.connections += 1
        connection.close()


class SilentBus(UselessBus):
    """Says nothing; with `authenticates` it lets connections in, and is silent only then."""

    def __init__(self, path, authenticates):
        self.authenticates = authenticates
        self.was_asked = threading.Event()
        super().__init__(path)

    def _serve(self, connection):
        while text := connection.recv(4096):
            self.was_asked.set()
            if not self.authenticates:
                continue
            if b"AUTH" in text:
                connection.send(b"OK 0123456789abcdef0123456789abcdef\r\n")
            if b"NEGOTIATE_UNIX_FD" in text:
                connection.send(b"AGREE_UNIX_FD\r\n")
