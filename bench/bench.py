#!/usr/bin/env python3
# Runs the benchmarks and prints a table of ratios against floors of the same run.
#
# usage: bench.py BUILD-FOLDER
#
# Ends with a status other than 0 when a row is over its goal.
import os
import shutil
import statistics
import struct
import subprocess
import sys
import tempfile
import time

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..')
sys.path.insert(0, os.path.join(ROOT, 'tests', 'tour'))
import desktop  # noqa: E402  the virtual display of the tour

GOALS = {'start': 1.35, 'memory': 1.2, 'episode': 8, 'export images': 1.1, 'export sounds': 1.1, 'export again': 1.1,
         'growth of export': 1.3, 'growth among lower-case names': 1.3}


def seconds(*command):
    begin = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return time.perf_counter() - begin


def side_by_side(ours, floors):
    # The ratio of runs that came one behind the other, so that a machine that grows busy does not decide.
    return statistics.median(a / b for a, b in zip(ours, floors))


def new_folder(path):
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def write_game(folder, images, sounds, change=str):
    # Writes so many images of 64 x 64, 255 in a group, and sounds of 60,000 bytes. Returns the folder.
    record = bytes([64, 64]) + bytes(8) + bytes(range(256)) * 16
    counts = [0] + [max(0, min(255, images - 255 * g)) for g in range(511)]
    offsets = [2048 + 512 * 90 + 255 * (g - 1) * len(record) if count else 0 for g, count in enumerate(counts)]
    codes = b''.join(bytes([0, 0, count]).ljust(90, b'\0') for count in counts)
    directory = [(60000, 960 + 60000 * n) if n < sounds else (0, 0) for n in range(160)]
    files = {'GAME.PAL': bytes(2000), 'UIF.DAT': bytes(192),
             'IMG.1': struct.pack('<512i', *offsets) + codes + record * images,
             'SND.DAT': b''.join(struct.pack('<Hi', *entry) for entry in directory)
             + b'MThd'.ljust(60000, b'.') * sounds}
    for name, content in files.items():
        with open(os.path.join(folder, change(name)), 'wb') as f:
            f.write(content)
    return folder


def export_rows(build, scratch):
    def path(name):
        return os.path.join(scratch, name)

    def export(game, target):
        command = [os.path.join(build, 'bench', 'bench_export'), game, target]
        return float(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)

    def times(game, copy=('cp', '-r'), again=False):
        # Alternating runs: the export into a folder, and a copy of its result into another.
        ours, floors = [], []
        for run in range(10):
            if run == 0 or not again:
                new_folder(path('ours'))
                new_folder(path('floor'))
            ours.append(export(game, path('ours')))
            floors.append(seconds(*copy, path('ours/.'), path('floor')))
        return ours[1:], floors[1:]

    full, few = write_game(new_folder(path('full')), 20000, 0), write_game(new_folder(path('few')), 2000, 0)
    images, floors = times(full)
    yield 'export images', side_by_side(images, floors), 1
    yield 'export again', side_by_side(*times(full, copy=('cp', '-r', '--remove-destination'), again=True)), 1
    yield 'export sounds', side_by_side(*times(write_game(new_folder(path('sounds')), 0, 160))), 1
    small = statistics.median(times(few)[0])
    yield 'growth of export', statistics.median(images) / 10, small
    yield 'a script instead', seconds(sys.executable, '-c', SCRIPT, few, new_folder(path('script'))), small

    lower = {20000: [], 2000: []}  # exports into the game folder itself, whose files have lower-case names
    for images in 5 * list(lower):
        game = write_game(new_folder(path('lower')), images, 0, str.lower)
        lower[images].append(export(game, game))
    yield 'growth among lower-case names', side_by_side(lower[20000], lower[2000]), 10


SCRIPT = '''import os, sys
sys.path.insert(0, %r)
import reader
for name, data in reader.images(sys.argv[1], 1).items():
    with open(os.path.join(sys.argv[2], name), 'wb') as f:
        f.write(data)
''' % os.path.join(ROOT, 'bench')


def window_rows(build, scratch):
    # The rows that need a display: real windows on a virtual one, with the demo game.
    folder, game = os.path.join(build, 'bench'), os.path.join(scratch, 'demo')
    subprocess.run([os.path.join(build, 'tools', 'make-demo-game'), os.path.join(ROOT, 'demo'), game], check=True)
    for number in (1, 2, 3):
        shutil.copy(os.path.join(ROOT, 'symbols', 'Episode%d.tsd' % number), folder)
    for name in ('bench_start', 'bench_episode'):
        with open(os.path.join(folder, name + '.ini'), 'wb') as f:
            f.write(b'[Settings]\r\nOpenPath=' + os.fsencode(game) + b'\r\n')
    with desktop.Desktop():
        runs = {'bench_start': [], 'bench_start_bare': []}
        for _ in range(61):
            for name, found in runs.items():
                begin = time.perf_counter()
                child = subprocess.Popen([os.path.join(folder, name)], stderr=subprocess.DEVNULL)
                _, status, usage = os.wait4(child.pid, 0)
                assert status == 0, name
                found.append((time.perf_counter() - begin, usage.ru_maxrss))
        for index, row in enumerate(('start', 'memory')):
            yield row, side_by_side(*([found[index] for found in each] for each in runs.values())), 1
        out = subprocess.run([os.path.join(folder, 'bench_episode'), game], stdout=subprocess.PIPE, check=True).stdout
        times = [float(time) for time in out.split()]
        yield 'episode', statistics.median(times[0::2]), statistics.median(times[1::2])


def main():
    build = os.path.abspath(sys.argv[1])
    over = 0
    print('| row | ratio | goal | |\n|---|---|---|---|')
    # In memory where the machine has it, so that a busy disk does not decide.
    with tempfile.TemporaryDirectory(dir='/dev/shm' if os.path.isdir('/dev/shm') else None) as scratch:
        for rows in (window_rows, export_rows):
            for row, ours, floor in rows(build, scratch):
                goal, ratio = GOALS.get(row, float('inf')), ours / floor
                over += ratio > goal
                print('| %s | %.2f | %g | %s |' % (row, ratio, goal, 'over' if ratio > goal else 'ok'), flush=True)
    sys.exit(1 if over else 0)


if __name__ == '__main__':
    main()
