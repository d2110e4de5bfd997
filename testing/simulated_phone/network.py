"""A phone on the network: an address of its own of this computer, where hosts reach its services without the daemon."""

import errno
import random
import socket
import struct
import threading

from lockdown import PORT

MOST_TRIES = 100
BSD_ADDRESS_SIZE = 16


class NetworkSide:
    """`serve` is called with every connection and the port that it came to, on a thread of its own."""

    def __init__(self, serve):
        self.serve = serve
        self.lock = threading.Lock()
        self.listening = set()
        for tries_left in reversed(range(MOST_TRIES)):
            # Every address of 127.0.0.0/8 is this computer's, so that many phones can have the same port.
            self.host = f"127.{random.randint(1, 254)}.{random.randint(0, 255)}.{random.randint(1, 254)}"
            try:
                self._listen(PORT, False)
                return
            except OSError as error:
                if error.errno != errno.EADDRINUSE or not tries_left:
                    raise

    def announced_address(self):
        """As daemons announce it: length and family in a byte each, port, address, zeros."""
        address = struct.pack(">BBH", BSD_ADDRESS_SIZE, socket.AF_INET, 0) + socket.inet_aton(self.host)
        return address.ljust(BSD_ADDRESS_SIZE, b"\0")

    def offer(self, port):
        """For one connection. False when the port is taken."""
        try:
            self._listen(port, True)
            return True
        except OSError as error:
            if error.errno != errno.EADDRINUSE:
                raise
            return False

    def close(self):
        with self.lock:
            listening, self.listening = self.listening, set()
        for one in listening:
            one.close()

    def _listen(self, port, once):
        listening = socket.create_server((self.host, port), backlog=64)
        with self.lock:
            self.listening.add(listening)
        threading.Thread(target=self._run, args=(listening, port, once), daemon=True).start()

    def _run(self, listening, port, once):
        try:
            while True:
                connection, _ = listening.accept()
                threading.Thread(target=self.serve, args=(connection, port), daemon=True).start()
                if once:
                    return
        except OSError:
            pass  # it was closed
        finally:
            with self.lock:
                self.listening.discard(listening)
            listening.close()
