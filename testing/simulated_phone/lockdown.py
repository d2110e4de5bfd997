"""The service that answers who the phone is, pairs with hosts, and starts other services."""

import plistlib
import struct

from channel import Gone

PORT = 62078
LONGEST_REQUEST = 1024 * 1024


class LockdownService:
    """One connection. Used by one thread."""

    def __init__(self, channel, phone):
        self.channel = channel
        self.phone = phone
        self.session = None  # the record of the host whose session is open

    def run(self):
        while True:
            (size,) = struct.unpack(">I", self.channel.receive_exactly(4))
            if size > LONGEST_REQUEST:
                raise Gone()
            try:
                request = plistlib.loads(self.channel.receive_exactly(size))
                name = request["Request"]
            except Exception as error:
                self.phone.complain(f"a lockdown message that is none: {error}")
                raise Gone() from error
            self.serve(name, request)

    def serve(self, name, request):
        self.phone.count_operation("lockdown", name, "")
        rule = self.phone.faults.operation(self.channel, "lockdown", name, "")
        self.channel.pause_for_latency()
        if rule is not None and rule.action in ("cut", "stall"):
            if rule.reply_bytes is None:
                self.channel.suffer(rule)
            else:
                self.phone.faults.break_reply(self.channel, rule)
        if rule is not None and rule.action == "error":
            reply = {"Error": rule.name}
        else:
            answer = getattr(self, "do_" + name, None)
            reply = answer(request) if answer else {"Error": "InvalidRequest"}
        context = reply.pop("context", None)
        data = b"" if rule is not None and rule.action == "empty" else plistlib.dumps({"Request": name, **reply})
        if rule is not None and rule.action == "payload":
            data = rule.data
        self.channel.send(struct.pack(">I", len(data)) + data)
        self.phone.faults.end_reply(self.channel)
        if context is not None:
            self.channel.start_tls(context)
        if name == "Goodbye":
            raise Gone()

    def do_QueryType(self, _):
        return {"Type": "com.apple.mobile.lockdown"}

    def do_GetValue(self, request):
        values = {}
        if "Domain" not in request:
            values = {**self.phone.values, "DevicePublicKey": self.phone.keys.public_key()}
            if self.session is not None:
                values.update(self.phone.private_values)
        if "Key" not in request:
            return {"Value": values}
        if request["Key"] not in values:
            return {"Key": request["Key"], "Error": "MissingValue"}
        return {"Key": request["Key"], "Value": values[request["Key"]]}

    def do_Pair(self, request):
        with self.phone.changed:
            if self.phone.locked:
                return {"Error": "PasswordProtected"}
            if self.phone.trust != "granted":
                errors = {"pending": "PairingDialogResponsePending", "refused": "UserDeniedPairing"}
                return {"Error": errors[self.phone.trust]}
            record = request["PairRecord"]
            self.phone.hosts[record["HostID"]] = record
        return {"EscrowBag": b"no bag"}

    def do_Unpair(self, request):
        with self.phone.changed:
            if self.phone.hosts.pop(request["PairRecord"]["HostID"], None) is None:
                return {"Error": "InvalidHostID"}
        return {}

    def do_ValidatePair(self, request):
        with self.phone.changed:
            return {} if request["PairRecord"]["HostID"] in self.phone.hosts else {"Error": "InvalidHostID"}

    def do_StartSession(self, request):
        with self.phone.changed:
            record = self.phone.hosts.get(request.get("HostID"))
            if record is None:
                return {"Error": "InvalidHostID"}
            if self.phone.locked and self.phone.locked_for_sessions:
                return {"Error": "PasswordProtected"}
        self.session = record
        context = self.phone.keys.context(record) if self.phone.tls else None
        return {"SessionID": "5E551017-0000-4000-8000-000000000001", "EnableSessionSSL": self.phone.tls, "context": context}

    def do_StopSession(self, _):
        self.session = None
        return {}

    def do_StartService(self, request):
        service = request["Service"]
        if self.session is None:
            return {"Error": "SessionInactive"}
        with self.phone.changed:
            error = self.phone.refused_services.get(service)
            if error is None and self.phone.locked:
                error = "PasswordProtected"
        if error is None and service != "com.apple.afc":
            error = "InvalidService"
        if error is not None:
            return {"Service": service, "Error": error}
        context = self.phone.keys.context(self.session) if self.phone.tls else None
        port = self.phone.new_port("afc", context)
        return {"Service": service, "Port": port, "EnableServiceSSL": self.phone.tls}

    def do_Goodbye(self, _):
        return {}
