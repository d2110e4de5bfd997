"""What is to go wrong, and when: rules that count operations or bytes."""

import fnmatch
import shlex
import threading

# What an action takes beside the conditions, and what it needs.
ACTIONS = {
    "cut": {"reply-bytes"},
    "stall": {"reply-bytes"},
    "status": {"code"},
    "short": {"bytes"},
    "empty": set(),
    "packet-number": {"by", "value"},
    "magic": {"hex"},
    "entire-length": {"by", "value"},
    "this-length": {"by", "value"},
    "reply-operation": {"value"},
    "payload": {"hex"},
    "error": {"name"},
}
NEEDED = {"status": "code", "reply-operation": "value", "payload": "hex", "error": "name"}
CONDITIONS = {"service", "operation", "path", "at", "times", "per", "after-bytes"}


class Rule:
    """One `fault` command. The caller of every method but the constructor holds the lock of Faults."""

    def __init__(self, action, settings):
        if action not in ACTIONS:
            raise ValueError(f"unknown fault '{action}'; there are {', '.join(ACTIONS)}")
        for name in settings:
            if name not in CONDITIONS | ACTIONS[action]:
                raise ValueError(f"fault {action} takes no '{name}'")
        if action in NEEDED and NEEDED[action] not in settings:
            raise ValueError(f"fault {action} needs {NEEDED[action]}=...")
        self.action = action
        self.service = settings.get("service", "afc")
        self.operation = settings.get("operation")
        self.path = settings.get("path")
        self.first = int(settings.get("at", "1"))
        times = settings.get("times", "1")
        self.last = None if times == "always" else self.first + int(times) - 1
        self.after_bytes = int(settings["after-bytes"]) if "after-bytes" in settings else None
        if settings.get("per", "all") not in ("all", "connection"):
            raise ValueError("per is 'all' or 'connection'")
        self.per_connection = settings.get("per") == "connection"
        if self.after_bytes is not None and action not in ("cut", "stall"):
            raise ValueError("after-bytes goes with cut and stall")
        self.reply_bytes = int(settings["reply-bytes"]) if "reply-bytes" in settings else None
        self.code = int(settings.get("code", "0"))
        self.bytes = int(settings["bytes"]) if "bytes" in settings else None
        self.by = int(settings.get("by", "1"))
        self.value = int(settings["value"], 0) if "value" in settings else None
        self.data = bytes.fromhex(settings.get("hex", ""))
        self.name = settings.get("name")
        self.seen = {}  # connection, or None for all of them -> matching operations, or bytes that are left

    def _key(self, channel):
        return channel if self.per_connection else None

    def fires(self, channel, service, operation, path):
        if self.after_bytes is not None or service != self.service:
            return False
        if self.operation is not None and self.operation != operation:
            return False
        if self.path is not None and not fnmatch.fnmatchcase(path, self.path):
            return False
        number = self.seen.get(self._key(channel), 0) + 1
        self.seen[self._key(channel)] = number
        return number >= self.first and (self.last is None or number <= self.last)

    def bytes_left(self, channel):
        if self.after_bytes is None or channel.service != self.service:
            return None
        left = self.seen.setdefault(self._key(channel), self.after_bytes)
        return left if left >= 0 else None

    def take_bytes(self, channel, count):
        """True when they were the last ones."""
        key = self._key(channel)
        self.seen[key] -= count
        if self.seen[key] > 0:
            return False
        self.seen[key] = -1
        return True

    def changed(self, value):
        """A number of a reply as this rule wants it."""
        return (self.value if self.value is not None else value + self.by) % 2**64


class Faults:
    """All rules of one phone. For any thread."""

    def __init__(self):
        self.lock = threading.Lock()
        self.rules = []
        self.replies = {}  # channel -> rule within the reply that is sent on it

    def add(self, text):
        words = shlex.split(text)
        if not words:
            raise ValueError("fault ACTION [NAME=VALUE]...")
        settings = {}
        for word in words[1:]:
            name, equals, value = word.partition("=")
            if not equals:
                raise ValueError(f"'{word}' is no NAME=VALUE")
            settings[name] = value
        rule = Rule(words[0], settings)
        with self.lock:
            self.rules.append(rule)

    def clear(self):
        with self.lock:
            self.rules.clear()
            self.replies.clear()

    def operation(self, channel, service, name, path):
        """The rule that this operation meets, or None. Every rule counts it."""
        with self.lock:
            if not self.rules:
                return None
            met = [rule for rule in self.rules if rule.fires(channel, service, name, path)]
        return met[0] if met else None

    def break_reply(self, channel, rule):
        """The bytes sent next on this channel are a reply that the rule breaks off after rule.reply_bytes."""
        reply = Rule(rule.action, {"after-bytes": str(rule.reply_bytes), "service": channel.service})
        with self.lock:
            self.replies[channel] = reply

    def end_reply(self, channel):
        with self.lock:
            self.replies.pop(channel, None)

    def bytes_until_fault(self, channel, count):
        """How many of these bytes may be sent, and the rule to obey afterwards, or None."""
        with self.lock:
            if not self.rules and not self.replies:
                return count, None
            waiting = [(rule, rule.bytes_left(channel)) for rule in self.rules]
            if channel in self.replies:
                waiting.append((self.replies[channel], self.replies[channel].bytes_left(channel)))
            waiting = [(rule, left) for rule, left in waiting if left is not None]
            allowed = min([count] + [left for _, left in waiting])
            met = [rule for rule, _ in waiting if rule.take_bytes(channel, allowed)]
            return allowed, met[0] if met else None

    def forget(self, channel):
        """The connection is over."""
        with self.lock:
            self.replies.pop(channel, None)
            for rule in self.rules:
                rule.seen.pop(channel, None)
