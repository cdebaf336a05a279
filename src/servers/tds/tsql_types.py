"""T-SQL column types: how a value is assigned, compared and sent."""

import datetime
import functools
import re
import struct
import unicodedata
from decimal import Decimal, InvalidOperation, ROUND_HALF_UP

# Of each collation: its bytes on the wire, and whether it is blind to accents. Both are blind to case, with code page 1252.
COLLATIONS = {
    "SQL_Latin1_General_CP1_CI_AS": (bytes.fromhex("0904d00034"), False),
    "Latin1_General_CI_AI": (bytes.fromhex("0904f00000"), True),
}
COLLATION = {"name": "SQL_Latin1_General_CP1_CI_AS"}
EPOCH = datetime.date(1900, 1, 1)
INTEGER_RANGES = {1: (0, 255), 2: (-(2**15), 2**15 - 1), 4: (-(2**31), 2**31 - 1), 8: (-(2**63), 2**63 - 1)}
INTEGER_NAMES = {1: "tinyint", 2: "smallint", 4: "int", 8: "bigint"}


class SqlError(Exception):
    """An error as the engine tells it: number, severity, state, text; `also` follows it in the same answer."""

    def __init__(self, number, text, severity=16, state=1, also=None):
        super().__init__(text)
        self.number, self.text, self.severity, self.state, self.also = number, text, severity, state, also


# --- collation ---------------------------------------------------------------------------------------------------------------------


def use_collation(name):
    """Chooses the collation of all databases; before the first connection."""
    COLLATION["name"] = name
    folded.cache_clear()
    sort_key.cache_clear()
    like_pattern.cache_clear()


def collation_bytes():
    return COLLATIONS[COLLATION["name"]][0]


def blind_to_accents():
    return COLLATIONS[COLLATION["name"]][1]


def without_accents(text):
    return text if text.isascii() else "".join(c for c in unicodedata.normalize("NFD", text) if not unicodedata.combining(c))


@functools.lru_cache(maxsize=200_000)
def folded(text):
    """The text as LIKE sees it; every character stays one character."""
    lower = text.lower()
    return without_accents(lower) if blind_to_accents() else lower


@functools.lru_cache(maxsize=200_000)
def sort_key(text):
    """Blind to case and trailing blanks; an accented letter sorts beside its base letter, or is the same."""
    lower = text.rstrip(" ").lower()
    return without_accents(lower), "" if blind_to_accents() else lower


def collate(a, b):
    ka, kb = sort_key(a), sort_key(b)
    return (ka > kb) - (ka < kb)


@functools.lru_cache(maxsize=1000)
def like_pattern(pattern):
    parts, i = [], 0
    while i < len(pattern):
        c = pattern[i]
        close = pattern.find("]", i + 2) if c == "[" else -1
        if c == "%":
            parts.append(".*")
        elif c == "_":
            parts.append(".")
        elif close > 0:
            parts.append(folded(pattern[i : close + 1]).replace("\\", "\\\\"))
            i = close
        else:
            parts.append(re.escape(folded(c)))
        i += 1
    return re.compile("".join(parts) + " *", re.S)


def like(pattern, value):
    if pattern is None or value is None:
        return None
    return int(like_pattern(str(pattern)).fullmatch(folded(str(value))) is not None)


# --- dates -------------------------------------------------------------------------------------------------------------------------

COMPACT = re.compile(r"(\d{4})(\d\d)(\d\d)")
YEAR_FIRST = re.compile(r"(\d{4})([-/.])(\d{1,2})\2(\d{1,2})")
YEAR_LAST = re.compile(r"(\d{1,2})([-/.])(\d{1,2})\2(\d{4}|\d\d)")
TIME = re.compile(r"(.*?)(?:[ T](\d{1,2}):(\d\d)(?::(\d\d)(?:\.(\d{1,7}))?)?)?", re.S)


def date_parts(text, date_format, is_date):
    if m := COMPACT.fullmatch(text):
        return int(m[1]), int(m[2]), int(m[3])
    if m := YEAR_FIRST.fullmatch(text):
        year, second, third = int(m[1]), int(m[3]), int(m[4])
        # The old type reads a year-first date with the order that the session has for day and month; hyphens free the new type of it.
        day_first = date_format in ("dmy", "ydm") and not (is_date and m[2] == "-")
        return (year, third, second) if day_first else (year, second, third)
    if m := YEAR_LAST.fullmatch(text):
        first, second, year = int(m[1]), int(m[3]), int(m[4])
        year += 0 if year > 99 else (2000 if year < 50 else 1900)
        return (year, second, first) if date_format == "dmy" else (year, first, second)
    return None


def to_datetime(value, date_format, is_date):
    text = str(value).strip(" ")
    if not text:
        return datetime.datetime(1900, 1, 1)
    day, hour, minute, second, fraction = TIME.fullmatch(text).groups()
    parts = date_parts(day, date_format, is_date)
    if parts is None:
        raise SqlError(241, "Conversion failed when converting date and/or time from character string.")
    try:
        moment = datetime.datetime(*parts, int(hour or 0), int(minute or 0), int(second or 0))
    except ValueError:
        if is_date:
            raise SqlError(241, "Conversion failed when converting date and/or time from character string.") from None
        raise SqlError(
            242, "The conversion of a varchar data type to a datetime data type resulted in an out-of-range value.", state=3
        ) from None
    return moment.replace(microsecond=int((fraction or "0").ljust(6, "0")[:6]))


# --- types -------------------------------------------------------------------------------------------------------------------------


class Integer:
    def __init__(self, size):
        self.size, self.name, self.sqlite = size, INTEGER_NAMES[size], "INTEGER"

    def assign(self, value, session):
        if isinstance(value, str):
            text = value.strip(" ")
            if not re.fullmatch(r"[+-]?\d*", text) or text in ("+", "-"):
                raise SqlError(
                    245, f"Conversion failed when converting the varchar value '{value}' to data type {self.name}."
                )
            value = int(text or 0)
        value = int(value)
        low, high = INTEGER_RANGES[self.size]
        if not low <= value <= high:
            if self.size == 8:
                raise SqlError(8115, "Arithmetic overflow error converting expression to data type bigint.", state=2)
            number = 248 if self.size == 4 else 244
            raise SqlError(number, f"The conversion of the varchar value '{value}' overflowed an {self.name} column.")
        return value

    def type_info(self, _version):
        return bytes([0x26, self.size])

    def encoder(self, _version):
        code = struct.Struct("<B" + {1: "B", 2: "h", 4: "i", 8: "q"}[self.size])
        size = self.size
        return lambda value: b"\0" if value is None else code.pack(size, int(value))


class Bit(Integer):
    def __init__(self):
        super().__init__(1)
        self.name = "bit"

    def assign(self, value, session):
        return int(super().assign(value, session) != 0)

    def type_info(self, _version):
        return b"\x68\x01"


class Numeric:
    sqlite = "NUMERIC"

    def __init__(self, precision, scale):
        self.precision, self.scale, self.name = precision, scale, "numeric"
        self.quantum = Decimal(1).scaleb(-scale)

    def assign(self, value, session):
        try:
            exact = Decimal(str(value).strip(" "))
        except InvalidOperation:
            raise SqlError(8114, "Error converting data type varchar to numeric.", state=5) from None
        exact = exact.quantize(self.quantum, ROUND_HALF_UP)
        if abs(exact) >= Decimal(10) ** (self.precision - self.scale):
            raise SqlError(8115, "Arithmetic overflow error converting varchar to data type numeric.", state=8)
        return float(exact) if self.scale else int(exact)

    def type_info(self, _version):
        return bytes([0x6A, 17, self.precision, self.scale])

    def encoder(self, _version):
        quantum, scale = self.quantum, self.scale

        def encode(value):
            if value is None:
                return b"\0"
            unscaled = int(Decimal(repr(value) if isinstance(value, float) else value).quantize(quantum).scaleb(scale))
            return b"\x11" + (b"\1" if unscaled >= 0 else b"\0") + abs(unscaled).to_bytes(16, "little")

        return encode


class Float:
    sqlite, name = "REAL", "float"

    def assign(self, value, session):
        try:
            return float(str(value).strip(" ") or 0)
        except ValueError:
            raise SqlError(8114, "Error converting data type varchar to float.", state=5) from None

    def type_info(self, _version):
        return b"\x6d\x08"

    def encoder(self, _version):
        return lambda value: b"\0" if value is None else b"\x08" + struct.pack("<d", value)


class Text:
    def __init__(self, length, wide=False, fixed=False):
        self.length, self.wide, self.fixed = length, wide, fixed
        self.name = ("n" if wide else "") + ("char" if fixed else "varchar")
        self.sqlite = "TEXT COLLATE CP1_CI_AS"

    def assign(self, value, session):
        text = value if isinstance(value, str) else str(value)
        if not self.wide and not text.isascii():
            text = text.encode("cp1252", "replace").decode("cp1252")
        if len(text) > self.length:
            if text[self.length :].strip(" "):
                raise SqlError(8152, "String or binary data would be truncated.", state=14)
            text = text[: self.length]
        return text.ljust(self.length) if self.fixed else text

    def type_info(self, _version):
        code = {(False, False): 0xA7, (False, True): 0xAF, (True, False): 0xE7, (True, True): 0xEF}[self.wide, self.fixed]
        size = self.length * (2 if self.wide else 1)
        return struct.pack("<BH", code, size if size <= 8000 else 0xFFFF) + collation_bytes()

    def encoder(self, _version):
        charset = "utf-16-le" if self.wide else "cp1252"
        if self.length * (2 if self.wide else 1) > 8000:
            return lambda value: self._long(value, charset)
        pack = struct.Struct("<H").pack

        def encode(value):
            if value is None:
                return b"\xff\xff"
            data = str(value).encode(charset, "replace")
            return pack(len(data)) + data

        return encode

    @staticmethod
    def _long(value, charset):
        if value is None:
            return b"\xff" * 8
        data = str(value).encode(charset, "replace")
        chunk = struct.pack("<I", len(data)) + data if data else b""
        return struct.pack("<Q", len(data)) + chunk + b"\0\0\0\0"


class DateTime:
    sqlite, name = "TEXT", "datetime"

    def assign(self, value, session):
        return to_datetime(value, session.date_format, is_date=False).isoformat(" ")

    def type_info(self, _version):
        return b"\x6f\x08"

    def encoder(self, _version):
        def encode(value):
            if value is None:
                return b"\0"
            moment = datetime.datetime.fromisoformat(value)
            day = moment.replace(hour=0, minute=0, second=0, microsecond=0)
            ticks = round((moment - day).total_seconds() * 300)
            return b"\x08" + struct.pack("<iI", (moment.date() - EPOCH).days, ticks)

        return encode


class Date:
    sqlite, name = "TEXT", "date"

    def assign(self, value, session):
        return to_datetime(value, session.date_format, is_date=True).date().isoformat()

    def type_info(self, version):
        return b"\x28" if version >= 0x73 else Text(10, wide=True).type_info(version)

    def encoder(self, version):
        if version < 0x73:
            return Text(10, wide=True).encoder(version)

        def encode(value):
            if value is None:
                return b"\0"
            return b"\x03" + (datetime.date.fromisoformat(value[:10]).toordinal() - 1).to_bytes(3, "little")

        return encode


MAX = 1 << 30
FIXED_TYPES = {
    "tinyint": Integer(1), "smallint": Integer(2), "int": Integer(4), "integer": Integer(4), "bigint": Integer(8), "bit": Bit(),
    "float": Float(), "real": Float(), "money": Numeric(19, 4), "smallmoney": Numeric(10, 4), "text": Text(MAX),
    "ntext": Text(MAX, wide=True), "datetime": DateTime(), "smalldatetime": DateTime(), "datetime2": DateTime(), "date": Date(),
}  # fmt: skip


def type_of(name, arguments):
    """The type of a declaration such as decimal(15,2); `arguments` are the texts in its parentheses."""
    name = name.lower()
    if name in FIXED_TYPES:
        return FIXED_TYPES[name]
    if name in ("decimal", "numeric", "dec"):
        return Numeric(int(arguments[0]) if arguments else 18, int(arguments[1]) if len(arguments) > 1 else 0)
    if name in ("varchar", "nvarchar", "char", "nchar"):
        length = MAX if arguments and arguments[0].lower() == "max" else int(arguments[0]) if arguments else 1
        return Text(length, wide=name.startswith("n"), fixed=name.endswith("char") and "var" not in name)
    raise SqlError(2715, f"Cannot find data type {name}.", state=6)


def type_of_value(value):
    """The type of an expression by its value."""
    if isinstance(value, int):
        return FIXED_TYPES["int"] if -(2**31) <= value < 2**31 else FIXED_TYPES["bigint"]
    if isinstance(value, float):
        return FIXED_TYPES["float"]
    return Text(8000)
