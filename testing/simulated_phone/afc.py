"""The file service: reads of a folder, message by message."""

import errno
import os
import stat
import struct

from channel import PIECE, Gone

MAGIC = b"CFA6LPAA"
HEADER = struct.Struct("<8sQQQQ")
LONGEST_REQUEST = 1024 * 1024

STATUS, DATA = 0x01, 0x02
OPEN_RESULT, TELL_RESULT = 0x0E, 0x13
NAMES = {
    0x03: "ReadDir",
    0x0A: "GetFileInfo",
    0x0B: "GetDeviceInfo",
    0x0D: "FileRefOpen",
    0x0F: "FileRefRead",
    0x11: "FileRefSeek",
    0x12: "FileRefTell",
    0x14: "FileRefClose",
}
SUCCESS, UNKNOWN_ERROR, NO_RESOURCES, READ_ERROR = 0, 1, 3, 4
INVALID_ARGUMENT, NOT_FOUND, IS_DIRECTORY, PERMISSION_DENIED, NOT_SUPPORTED = 7, 8, 9, 10, 15
READ_ONLY = 1

CODES = {
    errno.ENOENT: NOT_FOUND,
    errno.ENOTDIR: NOT_FOUND,
    errno.EISDIR: IS_DIRECTORY,
    errno.EACCES: PERMISSION_DENIED,
    errno.EPERM: PERMISSION_DENIED,
    errno.EMFILE: NO_RESOURCES,
    errno.ENFILE: NO_RESOURCES,
    errno.EIO: READ_ERROR,
    errno.ENAMETOOLONG: INVALID_ARGUMENT,
    errno.EINVAL: INVALID_ARGUMENT,
}


class Reply:
    """What is sent for one request: a number, the parameters, and data that are in memory or read from a file."""

    def __init__(self, operation, parameters=b"", data=b""):
        self.operation = operation
        self.parameters = parameters
        self.data = data
        self.file = None  # (descriptor, position, size): sent instead of data

    @staticmethod
    def status(code):
        return Reply(STATUS, struct.pack("<Q", code))

    @staticmethod
    def of_file(descriptor, position, size):
        reply = Reply(DATA)
        reply.file = (descriptor, position, size)
        return reply

    def size(self):
        return self.file[2] if self.file else len(self.data)


class OpenFile:
    def __init__(self, descriptor, path):
        self.descriptor = descriptor
        self.path = path
        self.position = 0

    def size(self):
        return os.fstat(self.descriptor).st_size


def text_of(parameters):
    return parameters.split(b"\0", 1)[0]


def pairs(values):
    return b"".join(part + b"\0" for pair in values for part in pair)


class AfcService:
    """One connection. Used by one thread."""

    def __init__(self, channel, phone):
        self.channel = channel
        self.phone = phone
        self.files = {}
        self.last_handle = 0
        self.piece = None  # made for the first read

    def run(self):
        self.channel.reads_ahead = True
        try:
            while True:
                self.serve_one()
        finally:
            for file in self.files.values():
                os.close(file.descriptor)
            self.phone.count_handles(-len(self.files))

    def serve_one(self):
        head = self.channel.receive_exactly(HEADER.size)
        magic, entire, this, number, operation = HEADER.unpack(head)
        if magic != MAGIC or not HEADER.size <= this <= entire <= LONGEST_REQUEST:
            self.phone.complain(f"the host sent a header that is none: {head.hex()}")
            raise Gone()
        parameters = self.channel.receive_exactly(entire - HEADER.size) if entire > HEADER.size else b""
        name = NAMES.get(operation, hex(operation))
        path = self.path_of(name, parameters)
        self.phone.count_operation("afc", name, path)
        rule = self.phone.faults.operation(self.channel, "afc", name, path)
        self.channel.pause_for_latency()
        if rule is not None and rule.action in ("cut", "stall") and rule.reply_bytes is None:
            self.channel.suffer(rule)
        if rule is not None and rule.action == "status":
            reply = Reply.status(rule.code)
        else:
            reply = self.answer(name, parameters)
        self.send(number, reply, rule)

    def path_of(self, name, parameters):
        """The path that a request is about, also where it has a handle only."""
        if name in ("ReadDir", "GetFileInfo"):
            path = text_of(parameters)
        elif name == "FileRefOpen":
            path = text_of(parameters[8:])
        elif name.startswith("FileRef") and len(parameters) >= 8:
            file = self.files.get(struct.unpack_from("<Q", parameters)[0])
            path = file.path if file else b""
        else:
            path = b""
        return path.decode("utf-8", "backslashreplace")

    def answer(self, name, parameters):
        operation = getattr(self, "do_" + name, None)
        if operation is None:
            self.phone.count_refused()
            return Reply.status(NOT_SUPPORTED)
        try:
            return operation(parameters)
        except struct.error:
            return Reply.status(INVALID_ARGUMENT)
        except KeyError:  # no such handle
            return Reply.status(INVALID_ARGUMENT)
        except ValueError:  # a zero byte, for example
            return Reply.status(INVALID_ARGUMENT)
        except OSError as error:
            return Reply.status(CODES.get(error.errno, UNKNOWN_ERROR))

    # Operations

    def do_ReadDir(self, parameters):
        try:
            names = self.phone.folder.names(text_of(parameters))
        except NotADirectoryError:
            return Reply.status(READ_ERROR)
        return Reply(DATA, data=b"".join(name + b"\0" for name in names))

    def do_GetFileInfo(self, parameters):
        result, target = self.phone.folder.status(text_of(parameters))
        if stat.S_ISDIR(result.st_mode):
            kind = b"S_IFDIR"
        elif stat.S_ISLNK(result.st_mode):
            kind = b"S_IFLNK"
        elif stat.S_ISREG(result.st_mode):
            kind = b"S_IFREG"
        else:
            return Reply.status(PERMISSION_DENIED)
        values = [
            (b"st_size", b"%d" % result.st_size),
            (b"st_blocks", b"%d" % result.st_blocks),
            (b"st_nlink", b"%d" % result.st_nlink),
            (b"st_ifmt", kind),
            (b"st_mtime", b"%d" % result.st_mtime_ns),
            (b"st_birthtime", b"%d" % min(result.st_ctime_ns, result.st_mtime_ns)),
        ]
        if target is not None:
            values.append((b"LinkTarget", target))
        return Reply(DATA, data=pairs(values))

    def do_GetDeviceInfo(self, _):
        space = self.phone.folder.space()
        return Reply(
            DATA,
            data=pairs(
                [
                    (b"Model", self.phone.values["ProductType"].encode()),
                    (b"FSTotalBytes", b"%d" % (space.f_blocks * space.f_frsize)),
                    (b"FSFreeBytes", b"%d" % (space.f_bavail * space.f_frsize)),
                    (b"FSBlockSize", b"%d" % space.f_frsize),
                ]
            ),
        )

    def do_FileRefOpen(self, parameters):
        (mode,) = struct.unpack_from("<Q", parameters)
        if mode != READ_ONLY:
            self.phone.count_refused()
            return Reply.status(PERMISSION_DENIED)
        if len(self.files) >= self.phone.max_handles:
            return Reply.status(NO_RESOURCES)
        path = text_of(parameters[8:])
        descriptor = self.phone.folder.open(path)
        self.last_handle += 1
        self.files[self.last_handle] = OpenFile(descriptor, path)
        self.phone.count_handles(1)
        return Reply(OPEN_RESULT, struct.pack("<Q", self.last_handle))

    def do_FileRefRead(self, parameters):
        handle, size = struct.unpack_from("<QQ", parameters)
        file = self.files[handle]
        size = max(0, min(size, file.size() - file.position))
        reply = Reply.of_file(file.descriptor, file.position, size)
        file.position += size
        return reply

    def do_FileRefSeek(self, parameters):
        handle, origin, offset = struct.unpack_from("<QQq", parameters)
        file = self.files[handle]
        starts = {0: lambda: 0, 1: lambda: file.position, 2: file.size}
        position = starts[origin]() + offset
        if position < 0:
            return Reply.status(INVALID_ARGUMENT)
        file.position = position
        return Reply.status(SUCCESS)

    def do_FileRefTell(self, parameters):
        file = self.files[struct.unpack_from("<Q", parameters)[0]]
        return Reply(TELL_RESULT, struct.pack("<Q", file.position))

    def do_FileRefClose(self, parameters):
        file = self.files.pop(struct.unpack_from("<Q", parameters)[0])
        os.close(file.descriptor)
        self.phone.count_handles(-1)
        return Reply.status(SUCCESS)

    # Replies

    def send(self, number, reply, rule):
        magic = MAGIC
        operation = reply.operation
        if rule is not None:
            self.shorten(reply, rule)
        this = HEADER.size + len(reply.parameters)
        entire = this + reply.size()
        if rule is not None:
            if rule.action == "packet-number":
                number = rule.changed(number)
            elif rule.action == "magic":
                magic = (rule.data + b"WRONG!!!")[:8]
            elif rule.action == "entire-length":
                entire = rule.changed(entire)
            elif rule.action == "this-length":
                this = rule.changed(this)
            elif rule.action == "reply-operation":
                operation = rule.value
            elif rule.reply_bytes is not None:
                self.phone.faults.break_reply(self.channel, rule)
        self.channel.send(HEADER.pack(magic, entire, this, number, operation) + reply.parameters)
        if reply.file:
            self.send_file(*reply.file)
        elif reply.data:
            self.channel.send(reply.data)
        self.phone.faults.end_reply(self.channel)

    def shorten(self, reply, rule):
        if rule.action == "empty":
            reply.parameters, reply.data, reply.file = b"", b"", None
        elif rule.action == "payload":
            reply.data, reply.file = rule.data, None
        elif rule.action == "short":
            size = reply.size() // 2 if rule.bytes is None else min(rule.bytes, reply.size())
            if reply.file:
                # The file goes on behind what was sent, as after any read that gave less than was asked for.
                descriptor, position, asked = reply.file
                reply.file = (descriptor, position, size)
                for file in self.files.values():
                    if file.descriptor == descriptor:
                        file.position -= asked - size
            else:
                reply.data = reply.data[:size]

    def send_file(self, descriptor, position, size):
        if self.piece is None:
            self.piece = memoryview(bytearray(PIECE))
        while size > 0:
            piece = self.piece[: min(size, PIECE)]
            count = os.preadv(descriptor, [piece], position)
            if count == 0:
                self.phone.complain("a file became shorter while it was read")
                self.channel.cut()
                raise Gone()
            self.channel.send(piece[:count])
            position += count
            size -= count
