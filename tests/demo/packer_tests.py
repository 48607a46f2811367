#!/usr/bin/env python3
# The packer of the demo game: a good folder is packed; a bad file is named and nothing is written.
#
# usage: packer_tests.py MAKE-DEMO-GAME DEMO-FOLDER SCRATCH-FOLDER; the packed game is left in SCRATCH-FOLDER/game
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


game, copy = os.path.join(scratch, 'game'), os.path.join(scratch, 'demo')
for folder in (game, copy):
    shutil.rmtree(folder, ignore_errors=True)
shutil.copytree(demo, copy)


def pack():
    done = subprocess.run([tool, copy, game], capture_output=True)
    return done.returncode, done.stderr.decode().strip(), os.path.exists(game)


for name, spoil, message in BAD:
    path = os.path.join(copy, name)
    with open(os.path.join(demo, name), 'rb') as before, open(path, 'wb') as after:
        after.write(spoil(before.read()))
    assert pack() == (1, 'make-demo-game: %s: %s' % (path, message), False), (message, pack())
    shutil.copy(os.path.join(demo, name), path)
assert pack() == (0, '', True)
with open(os.path.join(game, 'MAP.2'), 'rb') as packed, open(os.path.join(demo, MAP)) as text:
    cells, (key, *grids) = packed.read()[514 + 8192:], text.read().split('\n\n')
codes = {tuple(line.split()[:2]): int(line.split()[2]) for line in key.split('\n') if line[0] != ';'}
for plane, grid in zip('01', grids):
    assert list(cells[int(plane)::2]) == [codes[plane, c] for c in grid.replace('\n', '')]
