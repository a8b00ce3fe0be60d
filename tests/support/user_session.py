# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A user's login session as systemd makes it, with Norvane installed, apart from the machine's own."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from gi.repository import Gio, GLib

from .waiting import wait_until

INSIDE = Path(__file__).with_name("user_session.sh")
USER = 4711
MANAGER = Path("/usr/lib/systemd/systemd")
SYSTEMD = ("org.freedesktop.systemd1", "/org/freedesktop/systemd1")
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")


def obstacle():
    """Why there can be no such session here; nothing where there can."""
    if os.geteuid() != 0:
        return "mounts and other users' processes need root"
    for needed in (MANAGER, Path("/usr/lib/systemd/user/dbus.socket")):
        if not needed.exists():
            return f"{needed} is not installed"
    probe = subprocess.run(["unshare", "--mount", "--pid", "--fork", "--mount-proc", "true"],
                           capture_output=True, text=True, check=False)
    return f"namespaces are denied to root: {probe.stderr.strip()}" if probe.returncode else None


def removed(group):
    """Removes a control group with all below it; whether it could, as it can when no process is left."""
    try:
        for path in sorted(group.glob("**/"), key=lambda path: -len(path.parts)):
            path.rmdir()
    except OSError:
        return False
    return True


class UserSession:
    """Runs a user's service manager and session bus until the with statement ends.

    `prefix` is where Norvane is installed from the build tree, "~" in it the user's home. With `tarball`
    it is where that is unpacked and set up instead.
    `namespaces` tells whether user namespaces can be made in the session.
    """

    def __init__(self, build, prefix, namespaces=True, tarball=None):
        # Not in /tmp, of which a service may see another than the session's bus does.
        self.folder = Path(tempfile.mkdtemp(prefix="norvane-session-", dir="/var/cache"))
        self.folder.chmod(0o755)
        for name in ("home", "runtime", "overlay"):
            (self.folder / name).mkdir()
        (self.folder / "runtime").chmod(0o700)
        self.home = self.folder / "home"
        self.prefix = prefix.replace("~", str(self.home))
        if tarball:
            shutil.copy(tarball, self.folder)
        self.address = f"unix:path={self.folder}/runtime/bus"
        self.arguments = [USER, self.folder, Path(build).resolve(),
                          ("tarball:" if tarball else "") + self.prefix, "allowed" if namespaces else "denied"]
        self.process = None
        self.groups = []

    def __enter__(self):
        self.groups = list(self._own_groups())
        for group in self.groups:  # For the manager of the session's user to divide.
            group.mkdir()
            for path in (group, group / "cgroup.procs"):
                os.chown(path, USER, USER)
        self.process = subprocess.Popen(
            ["unshare", "--mount", "--propagation", "private", "--pid", "--fork", "--kill-child", "--mount-proc",
             INSIDE, *map(str, self.arguments)],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, preexec_fn=self._enter_groups)
        try:
            wait_until(lambda: self._answers() or self.process.poll() is not None, "the session bus", 60)
            assert self.process.poll() is None, self.logs()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _answers(self):
        try:
            return self.connect()
        except GLib.Error:
            return None

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        for group in self.groups:
            wait_until(lambda group=group: removed(group), "the end of the session's processes")
        shutil.rmtree(self.folder)

    def _enter_groups(self):
        for group in self.groups:
            (group / "cgroup.procs").write_text("0")

    def _own_groups(self):
        """A control group below this process's own in each hierarchy that systemd uses."""
        for line in Path("/proc/self/cgroup").read_text().splitlines():
            _, controllers, path = line.split(":", 2)
            if controllers == "name=systemd":
                root = Path("/sys/fs/cgroup/systemd")
            elif controllers == "":
                root = Path("/sys/fs/cgroup/unified")
                root = root if root.exists() else Path("/sys/fs/cgroup")
            else:
                continue
            yield root / path.lstrip("/") / self.folder.name

    def logs(self):
        return "\n".join(file.read_text(errors="replace") for file in sorted(self.folder.glob("*.log")))

    def run(self, *command):
        """Runs a command inside, as the user; what it printed."""
        (manager, *_) = (self.groups[0] / "init.scope/cgroup.procs").read_text().split()
        same_user = os.readlink(f"/proc/{manager}/ns/user") == os.readlink("/proc/self/ns/user")
        return subprocess.run(
            ["nsenter", f"--target={manager}", "--mount", "--pid", *([] if same_user else ["--user"]),
             "setpriv", f"--reuid={USER}", f"--regid={USER}", "--clear-groups",
             "env", "-i", "PATH=/usr/bin:/bin", f"HOME={self.home}", "LC_ALL=C.UTF-8",
             f"XDG_RUNTIME_DIR={self.folder}/runtime", f"DBUS_SESSION_BUS_ADDRESS={self.address}", *map(str, command)],
            check=True, capture_output=True, text=True, timeout=60).stdout

    def connect(self):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        os.seteuid(USER)  # The session bus lets in its own user alone.
        try:
            connection = Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)
        finally:
            os.seteuid(0)
        connection.set_exit_on_close(False)
        return connection

    def process_of_name(self, name):
        (process,) = self._call(*BUS, "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))
        return process

    def main_process_of_unit(self, unit):
        (path,) = self._call(*SYSTEMD, "org.freedesktop.systemd1.Manager", "GetUnit", GLib.Variant("(s)", (unit,)))
        (process,) = self._call(SYSTEMD[0], path, "org.freedesktop.DBus.Properties", "Get",
                                GLib.Variant("(ss)", ("org.freedesktop.systemd1.Service", "MainPID")))
        return process

    def _call(self, name, path, interface, method, arguments):
        return self.connect().call_sync(name, path, interface, method, arguments, None,
                                        Gio.DBusCallFlags.NONE, 60_000, None).unpack()
