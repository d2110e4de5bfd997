"""A simulated phone within the test's own process, and a small host to use it with."""

import os
import pathlib
import plistlib
import socket
import ssl
import struct
import sys
import tempfile
import threading
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "testing" / "simulated_phone"))

from certificates import Certificates  # noqa: E402
from control import Control  # noqa: E402
from phone import Phone  # noqa: E402
from usbmux import HOST_ID, SYSTEM_BUID, Daemon  # noqa: E402

AFC_HEADER = struct.Struct("<8sQQQQ")
CERTIFICATES = os.environ["SIMULATED_PHONE_CERTIFICATES"]
OTHER_UDID = "5133a1a7ed9403e0000000000000000000000002"


class Ended(Exception):
    """The connection ended where bytes were expected."""


def receive(connection, size):
    data = bytearray()
    while len(data) < size:
        try:
            part = connection.recv(size - len(data))
        except (ConnectionError, ssl.SSLError) as error:
            raise Ended(len(data)) from error
        if not part:
            raise Ended(len(data))
        data += part
    return bytes(data)


def send(connection, data):
    try:
        connection.sendall(data)
    except (ConnectionError, ssl.SSLError) as error:
        raise Ended(0) from error


class Afc:
    """The host's side of the file service."""

    def __init__(self, connection):
        self.connection = connection
        self.number = 0

    def ask(self, operation, parameters=b""):
        self.number += 1
        size = AFC_HEADER.size + len(parameters)
        send(self.connection, AFC_HEADER.pack(b"CFA6LPAA", size, size, self.number, operation) + parameters)

    def header(self):
        return AFC_HEADER.unpack(receive(self.connection, AFC_HEADER.size))

    def reply(self):
        """(operation, parameters, payload) of a reply that must be sound."""
        magic, entire, this, number, operation = self.header()
        assert (magic, number) == (b"CFA6LPAA", self.number), (magic, number)
        assert AFC_HEADER.size <= this <= entire, (this, entire)
        return operation, receive(self.connection, this - AFC_HEADER.size), receive(self.connection, entire - this)

    def call(self, operation, parameters=b""):
        self.ask(operation, parameters)
        return self.reply()

    def status(self, operation, parameters=b""):
        """The status that the reply has to be."""
        kind, value, _ = self.call(operation, parameters)
        assert kind == 0x01, kind
        return struct.unpack("<Q", value)[0]

    def data(self, operation, parameters=b""):
        kind, _, payload = self.call(operation, parameters)
        assert kind == 0x02, kind
        return payload

    def names(self, path):
        return self.data(0x03, path + b"\0").split(b"\0")[:-1]

    def info(self, path):
        parts = self.data(0x0A, path + b"\0").split(b"\0")[:-1]
        return dict(zip(parts[::2], parts[1::2]))

    def open(self, path, mode=1):
        kind, value, _ = self.call(0x0D, struct.pack("<Q", mode) + path + b"\0")
        assert kind == 0x0E, (kind, value)
        return struct.unpack("<Q", value)[0]

    def open_status(self, path, mode=1):
        return self.status(0x0D, struct.pack("<Q", mode) + path + b"\0")

    def read(self, handle, size):
        return self.data(0x0F, struct.pack("<QQ", handle, size))

    def seek(self, handle, origin, offset):
        return self.status(0x11, struct.pack("<QQq", handle, origin, offset))

    def tell(self, handle):
        kind, value, _ = self.call(0x12, struct.pack("<Q", handle))
        assert kind == 0x13, kind
        return struct.unpack("<Q", value)[0]

    def close(self, handle):
        return self.status(0x14, struct.pack("<Q", handle))


class Lockdown:
    """The host's side of the service that starts others."""

    def __init__(self, connection, encrypt):
        self.connection = connection
        self.encrypt = encrypt

    def ask(self, request, **values):
        data = plistlib.dumps({"Request": request, **values})
        send(self.connection, struct.pack(">I", len(data)) + data)

    def reply(self):
        (size,) = struct.unpack(">I", receive(self.connection, 4))
        return plistlib.loads(receive(self.connection, size))

    def call(self, request, **values):
        self.ask(request, **values)
        return self.reply()

    def start_session(self, host_id=HOST_ID):
        reply = self.call("StartSession", HostID=host_id)
        if reply.get("EnableSessionSSL"):
            self.connection = self.encrypt(self.connection)
        return reply


class PhoneCase(unittest.TestCase):
    """One phone at self.phone, over the folder self.root; PHONES has the settings of all of them."""

    PHONES = [{}]

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name) / "media"
        self.root.mkdir()
        keys = Certificates(CERTIFICATES)
        phones = [Phone({"root": str(self.root), **settings}, keys) for settings in self.PHONES]
        self.phone = phones[0]
        listening = socket.socket(socket.AF_UNIX)
        listening.bind(f"{folder.name}/usbmuxd")
        listening.listen(16)
        self.address = f"{folder.name}/usbmuxd"
        self.daemon = Daemon(phones, listening)
        for phone, settings in zip(phones, self.PHONES):
            if settings.get("paired", True):
                self.daemon.pair(phone)
        threading.Thread(target=self.daemon.run, daemon=True).start()
        self.control = Control(self.daemon)
        self.addCleanup(listening.close)
        self.addCleanup(listening.shutdown, socket.SHUT_RDWR)
        self.addCleanup(self.control.answer, "clear")

    def write(self, path, data=b""):
        place = self.root / path
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_bytes(data)

    def tell(self, line):
        answer = self.control.answer(line)
        self.assertTrue(answer == "ok" or answer.startswith("ok "), f"{line}: {answer}")
        return answer[3:]

    def counter(self, name):
        return dict(word.split("=") for word in self.tell("counters").split())[name]

    def mux(self):
        connection = socket.socket(socket.AF_UNIX)
        self.addCleanup(connection.close)
        connection.connect(self.address)
        return connection

    def mux_send(self, connection, message):
        data = plistlib.dumps(message)
        connection.sendall(struct.pack("<IIII", 16 + len(data), 1, 8, 7) + data)

    def mux_receive(self, connection):
        size, _, _, self.tag = struct.unpack("<IIII", receive(connection, 16))
        return plistlib.loads(receive(connection, size - 16))

    def mux_call(self, message, connection=None):
        connection = connection or self.mux()
        self.mux_send(connection, message)
        return self.mux_receive(connection)

    def connect(self, port, phone=None):
        connection = self.mux()
        number = socket.htons(port)
        device = (phone or self.phone).device_id
        reply = self.mux_call({"MessageType": "Connect", "DeviceID": device, "PortNumber": number}, connection)
        self.assertEqual(reply["Number"], 0)
        return connection

    def tls(self, connection, certificate="host"):
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
        context.check_hostname = False
        context.load_verify_locations(f"{CERTIFICATES}/root.crt")
        if certificate:
            context.load_cert_chain(f"{CERTIFICATES}/{certificate}.crt", f"{CERTIFICATES}/{certificate}.key")
        encrypted = context.wrap_socket(connection)
        self.addCleanup(encrypted.close)
        return encrypted

    def lockdown(self, phone=None):
        return Lockdown(self.connect(62078, phone), self.tls)

    def start_service(self, service="com.apple.afc", phone=None):
        lockdown = self.lockdown(phone)
        self.assertNotIn("Error", lockdown.start_session())
        return lockdown.call("StartService", Service=service)

    def afc(self, phone=None):
        reply = self.start_service(phone=phone)
        self.assertNotIn("Error", reply)
        connection = self.connect(reply["Port"], phone)
        return Afc(self.tls(connection) if reply["EnableServiceSSL"] else connection)


__all__ = ["Afc", "Ended", "HOST_ID", "Lockdown", "OTHER_UDID", "PhoneCase", "SYSTEM_BUID", "receive"]
