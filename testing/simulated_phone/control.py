"""Command lines that change the simulated phones while hosts use them. Every line is answered by one line."""

import shlex

COMMANDS = """\
fault ACTION [NAME=VALUE]...  what goes wrong, see README.md
clear                         no faults, full speed, stalls released
release                       stalls end
slow [latency=MS] [rate=N]    milliseconds a request, bytes a second; 0 or absent: none
lock [sessions]               no service starts; with "sessions" no session either
unlock
trust granted|pending|refused the answer to the trust question
pair                          computer and phone know each other
forget                        the phone forgets all computers
refuse SERVICE ERROR          starting the service fails so
allow SERVICE
set KEY VALUE                 what GetValue answers
detach [usb|network]          the phone leaves, connections end
attach [usb|network]          it is back
counters
operations                    the file operations so far: JSON, [[name, path], ...]
wait COUNTER VALUE            until the counter has the value
help
"""
WAIT_LIMIT = 60


class Control:
    def __init__(self, daemon):
        self.daemon = daemon

    def answer(self, line):
        phone = self.daemon.phones[0]
        try:
            if line.startswith("@"):
                udid, _, line = line[1:].partition(" ")
                phone = next((p for p in self.daemon.phones if p.udid == udid), None)
                if phone is None:
                    raise ValueError(f"there is no phone {udid}")
            name, _, rest = line.strip().partition(" ")
            command = getattr(self, "do_" + name, None)
            if command is None:
                raise ValueError(f"unknown command '{name}'; help lists them")
            text = command(phone, rest.strip())
            return f"ok {text}" if text else "ok"
        except (ValueError, KeyError, TypeError) as error:
            return f"error {error}".replace("\n", " ")

    def do_fault(self, phone, rest):
        phone.faults.add(rest)

    def do_clear(self, phone, _):
        phone.faults.clear()
        phone.latency, phone.rate = 0.0, 0
        phone.release_stalls()

    def do_release(self, phone, _):
        phone.release_stalls()

    def do_slow(self, phone, rest):
        latency, rate = 0.0, 0
        for word in rest.split():
            name, _, value = word.partition("=")
            if name == "latency":
                latency = float(value) / 1000
            elif name == "rate":
                rate = int(value)
            else:
                raise ValueError(f"slow takes no '{word}'")
        phone.latency, phone.rate = latency, rate

    def do_lock(self, phone, rest):
        if rest not in ("", "sessions"):
            raise ValueError("lock takes nothing, or 'sessions'")
        with phone.changed:
            phone.locked, phone.locked_for_sessions = True, rest == "sessions"

    def do_unlock(self, phone, _):
        with phone.changed:
            phone.locked = phone.locked_for_sessions = False

    def do_trust(self, phone, rest):
        if rest not in ("granted", "pending", "refused"):
            raise ValueError("trust is granted, pending or refused")
        with phone.changed:
            phone.trust = rest

    def do_pair(self, phone, _):
        self.daemon.pair(phone)

    def do_forget(self, phone, _):
        with phone.changed:
            phone.hosts.clear()

    def do_refuse(self, phone, rest):
        service, error = shlex.split(rest)
        with phone.changed:
            phone.refused_services[service] = error

    def do_allow(self, phone, rest):
        with phone.changed:
            phone.refused_services.pop(rest, None)

    def do_set(self, phone, rest):
        key, value = shlex.split(rest)
        with phone.changed:
            phone.values[key] = value

    def do_attach(self, phone, rest):
        self.daemon.attach(phone, self._way(phone, rest))

    def do_detach(self, phone, rest):
        self.daemon.detach(phone, self._way(phone, rest))

    @staticmethod
    def _way(phone, name):
        names = [way.name for way in phone.ways]
        if name and name not in names:
            raise ValueError(f"the phone is connected by {' and '.join(names)} only")
        return name or None

    def do_counters(self, phone, _):
        with phone.changed:
            return " ".join(f"{name}={value}" for name, value in phone.counters().items())

    def do_operations(self, phone, _):
        return phone.history_text()

    def do_wait(self, phone, rest):
        name, value = rest.split()
        if not phone.wait_for(name, int(value), WAIT_LIMIT):
            with phone.changed:
                raise ValueError(f"{name} is {phone.counters()[name]} after {WAIT_LIMIT} seconds, not {value}")

    def do_help(self, _, __):
        return " | ".join(" ".join(line.split()) for line in COMMANDS.splitlines())
