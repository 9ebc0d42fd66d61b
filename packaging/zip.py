#!/usr/bin/env python3
"""Packs a folder so that the same files make the same bytes: zip.py SECONDS_SINCE_1970 FOLDER ZIP"""

import sys
import time
import zipfile
from pathlib import Path

seconds, folder, target = int(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
    for file in sorted(path for path in folder.rglob("*") if path.is_file()):
        entry = zipfile.ZipInfo(str(file.relative_to(folder.parent)), time.gmtime(seconds)[:6])
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.create_system = 0
        entry.external_attr = 0o644 << 16  # or else whoever unpacks it for a server would be the only one to read it
        archive.writestr(entry, file.read_bytes(), compresslevel=9)
