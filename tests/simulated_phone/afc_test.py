import json
import os
import struct
import unittest

from phone_case import Ended, PhoneCase


class Reading(PhoneCase):
    def test_lists_a_folder_with_its_two_dots(self):
        self.write("DCIM/b.JPG")
        self.write("DCIM/ä.JPG")
        self.assertEqual(self.afc().names(b"/DCIM"), [b".", b"..", b"b.JPG", "ä.JPG".encode()])
        self.assertEqual(self.afc().names(b"/"), [b".", b"..", b"DCIM"])
        self.assertEqual(self.afc().names(b""), [b".", b"..", b"DCIM"])

    def test_tells_what_a_file_is(self):
        self.write("1.JPG", b"12345")
        os.utime(self.root / "1.JPG", ns=(1, 1_500_000_000_123_456_789))
        info = self.afc().info(b"/1.JPG")
        self.assertEqual(info[b"st_size"], b"5")
        self.assertEqual(info[b"st_ifmt"], b"S_IFREG")
        self.assertEqual(info[b"st_mtime"], b"1500000000123456789")
        self.assertIn(b"st_birthtime", info)

    def test_tells_folders_and_links_apart(self):
        self.write("DCIM/1.JPG")
        os.symlink("DCIM/1.JPG", self.root / "link")
        self.assertEqual(self.afc().info(b"/DCIM")[b"st_ifmt"], b"S_IFDIR")
        info = self.afc().info(b"/link")
        self.assertEqual((info[b"st_ifmt"], info[b"LinkTarget"]), (b"S_IFLNK", b"DCIM/1.JPG"))

    def test_gives_the_bytes_of_a_file_in_pieces(self):
        data = os.urandom(3_000_000)
        self.write("1.MOV", data)
        afc = self.afc()
        handle = afc.open(b"/1.MOV")
        self.assertEqual(afc.read(handle, 1_000_000), data[:1_000_000])
        self.assertEqual(afc.tell(handle), 1_000_000)
        self.assertEqual(afc.read(handle, 4_000_000), data[1_000_000:])
        self.assertEqual(afc.read(handle, 10), b"")
        self.assertEqual(afc.close(handle), 0)

    def test_goes_where_it_is_sent(self):
        self.write("1.JPG", b"0123456789")
        afc = self.afc()
        handle = afc.open(b"/1.JPG")
        for origin, offset, position in ((0, 4, 4), (1, 2, 6), (2, -1, 9), (0, 20, 20)):
            self.assertEqual(afc.seek(handle, origin, offset), 0)
            self.assertEqual(afc.tell(handle), position)
        self.assertEqual(afc.read(handle, 5), b"")
        self.assertEqual(afc.seek(handle, 2, -2), 0)
        self.assertEqual(afc.read(handle, 5), b"89")
        self.assertEqual(afc.seek(handle, 0, -1), 7)
        self.assertEqual(afc.seek(handle, 9, 0), 7)

    def test_keeps_files_apart(self):
        self.write("1", b"one")
        self.write("2", b"two")
        afc = self.afc()
        one, two = afc.open(b"/1"), afc.open(b"/2")
        self.assertEqual((afc.read(one, 1), afc.read(two, 2), afc.read(one, 2)), (b"o", b"tw", b"ne"))

    def test_answers_requests_that_were_sent_ahead(self):
        self.write("1", bytes(range(200)))
        afc = self.afc()
        handle = afc.open(b"/1")
        self.tell("slow latency=1")
        for _ in range(100):
            afc.ask(0x0F, struct.pack("<QQ", handle, 2))
        afc.number -= 100
        for index in range(100):
            afc.number += 1
            self.assertEqual(afc.reply()[2], bytes([2 * index, 2 * index + 1]))

    def test_tells_about_the_device(self):
        parts = self.afc().data(0x0B).split(b"\0")
        self.assertEqual(parts[0:2], [b"Model", b"Phone1,1"])
        self.assertEqual(parts[2:8:2], [b"FSTotalBytes", b"FSFreeBytes", b"FSBlockSize"])
        self.assertGreater(int(parts[3]), 0)

    def test_is_counted(self):
        self.write("1", b"one")
        afc = self.afc()
        handle = afc.open(b"/1")
        afc.read(handle, 3)
        self.assertEqual(json.loads(self.tell("operations")), [["FileRefOpen", "/1"], ["FileRefRead", "/1"]])
        self.assertEqual(self.counter("bytes"), str(48 + 43))
        self.assertEqual(self.counter("handles"), "1")
        afc.connection.close()
        self.tell("wait handles 0")
        self.tell("wait connections 0")
        self.assertEqual(self.counter("accepted"), "1")


class Failing(PhoneCase):
    PHONES = [{"max_handles": 3}]

    def test_says_why(self):
        self.write("DCIM/1.JPG", b"x")
        afc = self.afc()
        self.assertEqual(afc.open_status(b"/none"), 8)
        self.assertEqual(afc.open_status(b"/DCIM/1.JPG/none"), 8)
        self.assertEqual(afc.open_status(b"/DCIM"), 9)
        self.assertEqual(afc.open_status(b"/" + b"x" * 300), 7)
        self.assertEqual(afc.status(0x03, b"/none\0"), 8)
        self.assertEqual(afc.status(0x03, b"/DCIM/1.JPG\0"), 4)
        self.assertEqual(afc.status(0x0A, b"/none\0"), 8)
        self.assertEqual(afc.status(0x0F, struct.pack("<QQ", 77, 1)), 7)
        self.assertEqual(afc.status(0x0F, b"short"), 7)
        self.assertEqual(afc.status(0x14, struct.pack("<Q", 77)), 7)

    def test_opens_no_more_files_than_it_has_room_for(self):
        self.write("1")
        afc = self.afc()
        handles = [afc.open(b"/1") for _ in range(3)]
        self.assertEqual(afc.open_status(b"/1"), 3)
        afc.close(handles[1])
        self.assertGreater(afc.open(b"/1"), max(handles))

    def test_writes_nothing(self):
        self.write("1", b"as it was")
        afc = self.afc()
        for mode in (2, 3, 4, 5, 6, 0):
            self.assertEqual(afc.open_status(b"/1", mode), 10)
            self.assertEqual(afc.open_status(b"/new", mode), 10)
        handle = afc.open(b"/1")
        written = struct.pack("<Q", handle) + b"other"
        for operation in (0x05, 0x07, 0x08, 0x09, 0x0C, 0x10, 0x15, 0x18, 0x1C, 0x1E, 0x22, 0xFF):
            self.assertEqual(afc.status(operation, written), 15)
        self.assertEqual(self.counter("refused"), str(12 + 12))
        self.assertEqual((self.root / "1").read_bytes(), b"as it was")
        self.assertEqual(os.listdir(self.root), ["1"])

    def test_ends_a_connection_that_speaks_something_else(self):
        self.phone.complain = lambda text: None
        for nonsense in (b"x" * 40, struct.pack("<8sQQQQ", b"CFA6LPAA", 39, 39, 1, 3),
                         struct.pack("<8sQQQQ", b"CFA6LPAA", 1 << 40, 40, 1, 3),
                         struct.pack("<8sQQQQ", b"CFA6LPAA", 40, 41, 1, 3)):  # fmt: skip
            afc = self.afc()
            afc.connection.sendall(nonsense)
            with self.assertRaises(Ended):
                afc.header()


unittest.main()
