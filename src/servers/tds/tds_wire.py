"""The tabular data stream, versions 7.1 to 7.4, server side: packets, login, tokens."""

import struct
from dataclasses import dataclass

from tsql_types import collation_bytes

SQL_BATCH, RPC, RESPONSE, ATTENTION, TRANSACTION, LOGIN7, PRELOGIN = 0x01, 0x03, 0x04, 0x06, 0x0E, 0x10, 0x12
DONE_FINAL, DONE_MORE, DONE_ERROR, DONE_INXACT, DONE_COUNT, DONE_ATTENTION = 0x00, 0x01, 0x02, 0x04, 0x10, 0x20
BEGIN_TRANSACTION, COMMIT_TRANSACTION, ROLLBACK_TRANSACTION = 5, 7, 8
SERVER_VERSION = bytes([12, 0, 0x07, 0xD0])


class Gone(Exception):
    """The other side has closed the connection."""


class Channel:
    """Messages over a socket, cut into packets."""

    def __init__(self, socket):
        self.socket, self.packet_size, self.pending = socket, 4096, bytearray()

    def _exactly(self, count):
        data = bytearray()
        while len(data) < count:
            piece = self.socket.recv(count - len(data))
            if not piece:
                raise Gone
            data += piece
        return bytes(data)

    def receive(self):
        """The next whole message: its type and content."""
        content = bytearray()
        while True:
            kind, status, length = struct.unpack(">BBH4x", self._exactly(8))
            content += self._exactly(length - 8)
            if status & 1:
                return kind, bytes(content)

    def send(self, data, last=False):
        self.pending += data
        room = self.packet_size - 8
        while len(self.pending) > room:
            self._packet(self.pending[:room], 0)
            del self.pending[:room]
        if last:
            self._packet(self.pending, 1)
            self.pending.clear()

    def _packet(self, content, status):
        self.socket.sendall(struct.pack(">BBHHBB", RESPONSE, status, len(content) + 8, 51, 1, 0) + content)


@dataclass
class Login:
    version: int
    packet_size: int
    user: str
    password: str
    database: str
    application: str


def prelogin_answer():
    """Version, and: this server does not encrypt, has no named instance, no second result set at a time."""
    options = [(0, SERVER_VERSION + b"\0\0"), (1, b"\x02"), (2, b"\0"), (3, b""), (4, b"\0")]
    offset, head, body = 5 * len(options) + 1, b"", b""
    for token, data in options:
        head += struct.pack(">BHH", token, offset + len(body), len(data))
        body += data
    return head + b"\xff" + body


def read_login(data):
    version, packet_size = struct.unpack_from("<II", data, 4)

    def text(at):
        offset, count = struct.unpack_from("<HH", data, at)
        return data[offset : offset + 2 * count]

    password = bytes(((b ^ 0xA5) >> 4 | ((b ^ 0xA5) << 4)) & 0xFF for b in text(44))
    return Login(
        version=version >> 24,
        packet_size=packet_size,
        user=text(40).decode("utf-16-le"),
        password=password.decode("utf-16-le"),
        application=text(48).decode("utf-16-le"),
        database=text(68).decode("utf-16-le"),
    )


def without_headers(data, version):
    """The content of a batch or transaction message behind its headers, which came with version 7.2."""
    return data[struct.unpack_from("<I", data)[0] :] if version >= 0x72 else data


def short_text(text):
    return bytes([len(text)]) + text.encode("utf-16-le")


def long_text(text):
    return struct.pack("<H", len(text)) + text.encode("utf-16-le")


def token(code, content):
    return struct.pack("<BH", code, len(content)) + content


def login_ack(version):
    wire = {0x71: 0x71000001, 0x72: 0x72090002, 0x73: 0x730B0003, 0x74: 0x74000004}[version]
    return token(0xAD, b"\1" + struct.pack(">I", wire) + short_text("Microsoft SQL Server") + SERVER_VERSION)


def change(kind, new, old):
    return token(0xE3, bytes([kind]) + new + old)


def database_change(name):
    return change(1, short_text(name), short_text("master"))


def language_change():
    return change(2, short_text("us_english"), short_text(""))


def packet_size_change(size):
    return change(4, short_text(str(size)), short_text("4096"))


def collation_change():
    return change(7, bytes([len(collation_bytes())]) + collation_bytes(), b"\0")


def transaction_change(kind, new, old):
    return change(kind, bytes([len(new)]) + new, bytes([len(old)]) + old)


def message(code, number, state, severity, text, line, version):
    """An error (0xAA) or an information (0xAB)."""
    place = struct.pack("<I" if version >= 0x72 else "<H", line)
    content = struct.pack("<IBB", number, state, severity) + long_text(text) + short_text("TDS") + short_text("") + place
    return token(code, content)


def done(status, command, count, version):
    return struct.pack("<BHHQ" if version >= 0x72 else "<BHHI", 0xFD, status, command, count)


def column_metadata(columns, version):
    data = struct.pack("<BH", 0x81, len(columns))
    for name, kind in columns:
        data += struct.pack("<IH" if version >= 0x72 else "<HH", 0, 0x0001) + kind.type_info(version)
        if kind.type_info(version)[:3] == b"\xa7\xff\xff" and version < 0x72:
            raise ValueError("long texts need version 7.2")
        data += short_text(name)
    return data
