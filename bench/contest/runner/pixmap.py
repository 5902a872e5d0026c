# SPDX-License-Identifier: MIT
"""Pictures of red, green and blue bytes: read as pixmaps, cut, magnified, put together, written as PNG."""

import struct
import zlib
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Pixmap:
    width: int
    height: int
    rows: list[bytes]

    @staticmethod
    def filled(width: int, height: int, colour: bytes) -> "Pixmap":
        return Pixmap(width, height, [colour * width] * height)

    @staticmethod
    def read(file: Path) -> "Pixmap":
        """A binary pixmap with a head of three lines, as the contest's programs write it."""
        _, size, _, pixels = file.read_bytes().split(b"\n", 3)
        width, height = map(int, size.split())
        return Pixmap(width, height, [pixels[3 * width * y : 3 * width * (y + 1)] for y in range(height)])

    def cut(self, left: int, top: int, width: int, height: int) -> "Pixmap":
        rows = [row[3 * left : 3 * (left + width)] for row in self.rows[top : top + height]]
        return Pixmap(width, height, rows)

    def magnified(self, times: int) -> "Pixmap":
        rows = []
        for row in self.rows:
            wide = b"".join(row[x : x + 3] * times for x in range(0, len(row), 3))
            rows += [wide] * times
        return Pixmap(self.width * times, self.height * times, rows)

    def beside(self, other: "Pixmap") -> "Pixmap":
        """Both of one height."""
        return Pixmap(self.width + other.width, self.height, [a + b for a, b in zip(self.rows, other.rows)])

    def above(self, other: "Pixmap") -> "Pixmap":
        """Both of one width."""
        return Pixmap(self.width, self.height + other.height, self.rows + other.rows)

    def write_png(self, file: Path) -> None:
        def chunk(kind: bytes, data: bytes) -> bytes:
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)  # 8 bits, colour without alpha
        pixels = zlib.compress(b"".join(b"\0" + row for row in self.rows), 9)  # 0: a row without a filter
        file.write_bytes(
            b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", pixels) + chunk(b"IEND", b"")
        )
