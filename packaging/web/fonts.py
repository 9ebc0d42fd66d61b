#!/usr/bin/env python3
"""Cuts fonts down to what the program draws and binds them into one collection.

Usage: packaging/web/fonts.py COLLECTION FONT...
"""

import os
import sys

from fontTools import subset
from fontTools.ttLib import TTFont
from fontTools.ttLib.ttCollection import TTCollection

# Latin-1 and the rest of the western encoding of the catalogue, and the signs of the exercises, of which the subsetter
# takes those that a font has.
CHARACTERS = [*range(0x20, 0x7F), *range(0xA0, 0x180), *map(ord, "‚ƒ„…†‡ˆ‰‹‘’“”•–—˜™›€←↑→↓−≠≤≥⌫◄►▲▼●○■□✓✔✗✘⠿⋮⋯")]


def main():
    options = subset.Options()
    options.hinting = False
    options.layout_features = ["kern"]
    options.drop_tables += ["FFTM"]
    options.name_IDs = [1, 2, 4, 6]
    options.notdef_outline = True
    collection = TTCollection()
    for source in sys.argv[2:]:
        font = TTFont(source, recalcTimestamp=False)
        subsetter = subset.Subsetter(options)
        subsetter.populate(unicodes=CHARACTERS)
        subsetter.subset(font)
        collection.fonts.append(font)
    os.makedirs(os.path.dirname(sys.argv[1]), exist_ok=True)
    collection.save(sys.argv[1], shareTables=True)


if __name__ == "__main__":
    main()
