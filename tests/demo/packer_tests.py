#!/usr/bin/env python3
# The packer of the demo game: a good folder is packed; a bad file is named and nothing is written, nor over another game.
#
# usage: packer_tests.py MAKE-DEMO-GAME DEMO-FOLDER SCRATCH-FOLDER; the packed game is left in SCRATCH-FOLDER/game
import shutil
import subprocess
import sys
from pathlib import Path

tool, demo, scratch = (Path(argument).resolve() for argument in sys.argv[1:4])
game, copy = scratch / 'game', scratch / 'demo'
PICTURE, MAP, SOUND = 'images/Picture 2-011-02.bmp', 'maps/Map 2-1.txt', 'sounds/Sound 064.voc'
BAD = [  # file, what is done to its bytes, how the message ends
    (PICTURE, lambda b: b[:28] + b'\x18' + b[29:], 'has 24 bits per pixel instead of 8'),
    (PICTURE, lambda b: b[:54] + b'\x01' + b[55:], 'has other colours than Picture 1-001-01.bmp'),
    (MAP, lambda b: b[:-2] + b'\n', 'line 198 has 63 characters instead of 64'),
    (MAP, lambda b: b[:-65], 'has 127 lines of map instead of 2 x 64'),
    (MAP, lambda b: b[:-2] + b'}\n', "line 198 has a '}', which is not in the key of plane 1"),
    (SOUND, lambda b: b + bytes(65536 - len(b)), 'has 65536 bytes; an entry holds 65535'),
]


def pack():
    done = subprocess.run([tool, copy, game], capture_output=True)
    return done.returncode, done.stderr.decode().strip(), game.exists()


shutil.rmtree(scratch, ignore_errors=True)
shutil.copytree(demo, copy)
for name, spoil, message in BAD:
    good = (copy / name).read_bytes()
    (copy / name).write_bytes(spoil(good))
    assert pack() == (1, 'make-demo-game: %s: %s' % (copy / name, message), False), (message, pack())
    (copy / name).write_bytes(good)
game.mkdir()
(game / 'GAME.PAL').write_bytes(b'of a real game')
refused = 'make-demo-game: %s: is not empty and holds no DEMO.TXT; nothing is written' % game
assert pack() == (1, refused, True) and [path.read_bytes() for path in game.iterdir()] == [b'of a real game'], pack()
(game / 'GAME.PAL').unlink()
assert pack() == (0, '', True)
for path in copy.glob('*/* 3-*'):
    path.unlink()
(copy / 'maps/Thumbs.db').write_bytes(b'what a desktop drops into folders')
assert pack() == (0, '', True)
assert sorted(path.name for path in game.glob('*.[0-9]')) == ['IMG.1', 'IMG.2', 'MAP.1', 'MAP.2']  # none of the third
shutil.copytree(demo, copy, dirs_exist_ok=True)
assert pack() == (0, '', True)
cells, (key, *grids) = (game / 'MAP.2').read_bytes()[514 + 8192:], (demo / MAP).read_text().split('\n\n')
codes = {tuple(line.split()[:2]): int(line.split()[2]) for line in key.split('\n') if line[0] != ';'}
for plane, grid in zip('01', grids):
    assert list(cells[int(plane)::2]) == [codes[plane, c] for c in grid.replace('\n', '')]
