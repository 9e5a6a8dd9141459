#!/usr/bin/env python3
"""Reads a PNG (8 bits, RGB or RGBA) and prints it as a binary PPM, alpha over white, with nothing but the standard library."""
import struct
import sys
import zlib


def unfilter(data, width, height, size):
    stride = width * size
    above = bytearray(stride)
    rows = []
    at = 0
    for _ in range(height):
        kind, row = data[at], bytearray(data[at + 1:at + 1 + stride])
        at += 1 + stride
        if kind == 1:
            for i in range(size, stride):
                row[i] = (row[i] + row[i - size]) & 255
        elif kind == 2:
            for i in range(stride):
                row[i] = (row[i] + above[i]) & 255
        elif kind == 3:
            for i in range(stride):
                row[i] = (row[i] + ((row[i - size] if i >= size else 0) + above[i]) // 2) & 255
        elif kind == 4:
            for i in range(stride):
                a = row[i - size] if i >= size else 0
                c = above[i - size] if i >= size else 0
                b = above[i]
                p = a + b - c
                nearest = min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))
                row[i] = (row[i] + nearest[2]) & 255
        rows.append(row)
        above = row
    return rows


def main(path):
    with open(path, "rb") as file:
        png = file.read()
    assert png[:8] == b"\x89PNG\r\n\x1a\n"
    at, packed, header = 8, b"", None
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        body = png[at + 8:at + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack(">I", png[at + 8 + length:at + 12 + length])[0], kind
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        if kind == b"IDAT":
            packed += body
        at += 12 + length
    width, height, depth, colors = header[:4]
    assert depth == 8 and colors in (2, 6)
    size = 3 if colors == 2 else 4
    out = bytearray()
    for row in unfilter(zlib.decompress(packed), width, height, size):
        if size == 3:
            out += row
            continue
        for i in range(0, len(row), 4):
            alpha = row[i + 3]
            out += bytes(255 - (255 - c) * alpha // 255 for c in row[i:i + 3])
    sys.stdout.buffer.write(b"P6 %d %d 255\n" % (width, height) + out)


main(sys.argv[1])
