"""The daemon between hosts and phones: lists them, keeps pair records, and connects to their ports."""

import errno
import functools
import plistlib
import socket
import struct
import sys
import threading

import lockdown
from afc import AfcService
from channel import Channel, Gone
from network import NetworkSide
from phone import NETWORK, USB

HEADER = struct.Struct("<IIII")
PLIST_VERSION, PLIST_MESSAGE = 1, 8
LONGEST_MESSAGE = 1024 * 1024
OK, BAD_COMMAND, BAD_DEVICE, REFUSED = 0, 1, 2, 3
SYSTEM_BUID = "5A1D0000-0000-4000-8000-0000000000B1"
HOST_ID = "5A1D0000-0000-4000-8000-0000000000A1"
SEND_BUFFER = 1024 * 1024


class Daemon:
    def __init__(self, phones, listening):
        self.phones = phones
        self.listening = listening
        self.lock = threading.Lock()
        self.pair_records = {}  # UDID -> bytes
        self.listeners = {}  # connection -> the lock for sending on it
        self.last_device_id = 0
        for phone in phones:
            for way in phone.ways:
                if way.name == NETWORK:
                    phone.network = NetworkSide(functools.partial(self.serve_network, phone, way))
                if way.attached:
                    way.device_id = self.next_device_id()

    def next_device_id(self):
        with self.lock:
            self.last_device_id += 1
            return self.last_device_id

    def run(self):
        while True:
            try:
                connection, _ = self.listening.accept()
            except OSError as error:
                if error.errno not in (errno.EBADF, errno.EINVAL):  # it was closed
                    print(f"simulated phones: no more connections: {error}", file=sys.stderr, flush=True)
                return
            threading.Thread(target=self.serve, args=(connection,), daemon=True).start()

    # Phones that come and go

    @staticmethod
    def attached_message(phone, way):
        properties = {"DeviceID": way.device_id, "SerialNumber": phone.udid}
        if way.name == USB:
            properties.update(
                ConnectionType="USB", ConnectionSpeed=480000000, LocationID=way.device_id << 16, ProductID=0x12A8
            )
        else:
            properties.update(ConnectionType="Network", NetworkAddress=phone.network.announced_address())
        return {"MessageType": "Attached", "DeviceID": way.device_id, "Properties": properties}

    def attached_messages(self):
        return [self.attached_message(phone, way) for phone in self.phones for way in phone.ways if way.attached]

    def attach(self, phone, name=None):
        """By the way of this name, or by every one that the phone has."""
        for way in phone.ways:
            if name in (None, way.name) and not way.attached:
                way.device_id = self.next_device_id()
                way.attached = True
                self.tell(self.attached_message(phone, way))

    def detach(self, phone, name=None):
        for way in phone.ways:
            if name in (None, way.name) and way.attached:
                way.attached = False
                self.tell({"MessageType": "Detached", "DeviceID": way.device_id})
                phone.cut_all(way.name)

    def tell(self, message):
        with self.lock:
            listeners = list(self.listeners.items())
        for connection, sending in listeners:
            try:
                with sending:
                    send_message(connection, 0, message)
            except OSError:
                pass  # its thread sees the end

    # Hosts

    def serve(self, connection):
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, SEND_BUFFER)
        if connection.family == socket.AF_INET:
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        try:
            while True:
                tag, request = receive_message(connection)
                if request["MessageType"] == "Connect":
                    if self.connect(connection, tag, request):
                        return
                elif request["MessageType"] == "Listen":
                    self.listen(connection, tag)
                else:
                    send_message(connection, tag, self.answer(request))
        except (OSError, Gone, KeyError, ValueError, plistlib.InvalidFileException):
            pass  # the host left, or speaks something else
        finally:
            with self.lock:
                self.listeners.pop(connection, None)
            connection.close()

    def answer(self, request):
        kind = request["MessageType"]
        udid = request.get("PairRecordID")
        if kind == "ListDevices":
            return {"DeviceList": self.attached_messages()}
        if kind == "ReadBUID":
            return {"BUID": SYSTEM_BUID}
        with self.lock:
            if kind == "ReadPairRecord":
                record = self.pair_records.get(udid)
                return {"PairRecordData": record} if record is not None else result(BAD_DEVICE)
            if kind == "SavePairRecord":
                self.pair_records[udid] = request["PairRecordData"]
                return result(OK)
            if kind == "DeletePairRecord":
                return result(OK if self.pair_records.pop(udid, None) is not None else BAD_DEVICE)
        return result(BAD_COMMAND)

    def listen(self, connection, tag):
        sending = threading.Lock()
        with sending:
            with self.lock:
                self.listeners[connection] = sending
            send_message(connection, tag, result(OK))
            for message in self.attached_messages():
                send_message(connection, 0, message)

    def connect(self, connection, tag, request):
        """True when the connection has become a tunnel, which is over then."""
        wanted = [(p, w) for p in self.phones for w in p.ways if w.attached and w.device_id == request["DeviceID"]]
        if not wanted or wanted[0][1].name != USB:  # hosts reach the network without the daemon
            send_message(connection, tag, result(BAD_DEVICE))
            return False
        phone = wanted[0][0]
        service, context = self.service_at(phone, socket.ntohs(request["PortNumber"]))
        if service is None:
            send_message(connection, tag, result(REFUSED))
            return False

        def accept(channel):
            rule = phone.faults.operation(channel, "usbmux", "Connect", "")
            if rule is not None:
                channel.suffer(rule)
            send_message(connection, tag, result(OK))

        self.tunnel(Channel(connection, phone, service, USB), context, accept)
        return True

    def serve_network(self, phone, way, connection, port):
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, SEND_BUFFER)
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        service, context = self.service_at(phone, port) if way.attached else (None, None)
        if service is None:
            connection.close()
        else:
            self.tunnel(Channel(connection, phone, service, NETWORK), context)

    @staticmethod
    def service_at(phone, port):
        """(name, TLS context or None), or (None, None)."""
        return ("lockdown", None) if port == lockdown.PORT else phone.take_port(port) or (None, None)

    @staticmethod
    def tunnel(channel, context, accept=None):
        """Serves the connection to its end."""
        phone = channel.phone
        phone.add(channel)
        try:
            if accept is not None:
                accept(channel)
            if context is not None:
                channel.start_tls(context)
            (AfcService if channel.service == "afc" else lockdown.LockdownService)(channel, phone).run()
        except Gone:
            pass
        finally:
            phone.remove(channel)
            channel.close()

    # Pair records

    def pair(self, phone):
        """Computer and phone know each other, as after an answered trust question."""
        record = phone.keys.pair_record(HOST_ID, SYSTEM_BUID)
        with self.lock:
            self.pair_records[phone.udid] = plistlib.dumps(record)
        with phone.changed:
            phone.hosts[HOST_ID] = record


def result(number):
    return {"MessageType": "Result", "Number": number}


def send_message(connection, tag, message):
    data = plistlib.dumps(message)
    connection.sendall(HEADER.pack(HEADER.size + len(data), PLIST_VERSION, PLIST_MESSAGE, tag) + data)


def receive_message(connection):
    size, _, kind, tag = HEADER.unpack(receive_exactly(connection, HEADER.size))
    if kind != PLIST_MESSAGE or not HEADER.size <= size <= LONGEST_MESSAGE:
        raise ValueError("no message with a property list")
    return tag, plistlib.loads(receive_exactly(connection, size - HEADER.size))


def receive_exactly(connection, size):
    """Takes nothing of what follows, which may belong to a tunnel."""
    data = bytearray()
    while len(data) < size:
        part = connection.recv(size - len(data))
        if not part:
            raise Gone()
        data += part
    return bytes(data)
