#!/usr/bin/env python3
"""Runs the benchmarks and prints a table of ratios against floors of the same run.

usage: bench.py BUILD-FOLDER [ROW...]

Ends with a status other than 0 when a row is over its goal.
"""
import json
import os
import shutil
import statistics
import subprocess
import sys
import time

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..')
sys.path.insert(0, os.path.join(ROOT, 'scripts', 'tour'))
import desktop  # noqa: E402  the virtual display of the tour

GOALS = {'start': 1.25, 'memory': 1.25, 'directory': 1.1, 'image': 3, 'map': 2, 'symbols': 20, 'list': 2,
         'export images': 1.0, 'export again': 1.2, 'export sounds': 1.0,
         'growth of directory': 1.3, 'growth of export': 1.3}
STARTS = 21


def process(command):
    """Seconds and peak kilobytes of a run."""
    begin = time.perf_counter()
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    assert status == 0, command
    return time.perf_counter() - begin, usage.ru_maxrss


def start_rows(folder, game):
    for number in (1, 2, 3):
        shutil.copy(os.path.join(folder, '..', 'bin', 'Episode%d.tsd' % number), folder)
    with open(os.path.join(folder, 'start_program.ini'), 'wb') as f:
        f.write(b'[Settings]\r\nOpenPath=' + os.fsencode(game) + b'\r\n')
    runs = {'start_program': [], 'start_bare': []}
    screen = desktop.Desktop()
    try:
        for _ in range(STARTS):
            for name, found in runs.items():
                found.append(process([os.path.join(folder, name)]))
    finally:
        screen.close()
    for row, index, unit in (('start', 0, 1000), ('memory', 1, 1 / 1024)):
        ours, floor = (statistics.median(run[index] for run in runs[name]) * unit for name in runs)
        yield row, ours, floor, 'ms' if index == 0 else 'MiB'


def process_rows(folder, scratch):
    """The rows of the program rows, run in random order, as medians in milliseconds."""
    runs = []
    # An export is one run of many files; the others are repeated within a run.
    for repetitions, names in ((9, '-.*export.*'), (5, '.*export.*')):
        out = os.path.join(scratch, 'rows.json')
        subprocess.run([os.path.join(folder, 'rows'), '--benchmark_repetitions=%d' % repetitions,
                        '--benchmark_min_time=0.05', '--benchmark_enable_random_interleaving=true',
                        '--benchmark_filter=' + names, '--benchmark_out=' + out, scratch],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       env=dict(os.environ, QT_QPA_PLATFORM='offscreen'))
        with open(out) as f:
            runs += json.load(f)['benchmarks']
    scale = {'ns': 1e-6, 'us': 1e-3, 'ms': 1, 's': 1000}
    times = {}
    for run in runs:
        if run['run_type'] == 'iteration':
            name = '/'.join(run['name'].split('/')[:2])
            times.setdefault(name, []).append(run['real_time'] * scale[run['time_unit']])
    medians = {name: statistics.median(values) for name, values in times.items()}
    for row in ('directory', 'image', 'map', 'symbols', 'list', 'export images', 'export again', 'export sounds'):
        yield row, medians[row + '/ours'], medians[row + '/floor'], 'ms'
    # Time per image of the full run against that of a run with a tenth of the images.
    yield 'growth of directory', medians['growth of directory/ours'] / 10, medians['growth of directory/floor'], 'ms'
    yield 'growth of export', medians['export images/ours'] / 10, medians['tenth of export/ours'], 'ms'


def main():
    folder = os.path.join(os.path.abspath(sys.argv[1]), 'bench')
    scratch = os.path.join(folder, 'scratch')
    shutil.rmtree(scratch, ignore_errors=True)
    os.makedirs(scratch)
    game = os.path.join(scratch, 'demo')
    subprocess.run([os.path.join(folder, '..', 'tools', 'make-demo-game'), os.path.join(ROOT, 'demo'), game], check=True)
    over = 0
    print('| row | ours | floor | ratio | goal | |\n|---|---|---|---|---|---|')
    for rows in (process_rows(folder, scratch), start_rows(folder, game)):
        for row, ours, floor, unit in rows:
            verdict = 'ok' if ours / floor <= GOALS[row] else 'over'
            over += verdict == 'over'
            print('| %s | %.3g %s | %.3g %s | %.2f | %g | %s |'
                  % (row, ours, unit, floor, unit, ours / floor, GOALS[row], verdict), flush=True)
    shutil.rmtree(scratch)
    sys.exit(1 if over else 0)


if __name__ == '__main__':
    main()
