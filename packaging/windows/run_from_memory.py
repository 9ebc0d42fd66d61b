#!/usr/bin/env python3
"""Has Windows copy a program into its memory before it runs it from a stick or over the network, so that it goes on when
the stick is pulled out: run_from_memory.py PROGRAM"""

import struct
import sys
from pathlib import Path

REMOVABLE_RUN_FROM_SWAP = 0x0400
NET_RUN_FROM_SWAP = 0x0800


def checksum(program):
    """The sum of all words, with what is carried over added, and the number of bytes."""
    words = program + bytes(len(program) % 2)
    total = sum(word for (word,) in struct.iter_unpack("<H", words))
    while total > 0xFFFF:
        total = (total & 0xFFFF) + (total >> 16)
    return total + len(program)


file = Path(sys.argv[1])
program = bytearray(file.read_bytes())
(header,) = struct.unpack_from("<I", program, 0x3C)
if program[header : header + 4] != b"PE\0\0":
    sys.exit(f"{file} is no program for Windows")
(characteristics,) = struct.unpack_from("<H", program, header + 22)
characteristics |= REMOVABLE_RUN_FROM_SWAP | NET_RUN_FROM_SWAP
struct.pack_into("<H", program, header + 22, characteristics)
struct.pack_into("<I", program, header + 88, 0)
struct.pack_into("<I", program, header + 88, checksum(program))
file.write_bytes(program)
