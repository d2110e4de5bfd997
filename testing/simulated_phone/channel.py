"""One connection between a host and a service of the phone: bytes, TLS, pace, and what cuts or stalls it."""

import collections
import os
import select
import socket
import ssl
import threading
import time

PIECE = 256 * 1024  # small enough to stay in the processor's cache between reading and sending
PACED_PIECE = 16 * 1024
READ_AHEAD = 64


class Gone(Exception):
    """The connection is over: the host left, the device left, or a fault cut it."""


class Channel:
    """Used by the thread of its connection; cut() and wake() by any thread."""

    def __init__(self, connection, phone, service, way):
        self.connection = connection
        self.phone = phone
        self.service = service
        self.way = way  # by which it came: USB or NETWORK of phone.py
        self.received = collections.deque()  # (time of arrival, bytes)
        # Requests that arrive while one waits are taken in, to know their time; not where TLS may begin or end.
        self.reads_ahead = False
        self.arrival = 0.0  # when the last bytes that were handed out had arrived
        self.sent_until = 0.0  # when a connection of the set rate is through with what was sent
        self.cut_off = threading.Event()
        self.bell = os.eventfd(0, os.EFD_CLOEXEC | os.EFD_NONBLOCK)
        self.bell_lock = threading.Lock()

    # Receiving

    def receive_exactly(self, size):
        parts = []
        while size > 0:
            if not self.received:
                self._receive()
            self.arrival, data = self.received.popleft()
            if len(data) > size:
                self.received.appendleft((self.arrival, data[size:]))
                data = data[:size]
            parts.append(data)
            size -= len(data)
        return parts[0] if len(parts) == 1 else b"".join(parts)

    def _receive(self):
        try:
            data = self.connection.recv(64 * 1024)
            if not data and isinstance(self.connection, ssl.SSLSocket):
                # The host ended TLS, and may go on without it. Without the host's farewell this raises.
                self.connection = self.connection.unwrap()
                data = self.connection.recv(64 * 1024)
        except (OSError, ValueError) as error:
            raise Gone() from error
        if not data or self.cut_off.is_set():
            raise Gone()
        self.received.append((time.monotonic(), data))

    # Sending

    def send(self, data):
        view = memoryview(data)
        while True:
            count, rule = self.phone.faults.bytes_until_fault(self, len(view))
            self._send(view[:count])
            if rule is not None:
                self.suffer(rule)
            if count == len(view):
                return
            view = view[count:]

    def _send(self, view):
        self.phone.count_sent(self.service, len(view))
        rate = self.phone.rate
        step = PACED_PIECE if rate else len(view)
        for start in range(0, len(view), step or 1):
            piece = view[start : start + step]
            try:
                self.connection.sendall(piece)
            except (OSError, ValueError) as error:
                raise Gone() from error
            if rate:
                self.sent_until = max(self.sent_until, time.monotonic()) + len(piece) / rate
                self.pause_until(self.sent_until)

    # Faults

    def suffer(self, rule):
        """A cut raises Gone; a stall returns when it was released."""
        if rule.action == "cut":
            self.cut()
            raise Gone()
        if rule.action == "stall":
            with self.phone.stalling() as release:
                while not release.is_set():
                    self._wait(None)

    def pause_for_latency(self):
        """The way takes its time for every request, however many are on it."""
        if self.phone.latency:
            self.pause_until(self.arrival + self.phone.latency)

    def pause_until(self, moment):
        while True:
            left = moment - time.monotonic()
            if left <= 0:
                return
            self._wait(left)

    def _wait(self, seconds):
        """Returns after this time, or earlier: when something arrived or the bell was rung. Raises when the host left."""
        poll = select.poll()
        poll.register(self.bell, select.POLLIN)
        takes_in = self.reads_ahead and len(self.received) < READ_AHEAD
        poll.register(self.connection, select.POLLRDHUP | (select.POLLIN if takes_in else 0))
        for descriptor, events in poll.poll(None if seconds is None else seconds * 1000):
            if descriptor == self.bell:
                os.eventfd_read(self.bell)
            elif events & select.POLLIN:
                self._receive()
            elif events & (select.POLLRDHUP | select.POLLHUP | select.POLLERR):
                raise Gone()
        if self.cut_off.is_set():
            raise Gone()

    def wake(self):
        with self.bell_lock:
            if self.bell >= 0:
                os.eventfd_write(self.bell, 1)

    def cut(self):
        """Ends the connection at once, without TLS's farewell. May be called from any thread."""
        self.cut_off.set()
        try:
            socket.socket.shutdown(self.connection, socket.SHUT_RDWR)
        except OSError:
            pass  # the host was faster
        self.wake()

    def close(self):
        with self.bell_lock:
            os.close(self.bell)
            self.bell = -1
        self.connection.close()

    # TLS

    def start_tls(self, context):
        rule = self.phone.faults.operation(self, "tls", "Handshake", "")
        if rule is not None:
            self.suffer(rule)
        try:
            self.connection = context.wrap_socket(self.connection, server_side=True)
        except (OSError, ValueError) as error:
            self.phone.complain(f"TLS with the host failed: {error}")
            raise Gone() from error
