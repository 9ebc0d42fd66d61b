#!/usr/bin/env python3
"""Cuts fonts down to what the program draws and binds them into one collection.

Usage: packaging/web/fonts.py COLLECTION FONT...
"""

import os
import sys

from fontTools import subset
from fontTools.ttLib import TTFont
from fontTools.ttLib.ttCollection import TTCollection

# Latin-1 and the rest of the western encoding of the catalogue, and the signs of the exercises. The subsetter takes
# those that a font has, and one of them must.
CHARACTERS = [*range(0x20, 0x7F), *range(0xA0, 0x180), *map(ord, "‚ƒ„…†‡ˆ‰‹‘’“”•–—˜™›€←↑→↓−≠≤≥⌫◄►▲▼●○■□✓✔✗✘⠿⋮⋯")]


def rename(font):
    """What is cut out of Liberation must not bear its name, which its licence reserves."""
    for record in font["name"].names:
        if record.nameID in (1, 4, 6):
            record.string = record.toUnicode().replace("Liberation", "Numbrela")


def main():
    options = subset.Options()
    options.hinting = False
    options.layout_features = ["kern"]
    options.drop_tables += ["FFTM"]
    options.name_IDs = [0, 1, 2, 4, 6, 13]
    options.notdef_outline = True
    collection = TTCollection()
    missing = set(CHARACTERS)
    for source in sys.argv[2:]:
        font = TTFont(source, recalcTimestamp=False)
        missing -= set(font.getBestCmap())
        subsetter = subset.Subsetter(options)
        subsetter.populate(unicodes=CHARACTERS)
        subsetter.subset(font)
        rename(font)
        collection.fonts.append(font)
    if missing:
        sys.exit(f"no font has {''.join(map(chr, sorted(missing)))}")
    os.makedirs(os.path.dirname(sys.argv[1]), exist_ok=True)
    collection.save(sys.argv[1], shareTables=True)


if __name__ == "__main__":
    main()
