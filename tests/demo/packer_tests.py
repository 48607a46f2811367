#!/usr/bin/env python3
"""The packer of the demo game: a good folder is packed; a bad file is named and nothing is written.

usage: packer_tests.py MAKE-DEMO-GAME DEMO-FOLDER SCRATCH-FOLDER
"""
import os
import shutil
import subprocess
import sys

tool, demo, scratch = map(os.path.abspath, sys.argv[1:4])
PICTURE, MAP, SOUND = 'images/Picture 2-011-02.bmp', 'maps/Map 2-1.txt', 'sounds/Sound 064.voc'
BAD = [  # file, what is done to its bytes, how the message ends
    (PICTURE, lambda b: b[:28] + b'\x18' + b[29:], 'has 24 bits per pixel instead of 8'),
    (PICTURE, lambda b: b[:54] + b'\x01' + b[55:], 'has other colours than Picture 1-001-01.bmp'),
    (PICTURE, lambda b: b[:-1], 'is cut short'),
    (MAP, lambda b: b[:-2] + b'\n', 'line 198 has 63 characters instead of 64'),
    (MAP, lambda b: b[:-65], 'has 127 lines of map instead of 2 x 64'),
    (MAP, lambda b: b[:-2] + b'}\n', "line 198 has a '}', which is not in the key of plane 1"),
    (SOUND, lambda b: b + bytes(65536 - len(b)), 'has 65536 bytes; an entry holds 65535'),
]


def pack(folder):
    target = os.path.join(scratch, 'game')
    shutil.rmtree(target, ignore_errors=True)
    done = subprocess.run([tool, folder, target], capture_output=True)
    return done.returncode, done.stderr.decode().strip(), sorted(os.listdir(target)) if os.path.exists(target) else None


def grids(path):
    """The codes of both planes of a map's text, row by row."""
    with open(path) as f:
        key, *grid = f.read().split('\n\n')
    codes = {tuple(line.split()[:2]): int(line.split()[2]) for line in key.split('\n') if line[0] != ';'}
    return [[codes[plane, c] for c in text.replace('\n', '')] for plane, text in zip('01', grid)]


assert pack(demo) == (0, '', ['GAME.PAL', 'IMG.1', 'IMG.2', 'IMG.3', 'MAP.1', 'MAP.2', 'MAP.3', 'SND.DAT', 'UIF.DAT'])
with open(os.path.join(scratch, 'game/MAP.2'), 'rb') as packed:
    cells = packed.read()[514 + 8192:]
assert [list(cells[0::2]), list(cells[1::2])] == grids(os.path.join(demo, MAP))
for name, spoil, message in BAD:
    folder = os.path.join(scratch, 'demo')
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(demo, folder)
    path = os.path.join(folder, name)
    with open(os.path.join(demo, name), 'rb') as before, open(path, 'wb') as after:
        after.write(spoil(before.read()))
    assert pack(folder) == (1, 'make-demo-game: %s: %s' % (path, message), None), (name, message, pack(folder))
