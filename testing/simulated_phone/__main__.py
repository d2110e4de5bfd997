"""Simulated phones behind a daemon of their own. Ends when its standard input ends."""

import argparse
import json
import os
import socket
import sys
import threading

from certificates import Certificates
from control import Control
from phone import Phone
from usbmux import Daemon


def arguments():
    parser = argparse.ArgumentParser(prog="simulated_phone", description=__doc__)
    parser.add_argument("--phone", action="append", required=True, metavar="JSON",
                        help='such as {"root": "/media", "tls": true}; may be repeated')  # fmt: skip
    parser.add_argument("--socket", metavar="PATH", help="a Unix socket instead of a port of 127.0.0.1")
    parser.add_argument("--certificates", required=True, metavar="FOLDER",
                        help="keys and certificates, which are made when it is missing")  # fmt: skip
    return parser.parse_args()


def listen(path):
    """The socket, and its address as USBMUXD_SOCKET_ADDRESS wants it."""
    if path is None:
        listening = socket.create_server(("127.0.0.1", 0), backlog=64)
        return listening, f"127.0.0.1:{listening.getsockname()[1]}"
    listening = socket.socket(socket.AF_UNIX)
    listening.bind(path)
    listening.listen(64)
    return listening, f"UNIX:{path}"


def main():
    options = arguments()
    os.umask(0o077)
    keys = Certificates(options.certificates)
    settings = [json.loads(text) for text in options.phone]
    phones = [Phone(setting, keys) for setting in settings]
    listening, address = listen(options.socket)
    daemon = Daemon(phones, listening)
    for phone, setting in zip(phones, settings):
        if setting.get("paired", True):
            daemon.pair(phone)
    threading.Thread(target=daemon.run, daemon=True).start()
    control = Control(daemon)
    print("ready", address, flush=True)
    for line in sys.stdin:
        print(control.answer(line.rstrip("\n")), flush=True)
    if options.socket:
        os.unlink(options.socket)
    # Connections may be anywhere: nothing is worth waiting for.
    os._exit(0)


main()
