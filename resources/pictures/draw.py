#!/usr/bin/env python3
"""Draws the ten pictures of the picture strip as PNG files (16x16; the printer 16x15).

Run from anywhere: python3 resources/pictures/draw.py. The PNG files are kept in
the repository and built into the library; run this again only to change them.
"""
import math
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))

INK = (40, 40, 48, 255)
WHITE = (255, 255, 255, 255)
GREEN = (30, 150, 60, 255)
RED = (200, 40, 40, 255)
YELLOW = (250, 200, 30, 255)
BLUE = (50, 100, 190, 255)
GREY = (150, 150, 158, 255)
LIGHT = (215, 215, 222, 255)
GLASS = (200, 225, 250, 255)
WOOD = (230, 170, 90, 255)


class Canvas:
    def __init__(self, w, h):
        self.w, self.h = w, h
        self.px = [[(0, 0, 0, 0)] * w for _ in range(h)]

    def set(self, x, y, c):
        if 0 <= x < self.w and 0 <= y < self.h:
            self.px[y][x] = c

    def rect(self, x0, y0, x1, y1, c):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.set(x, y, c)

    def frame(self, x0, y0, x1, y1, c):
        for x in range(x0, x1 + 1):
            self.set(x, y0, c)
            self.set(x, y1, c)
        for y in range(y0, y1 + 1):
            self.set(x0, y, c)
            self.set(x1, y, c)

    def line(self, x0, y0, x1, y1, c, width=1.0):
        # Pixels whose centre lies within width/2 of the segment.
        for y in range(self.h):
            for x in range(self.w):
                px, py = x + 0.5, y + 0.5
                dx, dy = x1 - x0, y1 - y0
                t = max(0.0, min(1.0, ((px - x0) * dx + (py - y0) * dy) / (dx * dx + dy * dy)))
                if math.hypot(px - (x0 + t * dx), py - (y0 + t * dy)) <= width / 2:
                    self.set(x, y, c)

    def disc(self, cx, cy, r, c):
        for y in range(self.h):
            for x in range(self.w):
                if math.hypot(x + 0.5 - cx, y + 0.5 - cy) <= r:
                    self.set(x, y, c)

    def polygon(self, pts, c):
        for y in range(self.h):
            for x in range(self.w):
                px, py, inside = x + 0.5, y + 0.5, False
                for i in range(len(pts)):
                    (ax, ay), (bx, by) = pts[i], pts[i - 1]
                    if (ay > py) != (by > py) and px < (bx - ax) * (py - ay) / (by - ay) + ax:
                        inside = not inside
                if inside:
                    self.set(x, y, c)

    def png(self):
        raw = b"".join(b"\x00" + b"".join(bytes(p) for p in row) for row in self.px)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

        ihdr = struct.pack(">IIBBBBB", self.w, self.h, 8, 6, 0, 0, 0)
        return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", ihdr) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


def box():
    c = Canvas(16, 16)
    c.rect(2, 2, 13, 13, WHITE)
    c.frame(2, 2, 13, 13, INK)
    return c


def checked():
    c = box()
    c.line(4.5, 8.5, 7, 11, GREEN, 2.0)
    c.line(7, 11, 11.8, 4.8, GREEN, 2.0)
    return c


def unchecked():
    return box()


def lupa():
    c = Canvas(16, 16)
    c.line(9.5, 9.5, 14.5, 14.5, WOOD, 2.6)
    c.disc(6.5, 6.5, 5.6, INK)
    c.disc(6.5, 6.5, 4.2, GLASS)
    c.set(4, 4, WHITE)
    c.set(5, 4, WHITE)
    c.set(4, 5, WHITE)
    return c


def star():
    c = Canvas(16, 16)
    pts = []
    for i in range(10):
        r = 7.4 if i % 2 == 0 else 3.0
        a = -math.pi / 2 + i * math.pi / 5
        pts.append((8 + r * math.cos(a), 8.6 + r * math.sin(a)))
    c.polygon(pts, YELLOW)
    return c


def edit():
    c = Canvas(16, 16)
    c.line(3.5, 12.5, 12, 4, YELLOW, 3.2)
    c.line(11, 5, 13.5, 2.5, RED, 3.2)
    c.polygon([(1.5, 14.5), (2.2, 11.0), (5.0, 13.8)], INK)
    return c


def calendar():
    c = Canvas(16, 16)
    c.rect(1, 2, 14, 14, WHITE)
    c.frame(1, 2, 14, 14, INK)
    c.rect(2, 3, 13, 5, RED)
    for y in (7, 9, 11, 13):
        for x in (3, 5, 7, 9, 11):
            if not (y == 13 and x > 7):
                c.set(x, y, BLUE if (x, y) == (7, 9) else GREY)
    c.set(4, 1, INK)
    c.set(11, 1, INK)
    return c


def add():
    c = Canvas(16, 16)
    c.rect(6, 2, 9, 13, GREEN)
    c.rect(2, 6, 13, 9, GREEN)
    return c


def delete():
    c = Canvas(16, 16)
    c.line(3, 3, 13, 13, RED, 2.8)
    c.line(13, 3, 3, 13, RED, 2.8)
    return c


def atencion():
    c = Canvas(16, 16)
    c.polygon([(8, 0.5), (15.6, 15), (0.4, 15)], INK)
    c.polygon([(8, 2.6), (14.0, 14.0), (2.0, 14.0)], YELLOW)
    c.rect(7, 5, 8, 10, INK)
    c.rect(7, 12, 8, 13, INK)
    return c


def printer():
    c = Canvas(16, 15)
    c.rect(4, 0, 11, 5, WHITE)
    c.frame(4, 0, 11, 5, INK)
    c.rect(1, 5, 14, 11, GREY)
    c.frame(1, 5, 14, 11, INK)
    c.rect(3, 7, 4, 7, GREEN)
    c.rect(4, 10, 11, 14, WHITE)
    c.frame(4, 10, 11, 14, INK)
    c.line(5.5, 12.5, 10.5, 12.5, LIGHT, 1.0)
    return c


PICTURES = [("checked", checked), ("unchecked", unchecked), ("lupa", lupa), ("star", star), ("edit", edit),
            ("calendar", calendar), ("add", add), ("delete", delete), ("atencion", atencion), ("printer", printer)]

if __name__ == "__main__":
    for key, draw in PICTURES:
        with open(os.path.join(HERE, key + ".png"), "wb") as f:
            f.write(draw().png())
