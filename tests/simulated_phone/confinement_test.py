"""Nothing outside of the folder is opened, whatever paths and links say."""

import os
import pathlib
import stat
import struct
import unittest

from phone_case import PhoneCase

DENIED = 10


class Confinement(PhoneCase):
    def setUp(self):
        super().setUp()
        self.outside = self.root.parent / "outside"
        self.outside.mkdir()
        (self.outside / "secret").write_bytes(b"secret")
        self.write("DCIM/1.JPG", b"picture")

    def link(self, target, name):
        os.symlink(target, self.root / name)

    def assert_denied(self, path, number=DENIED):
        afc = self.afc()
        self.assertEqual(afc.open_status(path), number, path)
        self.assertEqual(afc.status(0x03, path + b"\0"), number, path)

    def test_two_dots_are_refused_also_where_they_stay_within(self):
        for path in (b"/..", b"..", b"/../outside/secret", b"/DCIM/../../outside/secret", b"/DCIM/../DCIM", b"/DCIM/.."):
            self.assert_denied(path)
            self.assertEqual(self.afc().status(0x0A, path + b"\0"), DENIED, path)

    def test_links_out_are_refused(self):
        self.link("../outside/secret", "relative")
        self.link(str(self.outside / "secret"), "absolute")
        self.link("../outside", "folder")
        self.link("DCIM/../../outside/secret", "winding")
        self.link("folder/secret", "chained")
        paths = (b"/relative", b"/absolute", b"/folder", b"/folder/secret", b"/winding", b"/chained")
        for path in paths:
            self.assert_denied(path)
        self.assertEqual(self.afc().status(0x0A, b"/folder/secret\0"), DENIED)

    def test_links_out_to_the_folder_itself_are_refused(self):
        # Its name would be known to whoever made the link, which no phone's content does.
        self.link(f"../{self.root.name}/DCIM/1.JPG", "around")
        self.assert_denied(b"/around")

    def test_a_link_out_is_still_described(self):
        self.link("/etc/passwd", "absolute")
        info = self.afc().info(b"/absolute")
        self.assertEqual((info[b"st_ifmt"], info[b"LinkTarget"]), (b"S_IFLNK", b"/etc/passwd"))

    def test_links_within_are_followed(self):
        self.write("a/b/2.JPG", b"other")
        self.link("DCIM", "folder")
        self.link("../../DCIM/1.JPG", "a/b/up")
        self.link("folder/1.JPG", "chained")
        for path in (b"/folder/1.JPG", b"/a/b/up", b"/chained"):
            afc = self.afc()
            self.assertEqual(afc.read(afc.open(path), 10), b"picture", path)
        self.assertEqual(self.afc().names(b"/folder"), [b".", b"..", b"1.JPG"])

    def test_links_in_a_circle_end(self):
        self.link("there", "here")
        self.link("here", "there")
        self.link(".", "self")
        afc = self.afc()
        self.assertEqual(afc.open_status(b"/here"), 1)
        self.assertEqual(afc.open_status(b"/self" * 41 + b"/DCIM/1.JPG"), 1)
        self.assertEqual(afc.read(afc.open(b"/self/self/DCIM/1.JPG"), 10), b"picture")

    def test_only_files_and_folders_are_opened(self):
        os.mkfifo(self.root / "pipe")
        self.assertEqual(self.afc().open_status(b"/pipe"), DENIED)
        self.assertEqual(self.afc().status(0x0A, b"/pipe\0"), DENIED)

    def test_a_folder_that_becomes_a_link_is_not_followed_out(self):
        afc = self.afc()
        self.assertEqual(afc.names(b"/DCIM"), [b".", b"..", b"1.JPG"])
        (self.root / "DCIM").rename(self.root / "was")
        self.link("../outside", "DCIM")
        self.assertEqual(afc.open_status(b"/DCIM/secret"), DENIED)

    def test_what_lies_behind_a_zero_byte_is_no_path(self):
        afc = self.afc()
        handle = afc.open(b"/DCIM/1.JPG\0/../../outside/secret")
        self.assertEqual(afc.read(handle, 10), b"picture")

    def test_no_descriptor_stays_open(self):
        def descriptors():
            return sorted(os.readlink(f"/proc/self/fd/{name}") for name in os.listdir("/proc/self/fd")
                          if pathlib.Path(f"/proc/self/fd/{name}").is_symlink() and in_folder(name))  # fmt: skip

        def in_folder(name):
            try:
                target = os.stat(f"/proc/self/fd/{name}")
            except OSError:
                return False
            return stat.S_ISREG(target.st_mode) or stat.S_ISDIR(target.st_mode)

        afc = self.afc()
        before = descriptors()
        self.link("../outside", "out")
        for path in (b"/none", b"/out/secret", b"/..", b"/DCIM", b"/DCIM/1.JPG/none"):
            afc.call(0x0D, struct.pack("<Q", 1) + path + b"\0")
            afc.call(0x03, path + b"\0")
            afc.call(0x0A, path + b"\0")
        handles = [afc.open(b"/DCIM/1.JPG") for _ in range(3)]
        self.assertEqual(len(descriptors()), len(before) + 3)
        afc.close(handles[0])
        afc.connection.close()
        self.tell("wait handles 0")
        self.assertEqual(descriptors(), before)


unittest.main()
