#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# The inside of support/user_session.py: runs as root in mount and process namespaces of its own,
# installs Norvane there, then runs a systemd user manager until it is killed.
# user_session.sh USER FOLDER BUILD PREFIX allowed|denied
set -euo pipefail
user=$1 folder=$2 build=$3 prefix=$4 namespaces=$5

# Nothing that is installed here reaches the machine: what is written goes to memory.
mount -t tmpfs tmpfs "$folder/overlay"
top=/$(cut -d/ -f2 <<<"$build")
for lower in /usr /opt /etc "$top"; do
    upper=$folder/overlay$lower
    mkdir -p "$upper/upper" "$upper/work"
    mount -t overlay overlay -o "lowerdir=$lower,upperdir=$upper/upper,workdir=$upper/work" "$lower"
done
mount -t tmpfs tmpfs /run
# What tells the manager that systemd runs this machine, and where services with a view of their own get it.
mkdir -p /run/systemd/system /run/systemd/unit-root
echo "norvane-test:x:$user:$user::$folder/home:/bin/sh" >>/etc/passwd
echo "norvane-test:x:$user:" >>/etc/group
chown "$user:$user" "$folder/home" "$folder/runtime"

as_user=(setpriv "--reuid=$user" "--regid=$user" --clear-groups
    env -i PATH=/usr/bin:/bin "HOME=$folder/home" "XDG_RUNTIME_DIR=$folder/runtime" LC_ALL=C.UTF-8)
case "$prefix" in
    "$folder"/home/*) # The user's own build tree, installed by the user.
        directory=$build
        while [ "$directory" != / ]; do chmod o+x "$directory" && directory=$(dirname "$directory"); done
        chown -R "$user:$user" "$build/packaging"
        chown "$user:$user" "$build"
        rm -f "$build/install_manifest.txt"
        "${as_user[@]}" cmake --install "$build" --prefix "$prefix"
        ;;
    tarball:*) # Unpacked there, and told the system of by whoever may write there.
        where=${prefix#tarball:}
        as=("${as_user[@]}")
        [[ $where == "$folder"/* ]] || as=()
        "${as[@]}" mkdir -p "$where"
        "${as[@]}" tar -C "$where" -xf "$folder"/norvane-*.tar.xz
        "${as[@]}" "$where"/norvane-*/setup install
        ;;
    *) cmake --install "$build" --prefix "$prefix" ;;
esac >"$folder/install.log" 2>&1

manager=("${as_user[@]}" /usr/lib/systemd/systemd --user --unit=dbus.socket --log-target=console)
if [ "$namespaces" = allowed ]; then # Not by exec: the first process would be taken for the system's manager.
    "${manager[@]}" >"$folder/manager.log" 2>&1
    exit
fi

# A user namespace of its own with every identity, in which no further one can be made. Its first shell
# has no rights there, since it began before the identities were known; the next one has.
mkfifo "$folder/mapped"
unshare --user bash -c 'read -r <"$1" && shift && exec "$@"' bash "$folder/mapped" \
    bash -c 'echo 0 >/proc/sys/user/max_user_namespaces && exec "$@"' bash "${manager[@]}" \
    >"$folder/manager.log" 2>&1 &
until [ "$(readlink /proc/$!/ns/user)" != "$(readlink /proc/self/ns/user)" ]; do sleep 0.02; done
echo "0 0 65536" >"/proc/$!/uid_map"
echo "0 0 65536" >"/proc/$!/gid_map"
echo go >"$folder/mapped"
wait
