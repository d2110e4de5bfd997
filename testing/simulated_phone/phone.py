"""One simulated phone: what it is, what state it is in, and what was counted on it."""

import contextlib
import json
import sys
import threading
import time

from faults import Faults
from media_folder import MediaFolder

SERVICES = ("afc", "lockdown", "tls", "usbmux")
OPERATIONS_KEPT = 100_000
USB, NETWORK = "usb", "network"
FIRST_SERVICE_PORT, LAST_SERVICE_PORT = 49152, 62000


class Way:
    """One of the connections that a phone may have with this computer. Used by the daemon."""

    def __init__(self, name, attached):
        self.name = name
        self.attached = attached
        self.device_id = 0  # another one after every attaching


class Phone:
    """For any thread: `changed` guards everything that changes, and is told of every change."""

    def __init__(self, settings, device_keys):
        known = {
            "root", "udid", "name", "product_version", "tls", "paired", "locked", "attached", "trust", "max_handles",
            "usb", "network",
        }  # fmt: skip
        unknown = set(settings) - known
        if unknown:
            raise ValueError(f"unknown settings of a phone: {', '.join(sorted(unknown))}")
        self.folder = MediaFolder(settings["root"])
        self.udid = settings.get("udid", "5133a1a7ed9403e0000000000000000000000001")
        self.tls = settings.get("tls", False)
        self.max_handles = settings.get("max_handles", 256)
        self.keys = device_keys
        self.changed = threading.Condition()
        self.faults = Faults()
        self.latency = 0.0  # seconds a request
        self.rate = 0  # bytes a second, 0 without limit
        attached = settings.get("attached", True)
        wanted = {USB: settings.get("usb", True), NETWORK: settings.get("network", False)}
        self.ways = [Way(name, attached) for name, is_wanted in wanted.items() if is_wanted]
        self.network = None  # NetworkSide, given by the daemon to a phone that is on the network
        self.locked = settings.get("locked", False)
        self.locked_for_sessions = False
        self.trust = settings.get("trust", "granted")
        self.refused_services = {}  # name -> error
        self.hosts = {}  # HostID -> certificates of the pair record, on the side of the phone
        self.ports = {}  # port -> (service, TLS context or None)
        self.last_port = FIRST_SERVICE_PORT
        self.channels = set()
        self.accepted = dict.fromkeys(SERVICES, 0)
        self.sent = dict.fromkeys(SERVICES, 0)
        self.operations = dict.fromkeys(SERVICES, 0)
        self.history = []
        self.handles = 0
        self.refused = 0
        self.stalled = 0
        self.release = threading.Event()
        self.values = {
            "DeviceClass": "Phone",
            "DeviceName": settings.get("name", "Simulated phone"),
            "ProductType": "Phone1,1",
            "ProductVersion": settings.get("product_version", "16.7"),
            "UniqueDeviceID": self.udid,
            "WiFiAddress": "02:00:00:00:00:01",
        }
        self.private_values = {"SerialNumber": "SIMULATED001", "TimeZone": "Etc/UTC"}

    def complain(self, text):
        print(f"simulated phone {self.udid}: {text}", file=sys.stderr, flush=True)

    # Connections

    def add(self, channel):
        with self.changed:
            self.channels.add(channel)
            self.accepted[channel.service] += 1
            self.changed.notify_all()

    def remove(self, channel):
        self.faults.forget(channel)
        with self.changed:
            self.channels.discard(channel)
            self.changed.notify_all()

    @property
    def device_id(self):
        """Under which the daemon knows its first way."""
        return self.ways[0].device_id

    def cut_all(self, way):
        with self.changed:
            channels = [channel for channel in self.channels if channel.way == way]
            if not any(other.attached for other in self.ways):
                self.ports.clear()
        for channel in channels:
            channel.cut()

    def new_port(self, service, context):
        with self.changed:
            while True:
                self.last_port = self.last_port + 1 if self.last_port < LAST_SERVICE_PORT else FIRST_SERVICE_PORT
                self.ports[self.last_port] = (service, context)
                if self.network is None or self.network.offer(self.last_port):
                    return self.last_port
                del self.ports[self.last_port]

    def take_port(self, port):
        """A started service takes one connection."""
        with self.changed:
            return self.ports.pop(port, None)

    # Counting

    def count_sent(self, service, size):
        with self.changed:
            self.sent[service] += size

    def count_operation(self, service, name, path):
        with self.changed:
            self.operations[service] += 1
            if service == "afc" and len(self.history) < OPERATIONS_KEPT:
                self.history.append((name, path))
            self.changed.notify_all()

    def count_handles(self, difference):
        with self.changed:
            self.handles += difference
            self.changed.notify_all()

    def count_refused(self):
        with self.changed:
            self.refused += 1

    def counters(self):
        """The caller holds `changed`."""
        open_now = [channel.service for channel in self.channels]
        return {
            "bytes": self.sent["afc"],
            "operations": self.operations["afc"],
            "connections": open_now.count("afc"),
            "accepted": self.accepted["afc"],
            "handles": self.handles,
            "refused": self.refused,
            "stalled": self.stalled,
            "lockdown-bytes": self.sent["lockdown"],
            "lockdown-operations": self.operations["lockdown"],
            "lockdown-connections": open_now.count("lockdown"),
        }

    def wait_for(self, name, value, limit):
        """False when the counter did not get this value in so many seconds."""
        end = time.monotonic() + limit
        with self.changed:
            while self.counters()[name] != value:
                left = end - time.monotonic()
                if left <= 0:
                    return False
                self.changed.wait(left)
        return True

    def history_text(self):
        with self.changed:
            return json.dumps(self.history)

    # Stalls

    @contextlib.contextmanager
    def stalling(self):
        """Gives the event that ends the stall."""
        with self.changed:
            release = self.release
            self.stalled += 1
            self.changed.notify_all()
        try:
            yield release
        finally:
            with self.changed:
                self.stalled -= 1
                self.changed.notify_all()

    def release_stalls(self):
        with self.changed:
            self.release.set()
            self.release = threading.Event()
            channels = list(self.channels)
        for channel in channels:
            channel.wake()
