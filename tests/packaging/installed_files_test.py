# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Installs the build into an empty folder and looks at every file: installed_files_test.py CMAKE BUILD VERSION"""

import configparser
import email.utils
import gzip
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

CMAKE, BUILD, VERSION = sys.argv[1:4]
SOURCES = pathlib.Path(__file__).parents[2]
CHANGELOG = SOURCES / "CHANGELOG.md"
TRANSLATIONS = SOURCES / "translations"
LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"
ID = "org.lexivore.Lexivore"
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
EXPECTED = {
    "bin/lexivore",
    f"share/applications/{ID}.desktop",
    f"share/dbus-1/services/{ID}.service",
    f"share/metainfo/{ID}.metainfo.xml",
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    *(f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in SIZES),
    "share/man/man1/lexivore.1.gz",
    "share/doc/lexivore/changelog.gz",
    "share/doc/lexivore/copyright",
}


class InstalledFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="lexivore-install-")
        destination = pathlib.Path(cls.folder.name)
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", "/opt/somewhere"], check=True, stdout=subprocess.DEVNULL,
                       env=dict(os.environ, DESTDIR=str(destination)))
        cls.destination = destination
        cls.prefix = destination / "opt/somewhere"

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_all_of_it_and_nothing_else_is_under_the_prefix(self):
        found = {str(path.relative_to(self.prefix)) for path in self.destination.rglob("*") if not path.is_dir()}
        self.assertEqual(found, EXPECTED)

    def test_everybody_can_read_it_and_run_the_program(self):
        for name in EXPECTED:
            mode = (self.prefix / name).stat().st_mode & 0o777
            self.assertEqual(mode, 0o755 if name.startswith("bin/") else 0o644, name)

    def test_the_bus_starts_the_program_where_it_is_installed(self):
        service = configparser.ConfigParser()
        service.read(self.prefix / f"share/dbus-1/services/{ID}.service")
        self.assertEqual(service["D-BUS Service"]["Name"], ID)
        self.assertEqual(service["D-BUS Service"]["Exec"], "/opt/somewhere/bin/lexivore")

    def test_the_desktop_entry_names_the_icon_and_the_type_of_file(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(self.prefix / f"share/applications/{ID}.desktop")
        self.assertEqual(entry["Desktop Entry"]["Icon"], ID)
        self.assertIn("text/plain", entry["Desktop Entry"]["MimeType"].split(";"))
        self.assertTrue(entry["Desktop Entry"]["Exec"].startswith("lexivore %"))

    def test_the_desktop_is_told_about_the_program_in_each_of_its_languages(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(self.prefix / f"share/applications/{ID}.desktop", encoding="utf-8")
        entry = entry["Desktop Entry"]
        metainfo = xml.etree.ElementTree.parse(self.prefix / f"share/metainfo/{ID}.metainfo.xml")
        summaries = {summary.get(LANGUAGE, "en"): summary.text for summary in metainfo.findall("summary")}
        languages = {path.stem.removeprefix("lexivore_") for path in TRANSLATIONS.glob("lexivore_*.ts")}
        self.assertEqual(summaries.keys(), languages | {"en"})
        self.assertEqual(entry["Comment"], summaries["en"])
        for language in languages:
            self.assertEqual(entry.get(f"Comment[{language}]"), summaries[language])
            self.assertIn(f"GenericName[{language}]", entry)
            self.assertIn(f"Keywords[{language}]", entry)

    def test_everything_tells_the_same_number_of_transformations(self):
        # A page that is compared with the engine.
        heading = (SOURCES / "docs/transformations.md").read_text().splitlines()[0]
        number = re.fullmatch(r"# All (\d+) transformations", heading)[1]
        for name in ("README.md", "docs/guide.md", "packaging/CMakeLists.txt", f"packaging/{ID}.metainfo.xml.in",
                     "packaging/lexivore.1.in"):
            told = re.findall(r"(\d+)\s+(?:transformations|Umformungen)", (SOURCES / name).read_text(encoding="utf-8"))
            self.assertEqual(set(told), {number}, name)

    def test_every_picture_of_the_icon_has_the_size_of_its_folder(self):
        for size in SIZES:
            header = (self.prefix / f"share/icons/hicolor/{size}x{size}/apps/{ID}.png").read_bytes()[:24]
            self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", header[16:24]), (size, size))

    def test_everything_tells_the_same_version_and_date(self):
        metainfo = xml.etree.ElementTree.parse(self.prefix / f"share/metainfo/{ID}.metainfo.xml")
        release = metainfo.find("releases/release")
        self.assertEqual(release.get("version"), VERSION)
        newest = re.search(r"^## (\S+) \((\S+)\)$", CHANGELOG.read_text(), re.MULTILINE)
        self.assertEqual(newest.groups(), (VERSION, release.get("date")))
        manual = gzip.decompress((self.prefix / "share/man/man1/lexivore.1.gz").read_bytes()).decode()
        self.assertIn(f"Lexivore {VERSION}", manual)
        changes = gzip.decompress((self.prefix / "share/doc/lexivore/changelog.gz").read_bytes()).decode()
        self.assertEqual(re.match(r"lexivore \(([^)]*)\)", changes)[1], VERSION)
        signed = re.search(r"^ -- .*>  (.*)$", changes, re.MULTILINE)
        released = email.utils.parsedate_to_datetime(signed[1])
        self.assertEqual(released.date().isoformat(), release.get("date"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
