import os
import ssl
import struct
import unittest

from phone_case import OTHER_UDID, Ended, PhoneCase, receive

DATA = bytes(range(250)) * 4


class Faults(PhoneCase):
    STEP = 7  # bytes between the places of the sweep

    def setUp(self):
        super().setUp()
        self.write("1.JPG", DATA)

    def copy(self, afc):
        """One file as a host reads it; the reply of every operation is checked."""
        handle = afc.open(b"/1.JPG")
        data = b""
        while piece := afc.read(handle, 300):
            data += piece
        afc.close(handle)
        return data

    def test_cut_after_every_number_of_bytes(self):
        self.assertEqual(self.copy(self.afc()), DATA)
        total = int(self.counter("bytes"))
        for count in range(0, total, self.STEP):
            self.tell(f"fault cut after-bytes={count}")
            sent = int(self.counter("bytes"))
            with self.assertRaises(Ended):
                afc = self.afc()
                self.copy(afc)
                afc.names(b"/")
            self.assertEqual(int(self.counter("bytes")) - sent, count)
        self.tell(f"fault cut after-bytes={total}")
        afc = self.afc()
        self.assertEqual(self.copy(afc), DATA)
        with self.assertRaises(Ended):
            afc.names(b"/")
        self.assertEqual(self.copy(self.afc()), DATA)

    def test_cut_at_every_operation(self):
        self.copy(self.afc())
        for number in range(1, int(self.counter("operations")) + 1):
            before = int(self.counter("operations"))
            self.tell(f"fault cut at={number}")
            with self.assertRaises(Ended):
                self.copy(self.afc())
            self.assertEqual(int(self.counter("operations")) - before, number)
        self.assertEqual(self.copy(self.afc()), DATA)

    def test_bytes_count_over_all_connections_or_each(self):
        one, two = self.afc(), self.afc()
        self.tell("fault cut after-bytes=96")
        one.open(b"/1.JPG")
        two.open(b"/1.JPG")  # these were the last of 96 bytes
        with self.assertRaises(Ended):
            two.open(b"/1.JPG")
        one.open(b"/1.JPG")
        self.tell("fault cut after-bytes=96 per=connection")
        two = self.afc()
        for afc in (one, two):
            afc.open(b"/1.JPG")
            afc.open(b"/1.JPG")
            with self.assertRaises(Ended):
                afc.open(b"/1.JPG")

    def test_status_of_an_operation_and_of_a_path(self):
        self.write("2.JPG", b"2")
        afc = self.afc()
        self.tell("fault status code=4 operation=FileRefRead at=2")
        handle = afc.open(b"/1.JPG")
        self.assertEqual(len(afc.read(handle, 10)), 10)
        self.assertEqual(afc.status(0x0F, struct.pack("<QQ", handle, 10)), 4)
        self.assertEqual(afc.read(handle, 10), DATA[10:20])
        self.tell("fault status code=10 path=/2.* times=always")
        for _ in range(3):
            self.assertEqual(afc.open_status(b"/2.JPG"), 10)
            self.assertEqual(afc.status(0x0A, b"/2.JPG\0"), 10)
        self.assertEqual(afc.info(b"/1.JPG")[b"st_size"], b"1000")
        self.tell("clear")
        self.assertEqual(afc.info(b"/2.JPG")[b"st_size"], b"1")

    def test_times(self):
        afc = self.afc()
        self.tell("fault status code=3 at=2 times=2")
        found = [afc.call(0x0A, b"/\0")[0] for _ in range(5)]
        self.assertEqual(found, [2, 1, 1, 2, 2])

    def test_short_reads_lose_nothing(self):
        afc = self.afc()
        self.tell("fault short bytes=7 operation=FileRefRead times=10")
        self.assertEqual(self.copy(afc), DATA)
        self.tell("fault short operation=FileRefRead")
        handle = afc.open(b"/1.JPG")
        self.assertEqual(afc.read(handle, 300), DATA[:150])

    def test_replies_that_are_none(self):
        cases = {
            "empty": (b"CFA6LPAA", 40, 40, 1, 2),
            "packet-number": (b"CFA6LPAA", 1040, 40, 2, 2),
            "packet-number value=77": (b"CFA6LPAA", 1040, 40, 77, 2),
            "magic": (b"WRONG!!!", 1040, 40, 1, 2),
            "magic hex=4142": (b"ABWRONG!", 1040, 40, 1, 2),
            "entire-length by=-1": (b"CFA6LPAA", 1039, 40, 1, 2),
            "entire-length value=0xffffffffffffffff": (b"CFA6LPAA", 2**64 - 1, 40, 1, 2),
            "this-length": (b"CFA6LPAA", 1040, 41, 1, 2),
            "reply-operation value=0x13": (b"CFA6LPAA", 1040, 40, 1, 0x13),
            "payload hex=": (b"CFA6LPAA", 40, 40, 1, 2),
            "payload hex=001122": (b"CFA6LPAA", 43, 40, 1, 2),
        }
        for fault, header in cases.items():
            afc = self.afc()
            handle = afc.open(b"/1.JPG")
            self.tell("fault " + fault)
            afc.number = 0
            afc.ask(0x0F, struct.pack("<QQ", handle, 1000))
            self.assertEqual(afc.header(), header, fault)
            self.tell("clear")

    def test_a_stall_lasts_until_it_is_released(self):
        afc = self.afc()
        self.tell("fault stall operation=GetFileInfo")
        afc.ask(0x0A, b"/\0")
        self.tell("wait stalled 1")
        afc.connection.setblocking(False)
        self.assertRaises((BlockingIOError, ssl.SSLWantReadError), afc.connection.recv, 1)
        afc.connection.setblocking(True)
        self.assertEqual(self.afc().info(b"/")[b"st_ifmt"], b"S_IFDIR")  # others are served
        self.tell("release")
        self.assertEqual(afc.reply()[0], 2)
        self.tell("wait stalled 0")

    def test_a_stall_within_a_reply(self):
        afc = self.afc()
        handle = afc.open(b"/1.JPG")
        self.tell("fault stall reply-bytes=540")
        afc.ask(0x0F, struct.pack("<QQ", handle, 1000))
        self.tell("wait stalled 1")
        received = receive(afc.connection, 540)
        self.assertEqual(received[40:], DATA[:500])
        self.tell("clear")
        self.assertEqual(receive(afc.connection, 500), DATA[500:])

    def test_a_stall_ends_with_its_host(self):
        for setting in ("", " reply-bytes=50"):
            afc = self.afc()
            self.tell("fault stall" + setting)
            afc.ask(0x03, b"/\0")
            self.tell("wait stalled 1")
            afc.connection.close()
            self.tell("wait stalled 0")
            self.tell("wait connections 0")

    def test_a_phone_that_leaves_cuts_its_connections_and_stalls(self):
        one, two = self.afc(), self.afc()
        self.tell("fault stall")
        one.ask(0x03, b"/\0")
        self.tell("wait stalled 1")
        self.tell("detach")
        for afc in (one, two):
            with self.assertRaises(Ended):
                afc.header()
        self.tell("wait connections 0")
        self.tell("attach")
        self.assertEqual(self.copy(self.afc()), DATA)

    def test_slow_is_complete(self):
        data = os.urandom(200_000)
        self.write("2.MOV", data)
        afc = self.afc()
        self.tell("slow latency=2 rate=5000000")
        self.assertEqual(afc.read(afc.open(b"/2.MOV"), 300_000), data)
        self.assertEqual(self.copy(self.afc()), DATA)


class EncryptedFaults(Faults):
    """The same with TLS: faults count what is sent before it is encrypted."""

    PHONES = [{"tls": True}]
    STEP = 101


class SeveralPhones(PhoneCase):
    PHONES = [{}, {"udid": OTHER_UDID}]

    def test_fail_each_for_itself(self):
        self.tell(f"@{OTHER_UDID} fault status code=4 times=always")
        other = self.daemon.phones[1]
        self.assertEqual(self.afc().names(b"/"), [b".", b".."])
        self.assertEqual(self.afc(other).status(0x03, b"/\0"), 4)
        self.tell(f"@{OTHER_UDID} detach")
        self.assertEqual(self.afc().names(b"/"), [b".", b".."])


unittest.main()
