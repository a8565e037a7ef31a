# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Asks for updates in the menu, as a user would, with a real https server, a key pair and feeds that this script makes:
a good update is verified and handed to the desktop, and every attack ends in one message and leaves nothing.

Usage: updates_arrive.py PROGRAM"""

import base64
import http.server
import json
import os
import pathlib
import ssl
import subprocess
import sys
import tempfile
import threading
import time

import pyatspi

from program import Display, Program, wait_for

FORMAT = "http://www.andymatuschak.org/xml-namespaces/sparkle"
NEW_VERSION = b"the bytes of the new version\n" * 50_000


class Maker:
    """Who makes the updates: has a key pair, and the certificate of the server."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.openssl("genpkey", "-algorithm", "ed25519", "-out", "update.key")
        self.openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "1", "-subj", "/CN=127.0.0.1",
                     "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", "server.key", "-out", "server.pem")
        # The key itself is the end of its DER form.
        self.public_key = self.openssl("pkey", "-in", "update.key", "-pubout", "-outform", "DER")[-32:]

    def openssl(self, *arguments):
        return subprocess.run(["openssl", *arguments], cwd=self.folder, check=True, capture_output=True).stdout

    def sign(self, content):
        (self.folder / "signed").write_bytes(content)
        return self.openssl("pkeyutl", "-sign", "-rawin", "-inkey", "update.key", "-in", "signed")


class Server:
    """Serves what `pages` says: bytes, or a function that answers by itself."""

    def __init__(self, certificate=None):
        self.pages = {}
        self.asked = []
        self.ends = threading.Event()
        owner = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                owner.asked.append(self.path)
                page = owner.pages.get(self.path)
                if callable(page):
                    page(self)
                elif page is None:
                    self.send_error(404)
                else:
                    owner.send(self, page)

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.handle_error = lambda *_: None  # a client that goes is no error here
        scheme = "http"
        if certificate:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            context.load_cert_chain(certificate / "server.pem", certificate / "server.key")
            self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
            scheme = "https"
        self.address = f"{scheme}://127.0.0.1:{self.server.server_port}"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    @staticmethod
    def send(handler, content):
        handler.send_response(200)
        handler.send_header("Content-Length", str(len(content)))
        handler.end_headers()
        handler.wfile.write(content)

    @staticmethod
    def send_for_ever(handler):
        handler.send_response(200)
        handler.end_headers()
        while True:
            handler.wfile.write(b" " * 65536)

    @staticmethod
    def cut_off(handler):
        handler.send_response(200)
        handler.send_header("Content-Length", str(len(NEW_VERSION)))
        handler.end_headers()
        handler.wfile.write(NEW_VERSION[:100_000])

    def say_nothing(self, _handler):
        self.ends.wait()

    @staticmethod
    def redirect_to(address):
        def redirect(handler):
            handler.send_response(302)
            handler.send_header("Location", address)
            handler.end_headers()
        return redirect

    def close(self):
        self.ends.set()
        self.server.shutdown()
        self.server.server_close()


class Story:
    """The program, the server, and a desktop that opens files."""

    def __init__(self, program, maker, server, home):
        self.program = program
        self.maker = maker
        self.server = server
        self.home = home
        self.downloads = home / ".cache/lexivore/updates"
        self.opened = home / "opened"

    def offer(self, version="2.0", content=NEW_VERSION, signature=None, length=None, address=None, more=""):
        signature = base64.b64encode(self.maker.sign(NEW_VERSION) if signature is None else signature).decode()
        length = len(NEW_VERSION) if length is None else length
        address = address or self.server.address + "/lexivore-2.0.deb"
        self.server.pages["/lexivore-2.0.deb"] = content
        self.server.pages["/feed.xml"] = f"""<?xml version="1.0" encoding="utf-8"?>
            <rss version="2.0" xmlns:sparkle="{FORMAT}"><channel><item>
            <sparkle:version>{version}</sparkle:version>
            <description><![CDATA[<h2>News</h2><ul><li>It is faster.</ul><script>evil()</script>
                <img src="{self.server.address}/tracker.png">]]></description>{more}
            <enclosure url="{address}" length="{length}" type="application/octet-stream"
                sparkle:edSignature="{signature}"/></item></channel></rss>""".encode()

    def check(self):
        self.program.settle()
        self.program.click(self.program.find("menu item", "Lexivore"))
        self.program.click(self.program.find("menu item", "Check for Updates…"))

    def press(self, button):
        self.program.click(self.program.find("push button", button))

    def answer(self, title):
        """The message of the alert with this title, which is then closed."""
        alert = wait_for(lambda: [node for node in self.program.all(name=title) if node.getRoleName() == "alert"],
                         f"the alert {title!r}")[0]
        message = alert.description
        self.program.keys("Return")
        wait_for(lambda: not self.program.is_there(name=title), "the alert to close")
        return message

    def left(self):
        return sorted(path.name for path in self.downloads.glob("*"))


def is_verified_and_handed_over(story):
    story.offer()
    story.check()
    story.program.find(name="Lexivore 2.0 is available")
    story.program.find(name="You have version 1.0. The download is 1.4 MB large.")
    shown = [node.queryText().getText(0, -1).strip() for node in story.program.all(name="Release notes")
             if "Text" in pyatspi.listInterfaces(node)]
    assert "News\nIt is faster." in shown, shown
    story.press("Install Update")
    assert "was verified" in story.answer("Update Ready")
    wait_for(story.opened.exists, "the desktop to open the file")
    wait_for(lambda: story.opened.read_bytes() == NEW_VERSION, "the right bytes")
    assert story.left() == ["lexivore-2.0.deb"], story.left()
    assert "/tracker.png" not in story.server.asked, "the notes loaded something"
    story.opened.unlink()
    (story.downloads / "lexivore-2.0.deb").unlink()


def attack(story, expected, installs=True, title="Update Error"):
    """The check, or the installation, ends in this message and nothing else."""
    story.check()
    if installs:
        story.press("Install Update")
    message = story.answer(title)
    assert message.startswith(expected), message
    assert story.left() == [], story.left()
    assert not story.opened.exists(), "something was handed to the desktop"
    print("refused:", message, flush=True)


def attacks_are_refused(story, plain):
    server = story.server
    changed = NEW_VERSION[:-1] + b"!"

    story.offer(content=changed)
    attack(story, "The downloaded update has a wrong signature")
    story.offer(signature=story.maker.sign(changed))
    attack(story, "The downloaded update has a wrong signature")
    story.offer(content=NEW_VERSION[:-1])
    attack(story, "The downloaded update does not have the announced size")
    story.offer(content=Server.cut_off)
    attack(story, "The update server could not be reached")
    story.offer(content=Server.send_for_ever)
    attack(story, "The update server sent more than it may")
    story.offer(content=Server.redirect_to(plain.address + "/file"))
    attack(story, "The update server leads to an address that is not secure")

    story.offer(signature=b"")
    attack(story, "The update is not signed", installs=False)
    story.offer(address=plain.address + "/file")
    attack(story, "The address of the update is not secure", installs=False)
    story.offer(version="0.9")
    attack(story, "You have Lexivore 1.0. The newest version on offer is older: 0.9.", False, "No Update")
    for feed, expected in {
        b"<rss><channel>": "The list of updates is damaged",
        b"<!DOCTYPE r [<!ENTITY a 'aa'><!ENTITY b '&a;&a;'>]><rss>&b;</rss>": "The list of updates is damaged",
        b"<rss>" + b" " * (1 << 20) + b"</rss>": "The update server sent more than it may",
        Server.send_for_ever: "The update server sent more than it may",
        Server.redirect_to(plain.address + "/feed.xml"): "The update server leads to an address that is not secure",
        None: "The update server answered with error 404",
    }.items():
        server.pages["/feed.xml"] = feed
        attack(story, expected, installs=False)
    assert plain.asked == [], plain.asked


def can_be_cancelled(story):
    story.offer(content=story.server.say_nothing)
    story.check()
    story.press("Install Update")
    story.program.find("progress bar", "Downloading Lexivore 2.0")
    story.press("Cancel")
    wait_for(lambda: not story.program.is_there(name="Downloading Lexivore 2.0"), "the download to end")
    story.server.pages["/feed.xml"] = story.server.say_nothing
    story.check()
    story.program.find(name="Checking for Updates…", role="dialog")
    story.program.keys("Escape")
    wait_for(lambda: not story.program.is_there(name="Checking for Updates…", role="dialog"), "the check to end")
    assert story.left() == [], story.left()


def is_quiet_about_a_dead_server(story):
    story.server.close()
    attack(story, "The update server could not be reached", installs=False)


def come_from_the_package_manager(executable, home):
    with Program(executable, home) as program:
        story = Story(program, None, None, home)
        story.check()
        message = story.answer("No Update")
        assert message == "Updates of Lexivore come from your system's package manager.", message


def write_information(home, feed, key):
    (home / "information.json").write_text(json.dumps({
        "name": "Lexivore", "version": "1.0", "feedAddress": feed, "publicKey": base64.b64encode(key).decode(),
        "supportAddress": "support@example.org"}))


def prepare_home(home):
    """A desktop that opens a file by copying it, and a last check just now, so that no scheduled one comes between."""
    desktop = home / "bin/xdg-open"
    desktop.parent.mkdir()
    desktop.write_text(f'#!/bin/sh\ncp "${{1#file://}}" {home}/opened.new && mv {home}/opened.new {home}/opened\n')
    desktop.chmod(0o755)
    preferences = home / ".config/lexivore/preferences.json"
    preferences.parent.mkdir(parents=True)
    preferences.write_text(json.dumps({"lastUpdateCheck": int(time.time())}))
    os.environ.update(PATH=f"{desktop.parent}:{os.environ['PATH']}", XDG_CACHE_HOME=str(home / ".cache"),
                      LEXIVORE_PROBE_INFORMATION=str(home / "information.json"),
                      LEXIVORE_PROBE_CERTIFICATE=str(home / "keys/server.pem"))


def main(executable):
    with tempfile.TemporaryDirectory() as folder, Display():
        home = pathlib.Path(folder)
        (home / "keys").mkdir()
        maker = Maker(home / "keys")
        server, plain = Server(home / "keys"), Server()
        prepare_home(home)
        write_information(home, server.address + "/feed.xml", maker.public_key)
        with Program(executable, home) as program:
            story = Story(program, maker, server, home)
            is_verified_and_handed_over(story)
            attacks_are_refused(story, plain)
            can_be_cancelled(story)
            is_quiet_about_a_dead_server(story)
        write_information(home, "", b"")
        come_from_the_package_manager(executable, home)


if __name__ == "__main__":
    main(sys.argv[1])
