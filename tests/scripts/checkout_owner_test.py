# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Runs the scripts as root in somebody else's checkout: checkout_owner_test.py CHECKOUT

They must go on as its owner, so that all they leave behind is the owner's. What they would install and build with is
replaced by programs that only note who calls them."""

import os
import pathlib
import pwd
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(sys.argv[1]) / "scripts"
OWNER = pwd.getpwnam("nobody")
# With arguments that they take. The other two: setup installs, as root; check-package asks for root itself.
BUILDING = {
    "bench": ["tools"], "check-hardening": [], "coverage": [], "fuzz": ["1"], "icon-sheet": ["picture.png"],
    "lint": [], "long-run": [], "package": [], "run": ["a file"], "screenshots": [], "test": ["dev"],
}
TOOLS = ["cmake", "git", "clang-format", "dpkg-buildflags", "dpkg-parsechangelog"]
NOTE = """#!/bin/sh
id -un >> "$CALLERS"
case $0 in
*/cmake) exit 1 ;;
*/git) echo engine/a.h ;;
esac
"""
PROBE = """#!/usr/bin/env bash
source "$(dirname "$(readlink -f "$0")")/common.sh"
continue_as_owner "$@"
printf '%s\\n' "$(id -un)" "$HOME" "$PWD" "${XDG_RUNTIME_DIR-none}" "${DBUS_SESSION_BUS_ADDRESS-none}" "$@"
"""


@unittest.skipUnless(os.geteuid() == 0, "only root has other users' checkouts to work in")
class CheckoutOwner(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="lexivore-checkout-")
        self.addCleanup(folder.cleanup)
        self.checkout = pathlib.Path(folder.name)
        shutil.copytree(SCRIPTS, self.checkout / "scripts")
        self.write("scripts/setup", "#!/bin/sh\n")
        self.write("scripts/probe", PROBE)
        for tool in TOOLS:
            self.write(f"tools/{tool}", NOTE)
        self.write("callers", "")
        self.give_to(OWNER.pw_uid)

    def write(self, name, content):
        path = self.checkout / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(content)
        path.chmod(0o755)

    def give_to(self, user):
        for path in [self.checkout, *self.checkout.rglob("*")]:
            os.chown(path, user, -1)

    def call(self, script, *arguments, **environment):
        """Calls it from another folder."""
        return subprocess.run(
            [self.checkout / "scripts" / script, *arguments], cwd="/", text=True, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, check=False,
            env={"PATH": f"{self.checkout}/tools:{os.environ['PATH']}", "HOME": "/root",
                 "CALLERS": str(self.checkout / "callers"), **environment}).stdout

    def test_there_is_no_script_that_is_forgotten_here(self):
        programs = {path.name for path in SCRIPTS.iterdir() if os.access(path, os.X_OK)}
        self.assertEqual(programs, {*BUILDING, "setup", "check-package"})

    def test_what_is_built_is_built_by_the_owner_and_belongs_to_the_owner(self):
        for script, arguments in BUILDING.items():
            with self.subTest(script):
                (self.checkout / "callers").write_text("")
                output = self.call(script, *arguments)
                self.assertEqual(set((self.checkout / "callers").read_text().split()), {OWNER.pw_name}, output)
                owners = {path.owner() for path in self.checkout.rglob("*")}
                self.assertEqual(owners, {OWNER.pw_name})

    def test_nothing_of_root_goes_along_but_the_arguments(self):
        output = self.call("probe", "a file", "", XDG_RUNTIME_DIR="/", DBUS_SESSION_BUS_ADDRESS="unix:path=/bus")
        self.assertEqual(output.split("\n"),
                         [OWNER.pw_name, OWNER.pw_dir, str(self.checkout), "none", "none", "a file", "", ""])

    def test_what_is_the_owners_stays(self):
        output = self.call("probe", XDG_RUNTIME_DIR=str(self.checkout), DBUS_SESSION_BUS_ADDRESS="unix:path=/bus")
        self.assertEqual(output.split("\n")[3:5], [str(self.checkout), "unix:path=/bus"])

    def test_root_stays_root_in_its_own_checkout(self):
        self.give_to(0)
        self.assertEqual(self.call("probe", XDG_RUNTIME_DIR="/").split("\n")[:4],
                         ["root", "/root", str(self.checkout), "/"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
